#pragma once

#include <string>

#include "tests/support/program_driver.h"

namespace kvez::test {

/// Brings a freshly started program to what is worth a picture:
///
///   start      ready, nothing searched yet
///   loading    stopped in the middle of its loading, the message panel shown
///   psc, nazev, okres   each mode with a result and a selected row
///   chybi      without any data file (the folder holds kvez.exe alone)
///   oaplikaci, nastaveni   the About panel, the settings window
///   nabidka    the menu of the result list
///   slozka     the folder dialog of the export
///   tisk       a list has come out of the tests' print queue
///
/// False when it does not get there.
bool ReachStage(Program& program, const std::wstring& stage);

}  // namespace kvez::test
