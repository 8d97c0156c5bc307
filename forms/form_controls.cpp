// What a form keeps for its controls: the register, the tooltips, the notice that they are shown, the timers.
#include <windows.h>
// After windows.h, whose types it needs.
#include <commctrl.h>

#include <algorithm>

#include "forms/form.h"

namespace kvez::forms {
namespace {

// Wide enough for a sentence, so that a long tooltip gets a second line instead of crossing the screen.
constexpr int kToolTipWidthTwips = 6000;

TTTOOLINFOW ToolInfo(HWND form, HWND control) {
  TTTOOLINFOW info{};
  // Without the newest field, so that both versions of the common controls take it.
  info.cbSize = TTTOOLINFOW_V2_SIZE;
  info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  info.hwnd = form;
  info.uId = reinterpret_cast<UINT_PTR>(control);
  return info;
}

}  // namespace

void Form::Register(Control& control) { m_controls.push_back(&control); }

void Form::Unregister(Control& control) {
  std::erase(m_controls, &control);
  if (m_defaultButton == &control) m_defaultButton = nullptr;
  if (m_cancelButton == &control) m_cancelButton = nullptr;
}

void Form::RegisterTimer(Timer& timer) { m_timers.push_back(&timer); }

void Form::UnregisterTimer(Timer& timer) { std::erase(m_timers, &timer); }

void Form::CreateToolTip() {
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  m_toolTip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, Handle(), nullptr,
                              GetModuleHandleW(nullptr), nullptr);
  RescaleToolTip();
}

void Form::RescaleToolTip() {
  if (m_toolTip == nullptr) return;
  SendMessageW(m_toolTip, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), TRUE);
  SendMessageW(m_toolTip, TTM_SETMAXTIPWIDTH, 0, ToPixels(kToolTipWidthTwips));
}

void Form::ShowToolTip(Control& control) {
  if (m_toolTip == nullptr) CreateToolTip();
  if (m_toolTip == nullptr) return;
  TTTOOLINFOW info = ToolInfo(Handle(), control.Handle());
  // The tooltip only reads the text; its structure serves for both directions.
  info.lpszText = const_cast<wchar_t*>(control.ToolTipText().c_str());
  TTTOOLINFOW present = ToolInfo(Handle(), control.Handle());
  const bool isThere = SendMessageW(m_toolTip, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&present)) != 0;
  UINT message = isThere ? TTM_UPDATETIPTEXTW : TTM_ADDTOOLW;
  if (control.ToolTipText().empty()) message = TTM_DELTOOLW;
  SendMessageW(m_toolTip, message, 0, reinterpret_cast<LPARAM>(&info));
}

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
