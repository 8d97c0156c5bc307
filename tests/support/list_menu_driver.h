#pragma once

#include "tests/support/program_driver.h"

namespace kvez::test {

/// The commands of the result list's menu, by the number of steps that lead down to them.
enum class MenuStep { Print = 1, Export = 2, Copy = 3, Mail = 4 };

/// Opens the menu of the result list by the right button; false when it does not come.
bool OpenListMenu(const Program& program);

/// Opens the menu, goes down to a command by the keyboard and chooses it; false when it cannot be reached.
bool ChooseFromListMenu(const Program& program, MenuStep command);

}  // namespace kvez::test
