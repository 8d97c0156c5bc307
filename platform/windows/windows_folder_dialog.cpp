#include "platform/windows/windows_folder_dialog.h"

#include <windows.h>
// Stay below windows.h.
#include <shlobj.h>
#include <shlwapi.h>

#include "platform/windows/held_keys.h"
#include "platform/windows/modal_scope.h"
#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

using OwnedItemList = Owned<PIDLIST_ABSOLUTE, [](PIDLIST_ABSOLUTE items) { CoTaskMemFree(items); }>;

// Folders of the file system only (1), and no machine of the network below its domain (2).
constexpr UINT kFlags = 3;

}  // namespace

std::optional<std::wstring> WindowsFolderDialog::Browse(std::wstring_view prompt) {
  std::string title = ToSystemCodePage(prompt);
  BROWSEINFOA question{};
  question.hwndOwner = GetForegroundWindow();
  // Joining with an empty text answers with a pointer to the prompt.
  question.lpszTitle = lstrcatA(title.data(), "");
  question.ulFlags = kFlags;
  auto& browse = RequiredFunction<decltype(SHBrowseForFolderA)>(L"shell32.dll", "SHBrowseForFolderA");
  auto& getPath = RequiredFunction<decltype(SHGetPathFromIDListW)>(L"shell32.dll", "SHGetPathFromIDListW");
  const HeldKeysStayOutside heldKeysStayOutside;
  const ModalScope modal(question.hwndOwner);
  const OwnedItemList items(browse(&question));
  if (!items) return std::nullopt;
  std::wstring path(kPathBufferLength, L'\0');
  getPath(items.Get(), path.data());
  return path;
}

bool WindowsFolderDialog::IsDirectory(const std::wstring& path) {
  // A path that the code page cannot hold is still a good path.
  const auto bytes = ToSystemCodePageExactly(path);
  if (bytes) {
    auto& isDirectory = RequiredFunction<decltype(PathIsDirectoryA)>(L"shlwapi.dll", "PathIsDirectoryA");
    return isDirectory(bytes->c_str()) != FALSE;
  }
  return RequiredFunction<decltype(PathIsDirectoryW)>(L"shlwapi.dll", "PathIsDirectoryW")(path.c_str()) != FALSE;
}

}  // namespace kvez
