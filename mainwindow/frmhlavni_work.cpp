// Long work, a download or a print: the window stays alive behind it, and Escape ends it.

#include <utility>

#include "forms/message_loop.h"
#include "mainwindow/frmhlavni.h"
#include "text/assertion.h"

namespace kvez {
namespace {

// Whoever drags a window sees it follow; a list of thousands of rows loses no time over it.
constexpr std::uint64_t kBetweenLooks = 20;  // milliseconds

}  // namespace

LongWork::LongWork(frmhlavni& window) : m_window(window), m_around(std::exchange(window.m_work, this)) {}

LongWork::~LongWork() {
  Assert(m_window.m_work == this, "work within other work ends before it");
  m_window.m_work = m_around;
}

bool LongWork::GoesOn() {
  Clock& clock = m_window.m_platform.output.clock;
  if (clock.Milliseconds() - m_lastLook >= kBetweenLooks) {
    m_wasEnded = forms::CatchUp(m_window) || m_wasEnded;
    m_lastLook = clock.Milliseconds();
  }
  return !m_wasEnded && m_window.IsOpen() && !m_window.SessionEnds();
}

}  // namespace kvez
