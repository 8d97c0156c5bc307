#include "mainwindow/statusbar.h"

#include <commctrl.h>

#include "forms/dpi.h"
#include "mainwindow/clock_texts.h"
#include "mainwindow/statusbar_font.h"
#include "platform/windows/system_code_page.h"
#include "text/assertion.h"

namespace kvez {
namespace {

// A timer without a window and a window procedure carry no data of their own, so the one bar of the process is found
// here.
StatusBar* theBar = nullptr;

void InitialiseBarClasses() {
  INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
  static_assert(sizeof classes == 8 && ICC_BAR_CLASSES == 4);
  if (!InitCommonControlsEx(&classes)) InitCommonControls();
}

bool IsSameFont(const LOGFONTW& first, const LOGFONTW& second) {
  return first.lfHeight == second.lfHeight && first.lfWeight == second.lfWeight &&
         lstrcmpiW(first.lfFaceName, second.lfFaceName) == 0;
}

}  // namespace

StatusBar::StatusBar(Formats& formats, Clock& clock, std::span<const MenuExplanation> menuExplanations)
    : m_formats(formats), m_clock(clock), m_menuExplanations(menuExplanations) {}

void StatusBar::Create(HWND parent, bool sizeGrip) {
  if (theBar != nullptr) theBar->Destroy();
  theBar = this;
  m_parent = parent;

  InitialiseBarClasses();
  DWORD style = WS_CHILD | WS_VISIBLE | CCS_BOTTOM;
  if (sizeGrip) style |= SBARS_SIZEGRIP;
  // a-call: the class is the system's, and there is no title
  m_window = CreateWindowExA(0, "msctls_statusbar32", nullptr, style, 0, 0, 0, 0, parent, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
  ScaleTo(forms::WindowDpi(parent));
  WriteClock();
  const UINT_PTR timer = SetTimer(nullptr, 0, 1000, &StatusBar::ClockProcedure);
  if (timer != 0) m_timer = timer;
  const auto procedure = reinterpret_cast<LONG_PTR>(&StatusBar::ParentProcedure);
  m_previousProcedure = SetWindowLongPtrA(parent, GWLP_WNDPROC, procedure);  // a-call: no text
}

void StatusBar::Destroy() {
  // a-call: no text
  if (m_previousProcedure != 0) SetWindowLongPtrA(m_parent, GWLP_WNDPROC, m_previousProcedure);
  if (m_timer != kNoTimer) KillTimer(nullptr, m_timer);
  // The bar goes by itself with its parent; then only the icons are left.
  if (IsWindow(m_window)) DestroyWindow(m_window);
  m_previousProcedure = 0;
  m_timer = kNoTimer;
  m_window = nullptr;
  m_parent = nullptr;
  m_panels = {};
  m_font.Reset();
  m_message.clear();
  m_messageFlags = 0;
  m_menuExplanationShown = false;
  if (theBar == this) theBar = nullptr;
}

void CALLBACK StatusBar::ClockProcedure(HWND, UINT, UINT_PTR, DWORD) {
  try {
    if (theBar != nullptr) theBar->WriteClock();
  } catch (...) {
    // The next second tries again; a message every second would leave the user no way out.
  }
}

LRESULT CALLBACK StatusBar::ParentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (theBar == nullptr) return DefWindowProcA(window, message, wParam, lParam);  // a-call: the only text is the title
  // Read before anything is handled: the message may be the one that ends the bar.
  const auto previous = reinterpret_cast<WNDPROC>(theBar->m_previousProcedure);
  if (message == WM_MENUSELECT) {
    try {
      theBar->OnMenuSelect(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HMENU>(lParam));
    } catch (...) {
      // A missing explanation is no reason to disturb the menu.
    }
  }
  return CallWindowProcA(previous, window, message, wParam, lParam);  // a-call: the only text is the title
}

void StatusBar::WriteClock() {
  const DateTime now = m_clock.Now();
  SetText(TimePanelText(m_formats.Date(now, L"H:mm")), kClockPanel, 0);
  SetText(DatePanelText(m_formats.Date(now, L"dddd, d.m.yyyy")), kDatePanel, 0);
}

void StatusBar::SetText(std::wstring_view text, StatusPanel panel, std::int32_t flags) {
  Assert((flags & 0xFF) == 0, "the flags leave the panel's number alone");
  if (!IsWindow(m_window)) return;
  const bool isMessage = panel == kMessagePanel;
  if (isMessage) {
    m_message = text;
    m_messageFlags = flags;
  }
  // The message panel is the only one with an icon, so its icon is meant whichever panel is emptied. It goes first: the
  // bar paints a new text at once, and would paint the panel again for the icon.
  if (text.empty()) SetIcon(kMessagePanel, 0, StatusIcon::None);
  if (!isMessage || !m_menuExplanationShown) SendText(text, static_cast<std::size_t>(panel | flags));
}

void StatusBar::SetIcon(StatusPanel panel, std::int16_t mode, StatusIcon icon) {
  if (!IsWindow(m_window)) return;
  const StatusIcon wanted = mode == -1 ? icon : StatusIcon::None;
  const auto index = static_cast<std::size_t>(panel);
  // Loading an icon takes longer than all else that a hint does, and many hints in a row have the same one.
  if (m_panels[index].shown == wanted && (wanted == StatusIcon::None || m_panels[index].icon)) return;
  m_panels[index].shown = wanted;
  LoadIconOf(index);
}

void StatusBar::SendText(std::wstring_view text, std::size_t panelAndFlags) {
  CallWithText(
      text,
      [&](const std::string& bytes) {
        return SendMessageA(m_window, SB_SETTEXTA, panelAndFlags, reinterpret_cast<LPARAM>(bytes.c_str()));
      },
      [&](const std::wstring& whole) {
        return SendMessageW(m_window, SB_SETTEXTW, panelAndFlags, reinterpret_cast<LPARAM>(whole.c_str()));
      });
}

void StatusBar::LoadIconOf(std::size_t index) {
  Panel& panel = m_panels[index];
  OwnedIcon icon;
  if (panel.shown != StatusIcon::None) {
    const int size = MulDiv(16, static_cast<int>(m_dpi), 96);
    // The loaded icon belongs to the system. The copy is made anew from the resource, which has a drawing for each
    // size, instead of by shrinking the loaded one.
    const HICON loaded = LoadIconW(GetModuleHandleW(nullptr), panel.shown.Name());
    icon.Reset(static_cast<HICON>(CopyImage(loaded, IMAGE_ICON, size, size, LR_COPYFROMRESOURCE)));
  }
  if (index != kMessagePanel || !m_menuExplanationShown) {
    SendMessageW(m_window, SB_SETICON, index, reinterpret_cast<LPARAM>(icon.Get()));
  }
  // The bar draws the icon without owning it; the previous one goes only now that the bar has let go of it.
  panel.icon = std::move(icon);
}

void StatusBar::ParentResized() {
  if (IsWindow(m_window)) SendMessageW(m_window, WM_SIZE, 0, 0);
}

void StatusBar::SystemColorsChanged() { SendMessageW(Handle(), WM_SYSCOLORCHANGE, 0, 0); }

void StatusBar::Refresh() { UpdateWindow(Handle()); }

void StatusBar::DpiChanged(unsigned dpi) {
  if (!IsWindow(m_window) || (dpi == m_dpi && IsSameFont(m_messageFont, forms::MessageFont(dpi)))) return;
  ScaleTo(dpi);
  for (std::size_t panel = 0; panel < kPanelCount; ++panel) LoadIconOf(panel);
  ParentResized();
}

void StatusBar::ScaleTo(unsigned dpi) {
  m_dpi = dpi;
  m_messageFont = forms::MessageFont(dpi);
  const LongestClockTexts texts(m_formats);
  OwnedFont font = StatusBarFont(dpi, texts);
  SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
  m_font = std::move(font);
  const auto [time, date] = ClockPanelEdges(dpi, m_font.Get(), texts);
  const std::array<int, kPanelCount> rightEdges = {time, date, -1};
  SendMessageW(m_window, SB_SETPARTS, rightEdges.size(), reinterpret_cast<LPARAM>(rightEdges.data()));
}

}  // namespace kvez
