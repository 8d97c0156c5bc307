#pragma once

#include <filesystem>
#include <string>

namespace kvez::test {

/// Makes a fresh folder with what the program is made of: kvez.exe and the three data files of `source`.
void CopyProgram(const std::filesystem::path& source, const std::filesystem::path& folder);

/// The branch of the settings store that the program uses: it empties it, writes a value as the settings window does,
/// and reads one, "(none)" when nothing is stored.
void ClearSettings();
void SaveSetting(const std::wstring& key, const std::wstring& value);
std::wstring ReadSetting(const std::wstring& key);

}  // namespace kvez::test
