#pragma once

#include <span>
#include <string_view>

namespace kvez {

/// What the status bar says about a menu entry while it is highlighted.
struct MenuExplanation {
  unsigned command;
  std::wstring_view text;
};

/// The entries of the result list's menu and of the main window's system menu.
std::span<const MenuExplanation> MainWindowMenuExplanations();

}  // namespace kvez
