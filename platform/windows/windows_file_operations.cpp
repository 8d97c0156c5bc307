#include "platform/windows/windows_file_operations.h"

#include <windows.h>

#include "platform/windows/file_names.h"

namespace kvez {
namespace {

bool Flush(const std::wstring& path) {
  const OwnedFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  return file && FlushFileBuffers(file.Get());
}

}  // namespace

bool WindowsFileOperations::Exists(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool WindowsFileOperations::IsNormalFile(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  constexpr DWORD others = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY;
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & others) == 0;
}

bool WindowsFileOperations::Copy(const std::wstring& from, const std::wstring& to) {
  m_held.erase(to);
  const std::wstring aside = NameAside(to);
  // The copy is to be moved and removed again, whatever the original is marked with.
  if (CopyFileW(from.c_str(), aside.c_str(), FALSE) && SetFileAttributesW(aside.c_str(), FILE_ATTRIBUTE_NORMAL) &&
      Flush(aside) && Rename(aside, to)) {
    // Others may read it.
    m_held[to] = OwnedFile(CreateFileW(to.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    return true;
  }
  DeleteFileW(aside.c_str());
  return false;
}

bool WindowsFileOperations::Move(const std::wstring& from, const std::wstring& to) {
  m_held.erase(from);
  m_held.erase(to);
  return Rename(from, to);
}

bool WindowsFileOperations::Remove(const std::wstring& path) {
  m_held.erase(path);
  return kvez::Remove(path);
}

}  // namespace kvez
