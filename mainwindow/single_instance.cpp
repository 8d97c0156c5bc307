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
  // Not waited for: the other instance may be busy.
  if (IsIconic(window)) ShowWindowAsync(window, SW_RESTORE);
  SetForegroundWindow(GetLastActivePopup(window));
}

}  // namespace kvez
