#pragma once

#include <filesystem>
#include <string>

namespace kvez {

/// A path from its text and back, in UTF-8 where the system's paths are bytes, whatever the process's locale is. The
/// library's own conversion goes by the locale and fails on Czech names in the locale "C".
std::filesystem::path PathFromText(const std::wstring& text);
std::wstring TextFromPath(const std::filesystem::path& path);

/// The core joins folder and file name with a backslash; where that is no separator, the last one becomes one.
std::filesystem::path PortablePath(std::wstring path);

}  // namespace kvez
