// The keyboard's way through a form: the focus, Tab, Enter, Escape, access keys.
#include <algorithm>
#include <utility>

#include "forms/form.h"
#include "forms/input.h"
#include "forms/pointer.h"
#include "forms/reach.h"

namespace kvez::forms {
namespace {

bool CanTakeFocus(const Control* control) {
  return control != nullptr && control->Handle() != nullptr && IsWindowVisible(control->Handle()) &&
         IsWindowEnabled(control->Handle());
}

bool CanAct(const Control* control) { return control != nullptr && CanBeReached(*control); }

constexpr LPARAM kAltIsDown = 1 << 29;

}  // namespace

Control* Form::FocusedControl() const {
  const HWND focus = GetFocus();
  const auto found = std::find_if(m_controls.begin(), m_controls.end(), [focus](const Control* control) {
    return focus != nullptr && control->Handle() == focus;
  });
  return found == m_controls.end() ? nullptr : *found;
}

std::size_t Form::PositionOf(const Control* control) const {
  return static_cast<std::size_t>(std::find(m_controls.begin(), m_controls.end(), control) - m_controls.begin());
}

/// The first control that Tab reaches from `start` (excluded; the number of controls means from the very end of the
/// order), going round. Neither `except` nor what lies in it.
Control* Form::Reachable(std::size_t start, bool backwards, const Control* except) const {
  const std::size_t count = m_controls.size();
  if (count == 0) return nullptr;
  for (std::size_t step = 1; step <= count; ++step) {
    // With the one place more that `start` may be, the way round is one longer.
    const std::size_t position = (start + (backwards ? count + 1 - step : step)) % (count + 1);
    if (position == count) continue;
    Control* const candidate = m_controls[position];
    if (candidate->IsReachable(except)) return candidate;
  }
  return nullptr;
}

bool Form::Focus(Control* control) {
  if (control == nullptr) return false;
  control->SetFocus();
  // As in every dialog: what Tab comes to can be typed over at once.
  if ((SendMessageW(control->Handle(), WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0 &&
      (GetWindowLongPtrW(control->Handle(), GWL_STYLE) & ES_MULTILINE) == 0) {
    SendMessageW(control->Handle(), EM_SETSEL, 0, -1);
  }
  return true;
}

bool Form::FocusNext(bool backwards) { return Focus(Reachable(PositionOf(FocusedControl()), backwards, nullptr)); }

bool Form::FocusAfter(const Control& control) { return Focus(Reachable(PositionOf(&control), false, nullptr)); }

void Form::LeaveFocus(const Control& control) {
  const HWND focus = GetActiveWindow() == Handle() ? GetFocus() : m_focusWhenActive;
  if (focus == nullptr || (focus != control.Handle() && !IsChild(control.Handle(), focus))) return;
  const auto* focused = dynamic_cast<const Control*>(FromHandle(focus));
  Control* next = WorkGoesOnAt(control);
  if (next == nullptr || !next->IsReachable(&control)) next = Reachable(PositionOf(focused), false, &control);
  if (next != nullptr) {
    next->SetFocus();
    return;
  }
  m_focusWhenActive = nullptr;
  if (GetActiveWindow() != Handle()) return;
  // The form itself keeps the focus: handing it on would choose the control that is about to go.
  m_keepsFocus = true;
  ::SetFocus(Handle());
  m_keepsFocus = false;
}

// Whatever takes the focus away from the form, minimising included, gives it back to the control that had it.
void Form::KeepInMind(const Control& control, HWND taker) {
  if (m_keepsFocus || (taker != nullptr && IsChild(Handle(), taker))) return;
  m_focusWhenActive = control.Handle();
}

void Form::OnActivate(bool active) {
  Pointer::RememberWhereItIs();
  if (!active) {
    m_handedFrom = nullptr;
    const std::vector<Control*> controls = m_controls;
    for (Control* control : controls) control->OnFormDeactivated();
    return;
  }
  if (!IsIconic(Handle())) ::SetFocus(Handle());
}

void Form::OnSize(WPARAM kind) {
  const bool restored = std::exchange(m_wasMinimized, kind == SIZE_MINIMIZED) && kind != SIZE_MINIMIZED;
  // The activation came while the form still was an icon, which has no use for the keyboard.
  if (restored && GetActiveWindow() == Handle() && !IsChild(Handle(), GetFocus())) ::SetFocus(Handle());
  if (kind == SIZE_MINIMIZED) return;
  if (m_scalingWaits) return ScaleAnew();
  if (m_loaded) Form_Resize();
}

void Form::OnSetFocus() {
  if (m_keepsFocus) return;
  const auto* control = dynamic_cast<const Control*>(FromHandle(m_focusWhenActive));
  if (CanTakeFocus(control)) {
    ::SetFocus(m_focusWhenActive);
  } else if (Control* const first = Reachable(m_controls.size(), false, nullptr)) {
    ::SetFocus(first->Handle());
  }
}

void Form::PreviewKey(std::int16_t& keyCode, std::int16_t shift) {
  if (!m_keyPreview) return;
  // A preview cannot change a key, only see it: two handlers that change each other's keys help nobody.
  Form_KeyDown(keyCode, shift);
}

void Form::HandFocusOver(Control& from, Control& to) {
  Assert(&from.OwnerForm() == this && &to.OwnerForm() == this, "both controls are of this form");
  // Not every keyboard says that it only repeats a Shift that is held.
  if (m_handedFrom != nullptr && GetKeyState(VK_SHIFT) < 0) return;
  to.SetFocus();
  m_handedFrom = &from;
  m_handedTo = &to;
}

void Form::TakeBackFocus(MSG& message) {
  const bool down = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  const bool up = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
  // Shift itself is repeated as long as it is held alone; its release ends the matter, as every other key does.
  if (m_handedFrom == nullptr || !(message.wParam == VK_SHIFT ? up : down)) return;
  Control* const from = std::exchange(m_handedFrom, nullptr);
  // What became of the focus meanwhile, by a click or a dialog, stays.
  if (!down || GetKeyState(VK_SHIFT) >= 0 || m_handedTo == nullptr || !m_handedTo->HasKeyboardFocus()) return;
  from->SetFocus();
  if (from->HasKeyboardFocus()) message.hwnd = from->Handle();
}

bool Form::TranslateKey(MSG& message) {
  TakeBackFocus(message);
  switch (message.message) {
    case WM_SYSCHAR:
      return (message.lParam & kAltIsDown) != 0 && TranslateAccessKey(message);
    case WM_KEYDOWN:
      break;
    default:
      return false;
  }
  switch (message.wParam) {
    case VK_TAB:
      if (GetKeyState(VK_CONTROL) < 0) return false;
      return FocusNext(GetKeyState(VK_SHIFT) < 0);
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN: {
      Control* const focused = FocusedControl();
      return focused != nullptr && focused->MoveInGroup(message.wParam);
    }
    case VK_RETURN:
    case VK_ESCAPE:
      return TranslateButtonKey(message);
    default:
      return false;
  }
}

bool Form::TranslateButtonKey(const MSG& message) {
  Control* button = m_cancelButton;
  if (message.wParam == VK_RETURN) {
    Control* const focused = FocusedControl();
    button = focused != nullptr && focused->IsButton() ? focused : m_defaultButton;
  }
  if (ShiftState() != 0 || !CanAct(button)) return false;
  // A key that is held down acts once.
  if (IsRepeated(message.lParam)) return true;
  auto keyCode = static_cast<std::int16_t>(message.wParam);
  m_keyIsRepeated = false;
  PreviewKey(keyCode, 0);
  if (keyCode != 0 && CanAct(button)) button->AccessKeyPress(keyCode);
  return true;
}

bool Form::TranslateAccessKey(const MSG& message) {
  const auto character = static_cast<wchar_t>(message.wParam);
  // From the focused control on: an access key that two controls share reaches both in turn.
  const std::size_t count = m_controls.size();
  const std::size_t start = PositionOf(FocusedControl());
  const std::vector<Control*> controls = m_controls;
  for (std::size_t step = 1; step <= count + 1; ++step) {
    const std::size_t position = (start + step) % (count + 1);
    if (position == count) continue;
    Control* const control = controls[position];
    if (!CanAct(control) || !control->HasAccessKey(character)) continue;
    if (IsRepeated(message.lParam)) return true;
    if (control->IsButton() && control->IsReachable()) control->SetFocus();
    // The focus may have changed what can be done.
    if (!CanAct(control)) return true;
    if (control->AccessKeyPress(ToKeyAscii(character))) return true;
  }
  return false;
}

}  // namespace kvez::forms
