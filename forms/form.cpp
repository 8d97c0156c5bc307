#include "forms/form.h"

#include <algorithm>

#include "forms/client_area.h"
#include "forms/dpi.h"
#include "forms/guard.h"
#include "forms/input.h"
#include "forms/menu_letter.h"
#include "forms/mouse_pointer.h"
#include "forms/pointer.h"
#include "forms/text_ruler.h"
#include "forms/twips.h"

namespace kvez::forms {
namespace {

DWORD StyleOf(BorderStyle border) {
  constexpr DWORD common = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
  switch (border) {
    case BorderStyle::FixedSingle:
      return common | WS_MINIMIZEBOX;
    case BorderStyle::FixedDialog:
      return common | WS_POPUP;
    case BorderStyle::Sizable:
      return common | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_THICKFRAME;
  }
  return common;
}

DWORD ExtendedStyleOf(BorderStyle border) {
  return WS_EX_CONTROLPARENT | (border == BorderStyle::FixedDialog ? WS_EX_DLGMODALFRAME : 0UL);
}

DWORD StyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)); }
DWORD ExtendedStyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)); }

SIZE SizeOf(HWND window) {
  RECT outer{};
  GetWindowRect(window, &outer);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

}  // namespace

Form::Form(const FormDesign& design)
    : m_iconName(design.icon), m_clientWidth(design.clientWidth), m_clientHeight(design.clientHeight) {
  Parameters parameters;
  parameters.style = StyleOf(design.border);
  parameters.extendedStyle = ExtendedStyleOf(design.border);
  parameters.parent = design.owner != nullptr ? design.owner->Handle() : nullptr;
  parameters.classIcon = design.icon;
  // The scaling of its screen is known only when the window is there, but most often it is this one. A window is slow
  // to resize and slow to be given other icons than those of its class.
  const unsigned expectedDpi = SystemDpi();
  const SIZE outer = OuterSize(parameters.style, parameters.extendedStyle, expectedDpi);
  parameters.pixels = {CW_USEDEFAULT, CW_USEDEFAULT, outer.cx, outer.cy};
  CreateOwn(design.className, parameters);
  m_dpi = WindowDpi(Handle());
  ApplyClientSize();
  // The frame of a dialog is sure to show only an icon of its own.
  if (m_dpi != expectedDpi || design.border == BorderStyle::FixedDialog) ApplyIcons();
  Center();
  CreateFont();
  // Underlined access keys and focus marks are always shown: the drawn buttons always show theirs.
  SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

Form::~Form() {
  for (Timer* timer : m_timers) timer->m_form = nullptr;
  for (Control* control : m_controls) control->m_form = nullptr;
  DestroyHandle();
}

void Form::Load() {
  if (m_loaded || !IsOpen()) return;
  m_loaded = true;
  m_loading = true;
  Form_Load();
  m_loading = false;
}

void Form::Show() {
  Load();
  if (!IsOpen()) return;
  if (IsIconic(Handle())) ShowWindow(Handle(), SW_RESTORE);
  if (!m_shown) {
    m_shown = true;
    // The controls must know their place in the order of the Tab key before the focus looks for its first one.
    NotifyShown(nullptr);
  }
  ShowWindow(Handle(), SW_SHOW);
  SetForegroundWindow(Handle());
}

void Form::Hide() {
  if (IsOpen()) ShowWindow(Handle(), SW_HIDE);
}

bool Form::Unload(UnloadMode mode) {
  if (!IsOpen()) return true;
  // A second request while the first one still asks its question changes nothing.
  if (m_asking || m_unloading) return false;
  if (m_closingPauses > 0) {
    m_closingWaits = true;
    return false;
  }
  const bool agreed = AsksToUnload(mode);
  // The end of the session may have come while the question was open.
  if (!IsOpen()) return true;
  if (!agreed) return false;
  m_unloading = true;
  std::int16_t cancel = 0;
  const bool done = Guarded([&] { Form_Unload(cancel); });
  m_unloading = false;
  if (!done || cancel != 0) return false;
  return DestroyAndTerminate();
}

bool Form::AsksToUnload(UnloadMode mode) {
  std::int16_t cancel = 0;
  m_asking = true;
  const bool asked = Guarded([&] { Form_QueryUnload(cancel, mode); });
  m_asking = false;
  return asked && cancel == 0;
}

bool Form::DestroyAndTerminate() {
  for (Timer* timer : m_timers) timer->SetEnabled(false);
  DestroyHandle();
  m_toolTip = nullptr;
  Guarded([this] { Form_Terminate(); });
  return true;
}

std::wstring Form::Caption() const {
  std::wstring text(static_cast<std::size_t>(std::max(GetWindowTextLengthW(Handle()), 0)), L'\0');
  if (!text.empty()) GetWindowTextW(Handle(), text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

void Form::SetCaption(std::wstring_view caption) {
  if (IsOpen()) SetWindowTextW(Handle(), std::wstring(caption).c_str());
}

void Form::ApplyIcons() {
  if (m_iconName == nullptr) return;
  const auto load = [this](int widthMetric, int heightMetric) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), m_iconName, IMAGE_ICON,
                                         SystemMetric(widthMetric, m_dpi), SystemMetric(heightMetric, m_dpi),
                                         LR_DEFAULTCOLOR));
  };
  OwnedIcon smallIcon(load(SM_CXSMICON, SM_CYSMICON));
  OwnedIcon largeIcon(load(SM_CXICON, SM_CYICON));
  // The large one first: for the small one alone, the system would load a large one of its own.
  SendMessageW(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon.Get()));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon.Get()));
  m_smallIcon = std::move(smallIcon);
  m_largeIcon = std::move(largeIcon);
}

