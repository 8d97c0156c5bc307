#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "mainwindow/menu_explanations.h"
#include "mainwindow/status_icons.h"
#include "platform/clock.h"
#include "platform/formats.h"
#include "platform/windows/owned.h"

namespace kvez {

/// The panels of the status bar: a clock, the date, and messages with an optional icon.
enum StatusPanel : std::int32_t { kClockPanel = 0, kDatePanel = 1, kMessagePanel = 2 };

/// The status bar at the bottom of the main window. A process has one at a time.
class StatusBar {
 public:
  /// Everything given here outlives the bar.
  StatusBar(Formats& formats, Clock& clock, std::span<const MenuExplanation> menuExplanations = {});
  StatusBar(const StatusBar&) = delete;
  StatusBar& operator=(const StatusBar&) = delete;
  ~StatusBar() { Destroy(); }

  /// Puts the bar on `parent`, starts its clock and listens to the parent's menus. An earlier bar of the process goes.
  void Create(HWND parent, bool sizeGrip);

  /// `flags`: 0 sunken, 256 (SBT_NOBORDERS) without border, 512 (SBT_POPOUT) raised. An empty text also removes the
  /// icon of the message panel. Without a bar it does nothing.
  void SetText(std::wstring_view text, StatusPanel panel, std::int32_t flags);

  /// What the message panel was last told. A menu's explanation covers it for as long as the menu is open.
  const std::wstring& Message() const { return m_message; }

  /// Mode -1 shows the icon; any other mode removes the panel's icon. Without a bar it does nothing.
  void SetIcon(StatusPanel panel, std::int16_t mode, StatusIcon icon);

  /// Takes the bar off its parent. May be called at any time and more than once.
  void Destroy();

  /// The parent has been sized: the bar takes its place again.
  void ParentResized();

  /// The parent has another scaling, or the user another font for messages.
  void DpiChanged(unsigned dpi);

  /// The bar remembers the system's colours until it is told that they have changed.
  void SystemColorsChanged();

  /// Paints what is outdated at once.
  void Refresh();

  /// Null without a bar.
  HWND Handle() const { return IsWindow(m_window) ? m_window : nullptr; }

 private:
  static constexpr std::size_t kPanelCount = 3;

  struct Panel {
    StatusIcon shown = StatusIcon::None;
    OwnedIcon icon;
  };

  static void CALLBACK ClockProcedure(HWND window, UINT message, UINT_PTR timer, DWORD time);
  static LRESULT CALLBACK ParentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  void WriteClock();
  void ScaleTo(unsigned dpi);
  void SendText(std::wstring_view text, std::size_t panelAndFlags);
  void LoadIconOf(std::size_t panel);
  void OnMenuSelect(unsigned command, unsigned flags, HMENU menu);
  void ShowMessage();
  void ShowMenuExplanation(std::wstring_view text);

  // Stands for "no timer yet": the teardown takes it so.
  static constexpr UINT_PTR kNoTimer = 1;

  Formats& m_formats;
  Clock& m_clock;
  std::span<const MenuExplanation> m_menuExplanations;

  HWND m_parent = nullptr;
  HWND m_window = nullptr;
  UINT_PTR m_timer = kNoTimer;
  LONG_PTR m_previousProcedure = 0;

  unsigned m_dpi = 96;
  LOGFONTW m_messageFont{};
  OwnedFont m_font;
  std::array<Panel, kPanelCount> m_panels;

  std::wstring m_message;
  std::int32_t m_messageFlags = 0;
  bool m_menuExplanationShown = false;
};

}  // namespace kvez
