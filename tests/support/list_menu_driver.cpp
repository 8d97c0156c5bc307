#include "tests/support/list_menu_driver.h"

#include <array>
#include <cstddef>

#include "mainwindow/control_ids.h"

namespace kvez::test {
namespace {

// What the status bar says while each command is highlighted: the texts of a menu cannot be read from outside.
constexpr std::array<const wchar_t*, 4> kExplanations = {
    L"Vytiskne seznam vybraných obcí.", L"Uloží seznam vybraných obcí do textového souboru.",
    L"Vloží seznam vybraných obcí do schránky.", L"Odešle seznam vybraných obcí e-mailem."};

bool IsMenuOpen() {
  const HWND menu = FindWindowW(L"#32768", nullptr);
  return menu != nullptr && IsWindowVisible(menu);
}

}  // namespace

bool OpenListMenu(const Program& program) {
  program.Click(kLstMPSC + 1, true);
  return WaitUntil(&IsMenuOpen);
}

bool ChooseFromListMenu(const Program& program, MenuStep command) {
  if (!OpenListMenu(program)) return false;
  for (std::size_t step = 0; step < static_cast<std::size_t>(command); ++step) {
    const auto isThere = [&] { return StatusText(program.StatusBar(), 2) == kExplanations[step]; };
    // A menu that has just come may not take the first press yet.
    if (!WaitUntil([&] {
          PressKey(VK_DOWN);
          return WaitUntil(isThere, 1.0);
        })) {
      return false;
    }
  }
  PressKey(VK_RETURN);
  return WaitUntil([] { return !IsMenuOpen(); });
}

}  // namespace kvez::test
