#pragma once

#include <filesystem>
#include <string>

namespace kvez {

/// The core joins folder and file name with a backslash; where that is no separator, the last one becomes one.
std::filesystem::path PortablePath(std::wstring path);

}  // namespace kvez
