#pragma once

#include "tests/support/program_driver.h"

namespace kvez::test {

/// The commands of the result list's menu.
enum class MenuCommand { Print, Export, Copy, Mail };

/// The menu that is open now, of whatever program; null for none.
HWND OpenMenu();

/// Opens the menu of the result list by the right button; false when it does not come.
bool OpenListMenu(const Program& program);

/// Opens the menu, points at a command and clicks; false when it cannot be reached.
bool ChooseFromListMenu(const Program& program, MenuCommand command);

}  // namespace kvez::test
