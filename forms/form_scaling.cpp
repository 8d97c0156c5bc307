// How large a form and its font are: the scaling of the screen, the user's font for messages, and the room on the
// screen.

#include <algorithm>
#include <string_view>
#include <utility>

#include "forms/client_area.h"
#include "forms/dpi.h"
#include "forms/form.h"
#include "forms/text_ruler.h"
#include "forms/twips.h"

namespace kvez::forms {
namespace {

DWORD StyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)); }
DWORD ExtendedStyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)); }

SIZE SizeOf(const RECT& rectangle) { return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top}; }

SIZE OuterSizeOf(HWND window) {
  RECT outer{};
  GetWindowRect(window, &outer);
  return SizeOf(outer);
}

/// What windows may cover of the screen that `window` is on; of the first one for null.
RECT WorkArea(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  const DWORD otherwise = window != nullptr ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY;
  GetMonitorInfoW(MonitorFromWindow(window, otherwise), &monitor);
  return monitor.rcWork;
}

/// The change of the text size says so in words only.
bool IsOfMessageFont(WPARAM wParam, LPARAM lParam) {
  const auto* const what = reinterpret_cast<const wchar_t*>(lParam);
  return wParam == SPI_SETNONCLIENTMETRICS || (what != nullptr && std::wstring_view(what) == L"WindowMetrics");
}

}  // namespace

/// The window whose screen the form is to be on.
HWND Form::ScreenMate() const {
  const HWND owner = GetWindow(Handle(), GW_OWNER);
  return owner != nullptr ? owner : Handle();
}

/// As large as the user's font wants the form, as long as its window has room on the screen of `screenMate`.
unsigned Form::FittingScaling(DWORD style, DWORD extendedStyle, HWND screenMate) const {
  constexpr LONG twipsPerInch = 1440;
  const SIZE frame = SizeOf(OuterRectangle({}, style, extendedStyle, m_dpi));
  const SIZE work = SizeOf(WorkArea(screenMate));
  const auto limit = [](LONG room, LONG twips) {
    return static_cast<unsigned>(std::max(room, LONG{1}) * twipsPerInch / std::max(twips, LONG{1}));
  };
  return std::max(1U, std::min({ScalingForMessageFont(m_dpi), limit(work.cx - frame.cx, m_clientWidth),
                                limit(work.cy - frame.cy, m_clientHeight)}));
}

SIZE Form::OuterSize(DWORD style, DWORD extendedStyle) const {
  return SizeOf(OuterRectangle({0, 0, ToPixels(m_clientWidth), ToPixels(m_clientHeight)}, style, extendedStyle, m_dpi));
}

void Form::ApplyClientSize() {
  if (!IsOpen()) return;
  const auto resize = [this](SIZE outer) {
    const SIZE present = OuterSizeOf(Handle());
    if (outer.cx == present.cx && outer.cy == present.cy) return;
    SetWindowPos(Handle(), nullptr, 0, 0, outer.cx, outer.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  };
  const SIZE outer = OuterSize(StyleOf(Handle()), ExtendedStyleOf(Handle()));
  resize(outer);
  // Before Windows 10 the frame does not scale along with the screen: what came out has the last word.
  const RECT client = ClientOf(Handle());
  resize({outer.cx + ToPixels(m_clientWidth) - client.right, outer.cy + ToPixels(m_clientHeight) - client.bottom});
}

/// Puts the window to a place as far as that lies on one screen.
void Form::MoveOnScreen(LONG left, LONG top, const RECT& work) {
  const SIZE outer = OuterSizeOf(Handle());
  SetWindowPos(Handle(), nullptr, std::max(work.left, std::min(left, work.right - outer.cx)),
               std::max(work.top, std::min(top, work.bottom - outer.cy)), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// In the middle of the owner or of the screen, and always on one screen.
void Form::Center() {
  const HWND owner = GetWindow(Handle(), GW_OWNER);
  const RECT work = WorkArea(ScreenMate());
  RECT around = work;
  if (owner != nullptr) GetWindowRect(owner, &around);
  const SIZE outer = OuterSizeOf(Handle());
  MoveOnScreen(around.left + (around.right - around.left - outer.cx) / 2,
               around.top + (around.bottom - around.top - outer.cy) / 2, work);
}

int Form::ClientWidth() const { return ToTwips(ClientOf(Handle()).right); }

int Form::ClientHeight() const { return ToTwips(ClientOf(Handle()).bottom); }

int Form::ToPixels(int twips) const { return TwipsToPixels(twips, m_scaling); }
int Form::ToTwips(int pixels) const { return PixelsToTwips(pixels, m_scaling); }

void Form::CreateFont() {
  m_fontDescription = MessageFont(m_scaling);
  m_font.Reset(CreateFontIndirectW(&m_fontDescription));
  m_lineHeight = forms::LineHeight(m_font.Get());
  if (m_lineHeight <= ToPixels(kLineTwips)) return;
  // A face that is higher than others of its size.
  FitLine(m_fontDescription, m_lineHeight, ToPixels(kLineTwips));
  m_font.Reset(CreateFontIndirectW(&m_fontDescription));
  m_lineHeight = forms::LineHeight(m_font.Get());
}

void Form::RescaleControls() {
  // The controls still have the old font until each of them has taken the new one.
  OwnedFont old = std::move(m_font);
  CreateFont();
  m_toolTip.Rescale();
  for (Control* control : m_controls) control->Rescale();
}

/// After whatever the size of the form depends on has changed. A form that the user drags stays where it is.
void Form::ScaleAnew(bool dragged) {
  // An icon has no client area. It is made up for when the window is back.
  m_scalingWaits = IsIconic(Handle()) != FALSE;
  if (m_scalingWaits) return;
  m_scaling = FittingScaling(StyleOf(Handle()), ExtendedStyleOf(Handle()), Handle());
  // The user has sized the other ones.
  if ((StyleOf(Handle()) & WS_THICKFRAME) == 0) {
    ApplyClientSize();
    RECT outer{};
    GetWindowRect(Handle(), &outer);
    if (!dragged) MoveOnScreen(outer.left, outer.top, WorkArea(Handle()));
  }
  RescaleControls();
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  if (m_loaded) Form_Resize();
}

void Form::OnDpiChanged(unsigned dpi, const RECT& suggested) {
  m_dpi = dpi;
  // The designed client size decides, which comes after: the suggestion scales the borders along, which are not of our
  // size.
  SetWindowPos(Handle(), nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  ScaleAnew(true);
  ApplyIcons();
}

void Form::OnDisplayChange() {
  if (FittingScaling(StyleOf(Handle()), ExtendedStyleOf(Handle()), Handle()) != m_scaling) ScaleAnew();
}

void Form::OnSystemLook(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETTINGCHANGE) {
    if (IsOfMessageFont(wParam, lParam)) {
      ScaleAnew();
    } else if (wParam == SPI_SETWORKAREA) {
      OnDisplayChange();
    }
  }
  // The system's controls learn of new colours and themes through their parents only.
  if (message == WM_SYSCOLORCHANGE) {
    for (const Control* control : m_controls) SendMessageW(control->Handle(), message, wParam, lParam);
    m_toolTip.SystemColorsChanged();
  }
  if (message != WM_SETTINGCHANGE || wParam == SPI_SETHIGHCONTRAST) {
    Form_SysColorsChanged();
    RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  }
}

}  // namespace kvez::forms
