#include "mainwindow/message_timer.h"

#include <utility>

#include "text/assertion.h"

namespace kvez {
namespace {

// A timer without a window carries no data of its own, so the one that runs is found here.
MessageTimer* theTimer = nullptr;

}  // namespace

void MessageTimer::Start(std::function<void()> action) {
  Assert(action != nullptr, "there is something to do when the time is over");
  if (theTimer != nullptr) theTimer->Stop();
  m_timer = SetTimer(nullptr, 0, m_interval, &MessageTimer::Procedure);
  if (m_timer == 0) return;
  theTimer = this;
  m_action = std::move(action);
}

void MessageTimer::SetInterval(unsigned milliseconds) {
  m_interval = milliseconds;
  if (IsRunning()) Start(std::move(m_action));
}

void MessageTimer::Stop() {
  if (m_timer != 0) KillTimer(nullptr, m_timer);
  m_timer = 0;
  m_action = nullptr;
  if (theTimer == this) theTimer = nullptr;
}

void CALLBACK MessageTimer::Procedure(HWND, UINT, UINT_PTR timer, DWORD) {
  // A tick may still wait in the queue after its timer was stopped.
  if (theTimer == nullptr || theTimer->m_timer != timer) return;
  const std::function<void()> action = std::move(theTimer->m_action);
  theTimer->Stop();
  action();
}

}  // namespace kvez
