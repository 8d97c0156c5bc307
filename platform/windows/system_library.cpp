#include "platform/windows/system_library.h"

#include <string>

namespace kvez {

HMODULE LoadSystemLibrary(const wchar_t* fileName) {
  // The full path does what LOAD_LIBRARY_SEARCH_SYSTEM32 does, and an unpatched Windows 7 knows it too.
  std::wstring path(MAX_PATH, L'\0');
  const UINT length = GetSystemDirectoryW(path.data(), MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return nullptr;
  path.resize(length);
  return LoadLibraryExW(path.append(L"\\").append(fileName).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace kvez
