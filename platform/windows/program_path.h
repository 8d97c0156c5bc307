#pragma once

#include <string>

namespace kvez {

/// The full path of the program's executable.
std::wstring ProgramPath();

/// Its folder, without a trailing separator, and its name without ".exe".
std::wstring ProgramFolder();
std::wstring ProgramName();

}  // namespace kvez
