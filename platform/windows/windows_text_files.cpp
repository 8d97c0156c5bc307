#include "platform/windows/windows_text_files.h"

#include <windows.h>

#include <stdexcept>
#include <string>

#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"

namespace kvez {
namespace {

// Where the text is until it is whole. One name for each file: what a violent end leaves there goes with the next text.
std::wstring NameAside(const std::wstring& path) { return path + L".kvez"; }

void WriteWhole(const std::wstring& path, const std::string& bytes) {
  const HANDLE created =
      CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (created == INVALID_HANDLE_VALUE) throw std::runtime_error("A text file cannot be created.");
  const OwnedFile file(created);
  DWORD written = 0;
  if (!WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
      written != bytes.size() || !FlushFileBuffers(file.Get())) {
    throw std::runtime_error("A text file cannot be written.");
  }
}

// Whether the file is there now as a whole; else it is as it was.
bool Replace(const std::wstring& path, const std::string& bytes) {
  const std::wstring aside = NameAside(path);
  try {
    WriteWhole(aside, bytes);
  } catch (const std::runtime_error&) {
    DeleteFileW(aside.c_str());
    return false;
  }
  if (MoveFileExW(aside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) return true;
  DeleteFileW(aside.c_str());
  return false;
}

}  // namespace

void WindowsTextFiles::Write(const std::wstring& path, std::wstring_view text) {
  const std::string bytes = ToSystemCodePage(text);
  // A file that another program shows, or in a folder where nobody may make a new one, can still be written itself.
  if (!Replace(path, bytes)) WriteWhole(path, bytes);
}

}  // namespace kvez
