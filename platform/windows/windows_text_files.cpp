#include "platform/windows/windows_text_files.h"

#include <windows.h>

#include <string>

#include "platform/windows/file_names.h"
#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"
#include "text/error.h"

namespace kvez {
namespace {

OwnedFile Create(const std::wstring& path) {
  return OwnedFile(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
}

// 0, or the system's code of what failed.
DWORD WriteAll(HANDLE file, const std::string& bytes) {
  DWORD written = 0;
  if (!WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr)) return GetLastError();
  if (written != bytes.size()) return ERROR_DISK_FULL;
  return FlushFileBuffers(file) ? 0 : GetLastError();
}

[[noreturn]] void RefuseToWrite(const char* call, DWORD code) {
  throw Error(L"Soubor se nepodařilo zapsat.", call, code);
}

void WriteOver(const std::wstring& path, const std::string& bytes) {
  const OwnedFile file = Create(path);
  if (!file) RefuseToWrite("CreateFileW", GetLastError());
  if (const DWORD code = WriteAll(file.Get(), bytes)) RefuseToWrite("WriteFile", code);
}

// Whether the name is taken: not where nobody may make a new file, nor from a file that another program shows. Throws
// when there is no room for the text; then there is none in place of the older one either, which stays.
bool WriteAside(const std::wstring& path, const std::string& bytes) {
  const std::wstring aside = NameAside(path);
  DWORD code = 0;
  {
    const OwnedFile file = Create(aside);
    if (!file) return false;
    code = WriteAll(file.Get(), bytes);
  }
  if (code == 0 && Rename(aside, path)) return true;
  DeleteFileW(aside.c_str());
  if (code != 0) RefuseToWrite("WriteFile", code);
  return false;
}

}  // namespace

void WindowsTextFiles::Write(const std::wstring& path, std::wstring_view text) {
  const std::string bytes = ToBytesForOthers(text);
  if (!WriteAside(path, bytes)) WriteOver(path, bytes);
}

}  // namespace kvez
