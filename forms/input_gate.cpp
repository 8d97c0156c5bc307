#include "forms/input_gate.h"

#include <utility>

namespace kvez::forms {
namespace {

// The system's menus, the lists' and the text boxes' own: while one is open it takes the keyboard and the pointer, but
// timers go on.
bool MenuIsOpen() {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof(thread);
  constexpr DWORD kMenus = GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE;
  return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & kMenus) != 0;
}

}  // namespace

bool TakesInput(const Form& form) {
  return form.IsOpen() && !form.IsPaused() && IsWindowEnabled(form.Handle()) && !MenuIsOpen();
}

bool TakesPointer(const Form& form) {
  return form.IsOpen() && GetForegroundWindow() == form.Handle() && TakesInput(form);
}

InputPause::InputPause(Form& form, Closing closing) : m_form(form), m_closing(closing) {
  ++m_form.m_pauses;
  if (m_closing == Closing::Waits) ++m_form.m_closingPauses;
}

InputPause::~InputPause() {
  --m_form.m_pauses;
  if (m_closing == Closing::Waits) --m_form.m_closingPauses;
  if (m_form.m_closingPauses > 0 || !std::exchange(m_form.m_closingWaits, false)) return;
  if (m_form.IsOpen()) PostMessageW(m_form.Handle(), WM_CLOSE, 0, 0);
}

}  // namespace kvez::forms
