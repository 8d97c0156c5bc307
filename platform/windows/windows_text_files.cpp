#include "platform/windows/windows_text_files.h"

#include <windows.h>

#include <stdexcept>
#include <string>

#include "platform/windows/file_aside.h"
#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"

namespace kvez {
namespace {

OwnedFile Create(const std::wstring& path) {
  return OwnedFile(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool WriteAll(HANDLE file, const std::string& bytes) {
  DWORD written = 0;
  return WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size() && FlushFileBuffers(file);
}

void WriteOver(const std::wstring& path, const std::string& bytes) {
  const OwnedFile file = Create(path);
  if (!file) throw std::runtime_error("A text file cannot be created.");
  if (!WriteAll(file.Get(), bytes)) throw std::runtime_error("A text file cannot be written.");
}

// Whether the name is taken: not where nobody may make a new file, nor from a file that another program shows. Throws
// when there is no room for the text; then there is none in place of the older one either, which stays.
bool WriteAside(const std::wstring& path, const std::string& bytes) {
  const std::wstring aside = NameAside(path);
  bool isWhole = false;
  {
    const OwnedFile file = Create(aside);
    if (!file) return false;
    isWhole = WriteAll(file.Get(), bytes);
  }
  if (isWhole && Rename(aside, path)) return true;
  DeleteFileW(aside.c_str());
  if (!isWhole) throw std::runtime_error("A text file cannot be written.");
  return false;
}

}  // namespace

void WindowsTextFiles::Write(const std::wstring& path, std::wstring_view text) {
  const std::string bytes = ToBytesForOthers(text);
  if (!WriteAside(path, bytes)) WriteOver(path, bytes);
}

}  // namespace kvez
