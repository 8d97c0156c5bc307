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

// Where the rows are in the menu's height, about: it has six, and two separators of nearly half a row.
constexpr std::array<double, 4> kPlaces = {0.5 / 6.8, 1.5 / 6.8, 2.9 / 6.8, 3.9 / 6.8};

}  // namespace

HWND OpenMenu() {
  const HWND menu = FindWindowW(L"#32768", nullptr);
  return menu != nullptr && IsWindowVisible(menu) ? menu : nullptr;
}

bool OpenListMenu(const Program& program) {
  program.Click(kLstMPSC + 1, true);
  return WaitUntil([] { return OpenMenu() != nullptr; });
}

bool ChooseFromListMenu(const Program& program, MenuCommand command) {
  if (!OpenListMenu(program)) return false;
  RECT menu{};
  GetWindowRect(OpenMenu(), &menu);
  // By the pointer and not by the keyboard: the menu opens under the pointer, and the last movement may come late and
  // take the mark away from the row that a key has chosen.
  const auto clickAt = [&](int y) {
    const POINT place{(menu.left + menu.right) / 2, y};
    MovePointer(place);
    const wchar_t* const wanted = kExplanations[static_cast<std::size_t>(command)];
    if (!HoldsWithin(0.3, [&] { return StatusText(program.StatusBar(), 2) == wanted; })) return false;
    ClickAt(place);
    return WaitUntil([] { return OpenMenu() == nullptr; });
  };
  // Where the row should be saves looking at all before it.
  if (clickAt(menu.top + static_cast<int>((menu.bottom - menu.top) * kPlaces[static_cast<std::size_t>(command)]))) {
    return true;
  }
  constexpr int kStep = 8;  // less than the height of a row
  for (int y = menu.top + kStep / 2; y < menu.bottom && OpenMenu() != nullptr; y += kStep) {
    if (clickAt(y)) return true;
  }
  return false;
}

}  // namespace kvez::test
