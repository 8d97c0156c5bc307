// The mail client of the tests. It writes down what it is given, behaves badly in the way mail clients do (it leaves
// another working directory behind), and answers what the test wants.
#include <windows.h>

#include <string>

namespace {

std::wstring Setting(const wchar_t* name) {
  wchar_t value[1024] = {};
  GetEnvironmentVariableW(name, value, sizeof value / sizeof *value);
  return value;
}

std::string Text(const char* text) { return text == nullptr ? "(null)" : text; }

}  // namespace

extern "C" __declspec(dllexport) ULONG WINAPI
    MAPISendDocuments(ULONG_PTR window, LPSTR delimiter, LPSTR files, LPSTR names, ULONG reserved) {
  const std::string record = std::to_string(window) + "\n" + Text(delimiter) + "\n" + Text(files) + "\n" + Text(names) +
                             "\n" + std::to_string(reserved) + "\n";
  const HANDLE file =
      CreateFileW(Setting(L"KVEZ_MAIL_RECORD").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, record.data(), static_cast<DWORD>(record.size()), &written, nullptr);
  CloseHandle(file);
  SetCurrentDirectoryA("C:\\windows");
  const std::wstring result = Setting(L"KVEZ_MAIL_RESULT");
  return result.empty() ? 0 : std::stoul(result);
}
