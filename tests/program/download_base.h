#pragma once

#include <filesystem>
#include <string>

namespace kvez::test {

/// Puts another download address into a copy of the program. The real program is so tested as it is shipped, without a
/// switch that nobody else needs. False when the file does not hold the built-in address exactly once, or when the new
/// one is longer.
bool ReplaceDownloadBase(const std::filesystem::path& exe, const std::wstring& base);

/// The same for any text of the program; `wanted` may be shorter.
bool ReplaceProgramText(const std::filesystem::path& exe, std::wstring builtIn, std::wstring wanted);

/// The content of a file; empty when there is none.
std::string ReadBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, const std::string& bytes);

}  // namespace kvez::test
