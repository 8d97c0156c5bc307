#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// The full path of the program's executable.
std::wstring ProgramPath();

/// The folder of a full path. Only the root of a drive ends in a separator.
std::wstring FolderOf(std::wstring_view path);

/// The executable's folder, and its name without ".exe".
std::wstring ProgramFolder();
std::wstring ProgramName();

}  // namespace kvez
