#include "tests/support/folder_dialog.h"

#include <commctrl.h>
// Stay below windows.h.
#include <shlobj.h>

#include <filesystem>
#include <utility>
#include <vector>

#include "tests/support/program_driver.h"

namespace kvez::test {
namespace {

constexpr int kTree = 0x3741;

/// A piece of another process's memory, gone with the object.
class RemoteMemory {
 public:
  RemoteMemory(HWND window, SIZE_T size) {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    m_process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId);
    m_address = VirtualAllocEx(m_process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  ~RemoteMemory() {
    VirtualFreeEx(m_process, m_address, 0, MEM_RELEASE);
    CloseHandle(m_process);
  }

  void* Address() const { return m_address; }
  void Write(const void* bytes, SIZE_T size) { WriteProcessMemory(m_process, m_address, bytes, size, nullptr); }
  void Read(void* bytes, SIZE_T size, SIZE_T offset) const {
    ReadProcessMemory(m_process, static_cast<char*>(m_address) + offset, bytes, size, nullptr);
  }

 private:
  HANDLE m_process = nullptr;
  void* m_address = nullptr;
};

/// An item of a tree: its handle, as the messages take it; 0 for none.
using Item = LPARAM;

Item Next(HWND tree, WPARAM which, Item item = 0) { return SendMessageW(tree, TVM_GETNEXTITEM, which, item); }

std::wstring ItemText(HWND tree, Item item) {
  struct Query {
    TVITEMW item;
    wchar_t text[MAX_PATH];
  };
  RemoteMemory memory(tree, sizeof(Query));
  Query query{};
  query.item.mask = TVIF_TEXT;
  query.item.hItem = reinterpret_cast<HTREEITEM>(item);
  query.item.pszText = reinterpret_cast<wchar_t*>(static_cast<char*>(memory.Address()) + offsetof(Query, text));
  query.item.cchTextMax = MAX_PATH;
  memory.Write(&query, sizeof query);
  SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Address()));
  memory.Read(query.text, sizeof query.text, offsetof(Query, text));
  return query.text;
}

/// The item of that name in the branch, which is opened for it; 0 while the tree does not have it.
Item Child(HWND tree, Item branch, const std::wstring& name) {
  SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, branch);
  Item child = Next(tree, TVGN_CHILD, branch);
  while (child != 0 && ItemText(tree, child) != name) child = Next(tree, TVGN_NEXT, child);
  return child;
}

BOOL CALLBACK LookForDialog(HWND window, LPARAM parameter) {
  auto& wanted = *reinterpret_cast<std::pair<DWORD, HWND>*>(parameter);
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  if (processId != wanted.first || !IsWindowVisible(window) || GetDlgItem(window, kTree) == nullptr) return TRUE;
  wanted.second = window;
  return FALSE;
}

}  // namespace

HWND WaitFolderDialog(DWORD processId) {
  std::pair<DWORD, HWND> wanted{processId, nullptr};
  WaitUntil([&] {
    EnumWindows(&LookForDialog, reinterpret_cast<LPARAM>(&wanted));
    return wanted.second != nullptr;
  });
  return wanted.second;
}

std::wstring FolderPrompt(HWND dialog) {
  for (HWND label = nullptr; (label = FindWindowExW(dialog, label, L"Static", nullptr)) != nullptr;) {
    const std::wstring text = WindowText(label);
    if (!text.empty()) return text;
  }
  return {};
}

bool SelectFolder(HWND dialog, const std::wstring& path) {
  const HWND tree = GetDlgItem(dialog, kTree);
  std::vector<std::wstring> names;
  for (const auto& part : std::filesystem::path(path).relative_path()) names.push_back(part.wstring());
  const std::wstring drive = std::filesystem::path(path).root_path().wstring();
  RemoteMemory memory(dialog, (drive.size() + 1) * sizeof(wchar_t));
  memory.Write(drive.c_str(), (drive.size() + 1) * sizeof(wchar_t));
  // Only the drive is asked for by its path. Wine no longer finds a folder so when
  // it has changed since the tree read it, as the ones of tests do.
  return WaitUntil([&] {
    SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(memory.Address()));
    Item item = Next(tree, TVGN_CARET);
    for (const std::wstring& name : names) item = item == 0 ? 0 : Child(tree, item, name);
    if (item == 0) return false;
    SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, item);
    return Next(tree, TVGN_CARET) == item;
  });
}

bool CloseFolderDialog(HWND dialog, int button) {
  return WaitUntil([&] {
    if (!IsWindow(dialog)) return true;
    PostMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
    return HoldsWithin(1.0, [&] { return !IsWindow(dialog); });
  });
}

}  // namespace kvez::test
