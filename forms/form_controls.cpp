// What a form keeps for its controls: the register, the tooltips, the notice that they are shown, the timers.
#include <windows.h>
// After windows.h, whose types it needs.
#include <commctrl.h>

#include <algorithm>

#include "forms/form.h"
#include "forms/text_ruler.h"
#include "forms/tool_tip_text.h"
#include "text/assertion.h"

namespace kvez::forms {
namespace {

// Wide enough for a sentence, so that a long tooltip gets a second line instead of crossing the screen.
constexpr int kToolTipWidthTwips = 6000;
// What the tooltip draws around its text, generously.
constexpr int kToolTipEdgesTwips = 300;

// The tooltip only reads the text; its structure serves for both directions.
TTTOOLINFOW ToolInfo(Control& control, std::wstring& text) {
  TTTOOLINFOW info{};
  // Without the newest field, so that both versions of the common controls take it.
  info.cbSize = TTTOOLINFOW_V2_SIZE;
  info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  info.hwnd = control.OwnerForm().Handle();
  info.uId = reinterpret_cast<UINT_PTR>(control.Handle());
  info.lpszText = text.data();
  return info;
}

}  // namespace

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
  SendMessageW(m_toolTip, TTM_SETMAXTIPWIDTH, 0, ToolTipWidth());
  // Where words are broken depends on the font.
  for (Control* control : m_controls) {
    if (control->m_hasToolTip) ChangeToolTip(*control);
  }
}

// In pixels. No tooltip is wider than its window, whatever the data that it tells of.
int Form::ToolTipWidth() const {
  RECT window{};
  GetWindowRect(Handle(), &window);
  const int inWindow = static_cast<int>(window.right - window.left) - ToPixels(kToolTipEdgesTwips);
  return std::max(1, std::min(ToPixels(kToolTipWidthTwips), inWindow));
}

std::wstring Form::FittingToolTip(const Control& control) const {
  TextRuler ruler;
  return FitToolTip(control.ShownToolTip(), ToolTipWidth(),
                    [&](std::wstring_view text) { return ruler.Width(text, Font()); });
}

bool Form::AddToolTip(Control& control) {
  // A pointer that happens to be where the window appears asks for nothing yet.
  if (m_loading) return false;
  if (m_toolTip == nullptr) CreateToolTip();
  std::wstring text = FittingToolTip(control);
  TTTOOLINFOW info = ToolInfo(control, text);
  if (SendMessageW(m_toolTip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info)) == 0) return false;
  // The tooltip watches from the next message on, and the pointer may rest already.
  MSG arrival{};
  arrival.hwnd = control.Handle();
  arrival.message = WM_MOUSEMOVE;
  SendMessageW(m_toolTip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&arrival));
  return true;
}

void Form::ChangeToolTip(Control& control) {
  std::wstring text = FittingToolTip(control);
  TTTOOLINFOW info = ToolInfo(control, text);
  // An empty text shows no tooltip.
  SendMessageW(m_toolTip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&info));
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
