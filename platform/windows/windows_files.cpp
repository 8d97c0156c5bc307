#include "platform/windows/windows_files.h"

#include <windows.h>

#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/whole_file.h"

namespace kvez {
namespace {

HANDLE OpenForAttributes(const std::wstring& path) {
  return CallWithPath(
      path,
      [](const std::string& bytes) { return CreateFileA(bytes.c_str(), 0, 0, nullptr, OPEN_EXISTING, 0, nullptr); },
      [](const std::wstring& whole) { return CreateFileW(whole.c_str(), 0, 0, nullptr, OPEN_EXISTING, 0, nullptr); });
}

}  // namespace

std::optional<std::vector<std::uint8_t>> WindowsFiles::Read(const std::wstring& path) {
  const auto open = [&] {
    return CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  };
  const OwnedFile file(m_patience.OpenPatiently(open, INVALID_HANDLE_VALUE));
  if (!file) return std::nullopt;
  return ReadWholeFile(file.Get());
}

std::optional<DateTime> WindowsFiles::LastWriteTime(const std::wstring& path) {
  FILETIME unused{};
  FILETIME written{};
  {
    const OwnedFile file(OpenForAttributes(path));
    if (!file || !GetFileTime(file.Get(), &unused, &unused, &written)) return std::nullopt;
  }
  FILETIME local{};
  SYSTEMTIME date{};
  if (!FileTimeToLocalFileTime(&written, &local) || !FileTimeToSystemTime(&local, &date)) return std::nullopt;
  return DateTime{date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute, date.wSecond};
}

}  // namespace kvez
