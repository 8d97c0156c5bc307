#include "platform/windows/system_library.h"

#include "text/error.h"

namespace kvez {

void ThrowMissing(const wchar_t* library, const char* function) {
  throw Error(L"V systému chybí knihovna „" + std::wstring(library) + L"“ nebo její funkce „" +
              std::wstring(function, function + std::strlen(function)) + L"“.");
}

void UseSystemLibrariesOnly() {
  // Not the working folder, which Windows 7 would look into.
  SetDllDirectoryW(L"");
  constexpr DWORD systemFolder = 0x00000800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
  // Windows 7 has it since an update of 2011.
  const auto setFolders =
      SystemFunction<BOOL WINAPI(DWORD)>(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories");
  if (setFolders != nullptr) setFolders(systemFolder);
  // The common controls bring the one in by its bare name with the first window, and the other with its first look. A
  // system without that function, and Wine with it, would look for them beside the program; not for what is there.
  for (const wchar_t* library : {L"uxtheme.dll", L"msimg32.dll"}) LoadSystemLibrary(library);
}

std::wstring SystemFolder() {
  std::wstring path(MAX_PATH, L'\0');
  const UINT length = GetSystemDirectoryW(path.data(), MAX_PATH);
  path.resize(length < MAX_PATH ? length : 0);
  return path;
}

HMODULE LoadSystemLibrary(const wchar_t* fileName) {
  // The full path does what LOAD_LIBRARY_SEARCH_SYSTEM32 does, and an unpatched Windows 7 knows it too.
  std::wstring path = SystemFolder();
  if (path.empty()) return nullptr;
  return LoadLibraryExW(path.append(L"\\").append(fileName).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace kvez
