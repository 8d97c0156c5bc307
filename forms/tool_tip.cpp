#include "forms/tool_tip.h"

#include <windows.h>
// After windows.h, whose types it needs.
#include <commctrl.h>

#include <algorithm>

#include "forms/form.h"
#include "forms/text_ruler.h"
#include "forms/tool_tip_text.h"

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

bool ToolTip::Watch(Control& control) {
  // A pointer that happens to be where the window appears asks for nothing yet.
  if (m_form.m_loading || control.ShownToolTip().empty()) return false;
  if (m_window == nullptr) Create();
  std::wstring text = Fitting(control);
  TTTOOLINFOW info = ToolInfo(control, text);
  if (SendMessageW(m_window, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info)) == 0) return false;
  // The tooltip watches from the next message on, and the pointer may rest already.
  MSG arrival{};
  arrival.hwnd = control.Handle();
  arrival.message = WM_MOUSEMOVE;
  SendMessageW(m_window, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&arrival));
  return true;
}

void ToolTip::Renew(Control& control) {
  std::wstring text = Fitting(control);
  TTTOOLINFOW info = ToolInfo(control, text);
  // An empty text shows no tooltip.
  SendMessageW(m_window, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&info));
}

void ToolTip::Create() {
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  m_window = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                             CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, m_form.Handle(), nullptr,
                             GetModuleHandleW(nullptr), nullptr);
  Rescale();
}

void ToolTip::Rescale() {
  if (m_window == nullptr) return;
  SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(m_form.Font()), TRUE);
  SendMessageW(m_window, TTM_SETMAXTIPWIDTH, 0, Width());
}

void ToolTip::SystemColorsChanged() {
  if (m_window != nullptr) SendMessageW(m_window, WM_SYSCOLORCHANGE, 0, 0);
}

// No tooltip is wider than its window, whatever the data that it tells of.
int ToolTip::Width() const {
  RECT window{};
  GetWindowRect(m_form.Handle(), &window);
  const int inWindow = static_cast<int>(window.right - window.left) - m_form.ToPixels(kToolTipEdgesTwips);
  return std::max(1, std::min(m_form.ToPixels(kToolTipWidthTwips), inWindow));
}

std::wstring ToolTip::Fitting(const Control& control) const {
  TextRuler ruler;
  return FitToolTip(control.ShownToolTip(), Width(),
                    [&](std::wstring_view text) { return ruler.Width(text, m_form.Font()); });
}

}  // namespace kvez::forms
