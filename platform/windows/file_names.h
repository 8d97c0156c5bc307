#pragma once

#include <windows.h>

#include <string>

namespace kvez {

/// Where a file is written until it is whole. One name for each file: what a violent end leaves there goes with the
/// next one.
inline std::wstring NameAside(const std::wstring& path) { return path + L".kvez"; }

/// Gives a file another name, on the disk when it returns, in place of the file there. False when the system refuses;
/// then both are as they were.
inline bool Rename(const std::wstring& from, const std::wstring& to) {
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

/// Whether a call failed because there is nothing of that name.
inline bool IsMissing(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

/// Removes a file. A missing one counts as removed.
inline bool Remove(const std::wstring& path) { return DeleteFileW(path.c_str()) || IsMissing(GetLastError()); }

}  // namespace kvez
