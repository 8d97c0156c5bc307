// What a form keeps for its controls: the register, the notice that they are shown, the timers.
#include "forms/form.h"
#include "text/assertion.h"

namespace kvez::forms {

void Form::Register(Control& control) { m_controls.push_back(&control); }

void Form::Unregister(Control& control) {
  const std::size_t known = std::erase(m_controls, &control);
  Assert(known == 1, "the form knows the control");
  if (m_defaultButton == &control) m_defaultButton = nullptr;
  for (Control** kept : {&m_cancelButton, &m_frontPanel, &m_handedFrom, &m_handedTo}) {
    if (*kept == &control) *kept = nullptr;
  }
}

void Form::RegisterTimer(Timer& timer) { m_timers.push_back(&timer); }

void Form::UnregisterTimer(Timer& timer) { std::erase(m_timers, &timer); }

void Form::NotifyShown(Control* within) {
  if (!m_shown) return;
  const auto isShown = [this](const Control* control) {
    // Not IsWindowVisible: the form itself may be on its way to the screen only now.
    for (HWND window = control->Handle(); window != Handle(); window = GetParent(window)) {
      if (window == nullptr || (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) == 0) return false;
    }
    return true;
  };
  const std::vector<Control*> controls = m_controls;
  for (Control* control : controls) {
    const bool concerned =
        within == nullptr || control == within || IsChild(within->Handle(), control->Handle()) != FALSE;
    if (concerned && isShown(control)) control->OnShown();
  }
}

}  // namespace kvez::forms
