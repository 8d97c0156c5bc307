#pragma once

#include <windows.h>

#include <string>

namespace kvez {

/// The system's short form of a path, which 8-bit programs can read; empty where the file or the form is missing.
inline std::wstring ShortPath(const std::wstring& path) {
  std::wstring shortPath(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
  shortPath.resize(GetShortPathNameW(path.c_str(), shortPath.data(), static_cast<DWORD>(shortPath.size())));
  return shortPath;
}

}  // namespace kvez
