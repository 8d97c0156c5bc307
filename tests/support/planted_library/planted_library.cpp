// A library that nobody must load: it leaves a file beside itself when somebody does. Its ending tells whether the
// program has already begun by then, or the system has loaded it on its own while it made the process.

#include <windows.h>

#include <string>

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*) {
  if (reason != DLL_PROCESS_ATTACH) return TRUE;
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(library, path.data(), MAX_PATH));
  // The program's mark of its one instance, which it makes among the first things it does.
  const HANDLE mark = OpenMutexW(SYNCHRONIZE, FALSE, L"Local\\Kvez-jedina-instance");
  path += mark != nullptr ? L".loaded" : L".loaded-before";
  CloseHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  return TRUE;
}
