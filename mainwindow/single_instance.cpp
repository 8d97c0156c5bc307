#include "mainwindow/single_instance.h"

#include <windows.h>

namespace kvez {

bool ClaimSingleInstance() {
  // "Local" is the namespace of the user's session. The handle stays open until the process is gone, on purpose.
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Local\\Kvez-jedina-instance");
  const DWORD error = GetLastError();
  // An instance with other rights refuses even the look at its mutex: it is running as well.
  // cppcheck-suppress resourceLeak
  return mutex != nullptr && error != ERROR_ALREADY_EXISTS;
}

}  // namespace kvez
