#include "mainwindow/single_instance.h"

#include <windows.h>

#include <string>

#include "database/application.h"

namespace kvez {

bool ClaimSingleInstance() {
  // "Local" is the namespace of the user's session. The handle stays open until the process is gone, on purpose.
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Local\\Kvez-jedina-instance");
  const DWORD error = GetLastError();
  // An instance with other rights refuses even the look at its mutex: it is running as well.
  // cppcheck-suppress resourceLeak
  return mutex != nullptr && error != ERROR_ALREADY_EXISTS;
}

void ShowRunningInstance() {
  // Message boxes have the same caption, but another class.
  const HWND window = FindWindowW(L"KvezForm", std::wstring(kApplicationTitle).c_str());
  if (window == nullptr || !IsWindowVisible(window)) return;
  // Restored, the window itself has been active last.
  const HWND front = GetLastActivePopup(window);
  if (IsIconic(window)) {
    // It comes up active, and only then can what lies over it be brought before it. A busy instance is not waited for
    // long.
    constexpr UINT kLongest = 2000;  // milliseconds
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(window, WM_SYSCOMMAND, SC_RESTORE, 0, SMTO_ABORTIFHUNG, kLongest, &ignored);
    // A busy one does it later; one that a question has disabled may not have listened.
    if (IsIconic(window)) ShowWindowAsync(window, SW_RESTORE);
  }
  SetForegroundWindow(front);
}

}  // namespace kvez
