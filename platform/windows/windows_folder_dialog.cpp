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

template <typename Function>
Function& Shell32(const char* name) {
  return RequiredFunction<Function>(L"shell32.dll", name);
}

template <typename Question, typename Browse, typename Title>
PIDLIST_ABSOLUTE Ask(Browse& browse, Title title) {
  Question question{};
  question.hwndOwner = GetForegroundWindow();
  question.lpszTitle = title;
  question.ulFlags = kFlags;
  const HeldKeysStayOutside heldKeysStayOutside;
  const ModalScope modal(question.hwndOwner);
  return browse(&question);
}

PIDLIST_ABSOLUTE Ask(std::wstring_view prompt) {
  // Joining with an empty text answers with a pointer to the prompt.
  return CallWithText(
      prompt,
      [](std::string& bytes) {
        auto& browse = Shell32<decltype(SHBrowseForFolderA)>("SHBrowseForFolderA");
        return Ask<BROWSEINFOA>(browse, lstrcatA(bytes.data(), ""));
      },
      [](std::wstring& whole) {
        auto& browse = Shell32<decltype(SHBrowseForFolderW)>("SHBrowseForFolderW");
        return Ask<BROWSEINFOW>(browse, lstrcatW(whole.data(), L""));
      });
}

}  // namespace

std::optional<std::wstring> WindowsFolderDialog::Browse(std::wstring_view prompt) {
  auto& getPath = Shell32<decltype(SHGetPathFromIDListW)>("SHGetPathFromIDListW");
  const OwnedItemList items(Ask(prompt));
  if (!items) return std::nullopt;
  std::wstring path(kPathBufferLength, L'\0');
  if (!getPath(items.Get(), path.data())) path.assign(kPathBufferLength, L'\0');
  return path;
}

bool WindowsFolderDialog::IsDirectory(const std::wstring& path) {
  return CallWithPath(
      path,
      [](const std::string& bytes) {
        auto& isDirectory = RequiredFunction<decltype(PathIsDirectoryA)>(L"shlwapi.dll", "PathIsDirectoryA");
        return isDirectory(bytes.c_str()) != FALSE;
      },
      [](const std::wstring& whole) {
        auto& isDirectory = RequiredFunction<decltype(PathIsDirectoryW)>(L"shlwapi.dll", "PathIsDirectoryW");
        return isDirectory(whole.c_str()) != FALSE;
      });
}

}  // namespace kvez
