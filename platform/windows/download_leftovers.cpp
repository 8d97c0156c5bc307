#include "platform/windows/download_leftovers.h"

#include <windows.h>
// Stays below windows.h.
#include <shlobj.h>

#include <string_view>

#include "platform/windows/owned.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

// The cache has folders with names of its own in it, one or two levels deep.
constexpr int kLevels = 3;

/// "vd1.kl_" is kept as "vd1[1].kl_", and where the server's type says nothing about it as "vd1[1]".
bool IsKept(std::wstring_view name, std::wstring_view fileName) {
  const std::wstring_view stem = fileName.substr(0, fileName.rfind(L'.'));
  if (!name.starts_with(stem)) return false;
  name.remove_prefix(stem.size());
  const std::size_t close = name.find(L']');
  if (!name.starts_with(L'[') || close == std::wstring_view::npos) return false;
  if (name.substr(1, close - 1).find_first_not_of(L"0123456789") != std::wstring_view::npos) return false;
  name.remove_prefix(close + 1);
  return name.empty() || name == fileName.substr(stem.size());
}

void RemoveIn(const std::wstring& folder, const std::wstring& fileName, int levels) {
  WIN32_FIND_DATAW entry{};
  const OwnedFileSearch search(FindFirstFileW((folder + L"\\*").c_str(), &entry));
  if (!search) return;
  do {
    const std::wstring path = folder + L"\\" + entry.cFileName;
    constexpr DWORD kKinds = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const DWORD kind = entry.dwFileAttributes & kKinds;
    if (kind == 0 && IsKept(entry.cFileName, fileName)) DeleteFileW(path.c_str());
    const bool isInner = kind == FILE_ATTRIBUTE_DIRECTORY && entry.cFileName[0] != L'.';
    if (isInner && levels > 1) RemoveIn(path, fileName, levels - 1);
  } while (FindNextFileW(search.Get(), &entry));
}

}  // namespace

void RemoveDownloadLeftovers(const std::wstring& fileName) {
  const auto folderPath =
      SystemFunction<decltype(SHGetFolderPathW)>(LoadSystemLibrary(L"shell32.dll"), "SHGetFolderPathW");
  wchar_t cache[MAX_PATH] = {};
  if (folderPath == nullptr || folderPath(nullptr, CSIDL_INTERNET_CACHE, nullptr, 0, cache) != S_OK) return;
  RemoveIn(cache, fileName, kLevels);
}

}  // namespace kvez