SIZE Form::OuterSize(DWORD style, DWORD extendedStyle, unsigned dpi) const {
  const RECT client{0, 0, TwipsToPixels(m_clientWidth, dpi), TwipsToPixels(m_clientHeight, dpi)};
  const RECT outer = OuterRectangle(client, style, extendedStyle, dpi);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

void Form::ApplyClientSize() {
  if (!IsOpen()) return;
  const auto resize = [this](SIZE outer) {
    const SIZE present = SizeOf(Handle());
    if (outer.cx == present.cx && outer.cy == present.cy) return;
    SetWindowPos(Handle(), nullptr, 0, 0, outer.cx, outer.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  };
  const SIZE outer = OuterSize(StyleOf(Handle()), ExtendedStyleOf(Handle()), m_dpi);
  resize(outer);
  // Before Windows 10 the frame does not scale along with the screen: what came out has the last word.
  const RECT client = ClientOf(Handle());
  resize({outer.cx + ToPixels(m_clientWidth) - client.right, outer.cy + ToPixels(m_clientHeight) - client.bottom});
}

int Form::ClientWidth() const { return ToTwips(ClientOf(Handle()).right); }
int Form::ClientHeight() const { return ToTwips(ClientOf(Handle()).bottom); }

/// In the middle of the owner or of the screen, and always on one screen.
void Form::Center() {
  const HWND owner = GetWindow(Handle(), GW_OWNER);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : Handle(), MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  RECT around = work;
  if (owner != nullptr) GetWindowRect(owner, &around);
  const SIZE outer = SizeOf(Handle());
  const LONG left =
      std::max(work.left, std::min(around.left + (around.right - around.left - outer.cx) / 2, work.right - outer.cx));
  const LONG top =
      std::max(work.top, std::min(around.top + (around.bottom - around.top - outer.cy) / 2, work.bottom - outer.cy));
  SetWindowPos(Handle(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int Form::ToPixels(int twips) const { return TwipsToPixels(twips, m_dpi); }
int Form::ToTwips(int pixels) const { return PixelsToTwips(pixels, m_dpi); }

LRESULT Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto reflected = Reflect(message, wParam, lParam)) return *reflected;
  switch (message) {
    case WM_CLOSE:
      Unload(UnloadMode::User);
      return 0;
    case WM_DESTROY:
      // A sent message may be what destroys the form; it wakes none of the loops around, a dialog's among them.
      PostMessageW(nullptr, WM_NULL, 0, 0);
      return Native(message, wParam, lParam);
    case WM_SIZE:
      OnSize(wParam);
      return 0;
    case WM_EXITMENULOOP:
      Pointer::RememberWhereItIs();
      m_handedFrom = nullptr;  // the menu may have seen the release
      return Native(message, wParam, lParam);
    case WM_MENUCHAR:
      if ((HIWORD(wParam) & MF_SYSMENU) != 0) return Native(message, wParam, lParam);
      return AnswerMenuLetter(reinterpret_cast<HMENU>(lParam), static_cast<wchar_t>(LOWORD(wParam)));
    case WM_ACTIVATE:
      OnActivate(LOWORD(wParam) != WA_INACTIVE);
      return 0;
    case WM_SETFOCUS:
      OnSetFocus();
      return 0;
    case WM_ERASEBKGND:
      return OnEraseBackground(reinterpret_cast<HDC>(wParam));
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_DPICHANGED:
      OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_QUERYENDSESSION:
      return OnQueryEndSession((static_cast<DWORD>(lParam) & ENDSESSION_CRITICAL) != 0);
    case WM_ENDSESSION:
      OnEndSession(wParam != 0);
      return 0;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      OnSystemLook(message, wParam, lParam);
      return Native(message, wParam, lParam);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: {
      // No control has the focus.
      auto keyCode = static_cast<std::int16_t>(wParam);
      m_keyIsRepeated = IsRepeated(lParam);
      PreviewKey(keyCode, ShiftState());
      return keyCode == 0 ? 0 : Native(message, wParam, lParam);
    }
    case WM_SETCURSOR:
      if (const HCURSOR pointer = SystemPointer(Screen::MousePointer())) {
        SetCursor(pointer);
        return TRUE;
      }
      return Native(message, wParam, lParam);
    default:
      return Native(message, wParam, lParam);
  }
}

LRESULT Form::OnEraseBackground(HDC context) {
  const RECT client = ClientOf(Handle());
  FillRect(context, &client, GetSysColorBrush(COLOR_BTNFACE));
  return 1;
}

void Form::OnTimer(UINT_PTR id) {
  // A tick may still wait in the queue after its timer is stopped or gone.
  const auto found = std::find_if(m_timers.begin(), m_timers.end(),
                                  [id](const Timer* timer) { return reinterpret_cast<UINT_PTR>(timer) == id; });
  if (found != m_timers.end() && (*found)->m_enabled && (*found)->Elapsed) (*found)->Elapsed();
}

LRESULT Form::OnQueryEndSession(bool critical) {
  // The question is open already, and nobody knows the answer.
  if (m_asking && !critical) return FALSE;
  // A critical end comes whatever the answer is.
  m_sessionEnds = critical || m_unloading || AsksToUnload(UnloadMode::SessionEnd);
  return m_sessionEnds ? TRUE : FALSE;
}

void Form::OnEndSession(bool ending) {
  if (!ending) m_sessionEnds = false;
  if (!ending || !IsOpen() || m_unloading) return;
  // Once this returns, the process may be gone: whatever is open, a question included, everything ends now.
  m_unloading = true;
  std::int16_t ignored = 0;
  Guarded([&] { Form_Unload(ignored); });
  m_unloading = false;
  DestroyAndTerminate();
}

void Form::CreateFont() {
  m_fontDescription = MessageFont(m_dpi);
  m_font.Reset(CreateFontIndirectW(&m_fontDescription));
  m_lineHeight = forms::LineHeight(m_font.Get());
}

void Form::RescaleControls() {
  // The controls still have the old font until each of them has taken the new one.
  OwnedFont old = std::move(m_font);
  CreateFont();
  for (Control* control : m_controls) control->Rescale();
  RescaleToolTip();
}

void Form::OnDpiChanged(unsigned dpi, const RECT& suggested) {
  m_dpi = dpi;
  SetWindowPos(Handle(), nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  // The designed client size decides: the suggestion scales the borders along, which are not of our size.
  if ((StyleOf(Handle()) & WS_THICKFRAME) == 0) ApplyClientSize();
  RescaleControls();
  ApplyIcons();
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  if (m_loaded) Form_Resize();
}

void Form::OnSystemLook(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETTINGCHANGE && wParam == SPI_SETNONCLIENTMETRICS) RescaleControls();
  // The system's controls learn of new colours and themes through their parents only.
  if (message == WM_SYSCOLORCHANGE) {
    for (const Control* control : m_controls) SendMessageW(control->Handle(), message, wParam, lParam);
    if (m_toolTip != nullptr) SendMessageW(m_toolTip, message, wParam, lParam);
  }
  if (message != WM_SETTINGCHANGE || wParam == SPI_SETHIGHCONTRAST) {
    Form_SysColorsChanged();
    RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  }
}

}  // namespace kvez::forms
