#pragma once

#include <windows.h>

#include <cstring>
#include <string>

namespace kvez {

/// From now on libraries that are named without a folder are looked for in the system's own folder only, by the
/// system's libraries too, as far as the system can do that. To be called before anything else.
void UseSystemLibrariesOnly();

/// The system's own folder, without a trailing separator; empty when the system does not tell.
std::wstring SystemFolder();

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

/// Throws the Error of a library of the system, or a function of one, that this system has not.
[[noreturn]] void ThrowMissing(const wchar_t* library, const char* function);

/// A function that comes into the process with its first call: RequiredFunction<decltype(F)>(L"library.dll", "F")(...).
/// Naming it in the program's imports would leave it to the loader where the library is taken from, and would end the
/// process where there is none. Throws Error. Quick start: no library comes before it is needed.
template <typename Function>
Function& RequiredFunction(const wchar_t* library, const char* name) {
  const auto function = SystemFunction<Function>(LoadSystemLibrary(library), name);
  if (function == nullptr) ThrowMissing(library, name);
  return *function;
}

}  // namespace kvez
