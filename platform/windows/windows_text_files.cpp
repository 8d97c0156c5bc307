#include "platform/windows/windows_text_files.h"

#include <windows.h>

#include <stdexcept>

#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"

namespace kvez {

void WindowsTextFiles::Write(const std::wstring& path, std::wstring_view text) {
  const std::string bytes = ToSystemCodePage(text);
  const HANDLE created =
      CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (created == INVALID_HANDLE_VALUE) throw std::runtime_error("A text file cannot be created.");
  const OwnedFile file(created);
  DWORD written = 0;
  if (!WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
      written != bytes.size()) {
    throw std::runtime_error("A text file cannot be written.");
  }
}

}  // namespace kvez
