#pragma once

#include "platform/shell.h"

namespace kvez {

/// The shell in its 8-bit form where the system's 8-bit code page spells a path, and in its wide form where not. The
/// thread that saves a shortcut has initialised COM.
class WindowsShell : public Shell {
 public:
  std::wstring SpecialFolder(std::int32_t folder) override;
  std::intptr_t FindFile(const std::wstring& path) override;
  std::int32_t FileOperation(std::int32_t operation, const std::wstring& from, const std::wstring& to,
                             std::uint16_t flags) override;
  bool IsSpelt(const std::wstring& path) override;
  bool SaveLink(const ShellLink& link) override;
};

}  // namespace kvez
