#pragma once

#include <windows.h>

#include <filesystem>
#include <map>
#include <string>

namespace kvez::test {

/// What a user has: each file of theirs and each value and key of the registry that an installer may touch, by name.
using UserState = std::map<std::wstring, std::wstring>;

/// All of it at this moment. Values come with their bytes, files with their length.
UserState TakeUserState();

/// What the one has more than the other, or has otherwise, a line each; empty when they are the same.
std::wstring Difference(const UserState& before, const UserState& after);

/// A value of the program's entry in the list of installed programs; empty without an entry.
std::wstring InstalledProgram(const wchar_t* value);

/// A folder of the user's, by the system's number of it (CSIDL).
std::filesystem::path UserFolder(int id);

}  // namespace kvez::test
