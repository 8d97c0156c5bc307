#pragma once

#include <map>
#include <string>

#include "platform/file_operations.h"
#include "platform/windows/owned.h"

namespace kvez {

/// Files through the system. A copy belongs to who has made it for as long as this lives: a program of another session
/// that starts in the same folder meanwhile can neither remove it nor move it away.
class WindowsFileOperations : public FileOperations {
 public:
  bool Exists(const std::wstring& path) override;
  bool IsNormalFile(const std::wstring& path) override;
  bool Copy(const std::wstring& from, const std::wstring& to) override;
  bool Move(const std::wstring& from, const std::wstring& to) override;
  bool Remove(const std::wstring& path) override;

 private:
  std::map<std::wstring, OwnedFile> m_held;  // the copies
};

}  // namespace kvez
