#pragma once

#include "platform/shell.h"

namespace kvez {

/// The shell in its 8-bit form: paths go through the system's 8-bit code page.
class WindowsShell : public Shell {
 public:
  std::wstring SpecialFolder(std::int32_t folder) override;
  std::intptr_t FindFile(const std::wstring& path) override;
  std::int32_t FileOperation(std::int32_t operation, const std::wstring& from, const std::wstring& to,
                             std::uint16_t flags) override;
};

}  // namespace kvez
