#include "tests/support/folder_dialog.h"

#include <commctrl.h>
// Stay below windows.h.
#include <shlobj.h>

#include <utility>

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

std::wstring SelectedItem(HWND tree) {
  struct Query {
    TVITEMW item;
    wchar_t text[MAX_PATH];
  };
  const auto selected = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
  if (selected == nullptr) return {};
  RemoteMemory memory(tree, sizeof(Query));
  Query query{};
  query.item.mask = TVIF_TEXT;
  query.item.hItem = selected;
  query.item.pszText = reinterpret_cast<wchar_t*>(static_cast<char*>(memory.Address()) + offsetof(Query, text));
  query.item.cchTextMax = MAX_PATH;
  memory.Write(&query, sizeof query);
  SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Address()));
  memory.Read(query.text, sizeof query.text, offsetof(Query, text));
  return query.text;
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
  const std::wstring name = path.substr(path.find_last_of(L'\\') + 1);
  RemoteMemory memory(dialog, (path.size() + 1) * sizeof(wchar_t));
  memory.Write(path.c_str(), (path.size() + 1) * sizeof(wchar_t));
  // The tree fills itself level by level; early questions stop half way.
  return WaitUntil([&] {
    SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(memory.Address()));
    return SelectedItem(GetDlgItem(dialog, kTree)) == name;
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
