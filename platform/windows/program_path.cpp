#include "platform/windows/program_path.h"

#include <windows.h>

namespace kvez {

std::wstring ProgramPath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

std::wstring FolderOf(std::wstring_view path) {
  const std::size_t end = path.find_last_of(L'\\');
  // Without its separator the root of a drive would be the drive's working folder.
  const bool isRoot = end == 2 && path[1] == L':';
  return std::wstring(path.substr(0, isRoot ? end + 1 : end));
}

std::wstring ProgramFolder() { return FolderOf(ProgramPath()); }

std::wstring ProgramName() {
  const std::wstring path = ProgramPath();
  const std::wstring name = path.substr(path.find_last_of(L'\\') + 1);
  return name.substr(0, name.find_last_of(L'.'));
}

}  // namespace kvez
