#pragma once

#include <windows.h>

#include <cstring>

namespace kvez {

/// Loads a library of the system's own folder, and only of that one: a file of the same name beside the program or in
/// the working folder is never taken. Null when the system has none. The library stays loaded as long as the process:
/// the windows and threads that such libraries start must not lose their code.
HMODULE LoadSystemLibrary(const wchar_t* fileName);

/// A function of a library by its name, or null. `library` may be null.
template <typename Function>
Function* SystemFunction(HMODULE library, const char* name) {
  if (library == nullptr) return nullptr;
  const FARPROC address = GetProcAddress(library, name);
  Function* function = nullptr;
  static_assert(sizeof function == sizeof address);
  std::memcpy(&function, &address, sizeof function);
  return function;
}

}  // namespace kvez
