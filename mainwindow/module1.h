#pragma once

#include <exception>
#include <string>

namespace kvez {

/// The sentence for the user of an error of the rooms without windows; empty for any other error.
std::wstring TextOfCoreError(const std::exception_ptr& error);

/// The start of the program: refuses a second instance, creates the one database object and the one main window, and
/// runs until that window is gone. Returns the exit status of the process.
int Main();

}  // namespace kvez
