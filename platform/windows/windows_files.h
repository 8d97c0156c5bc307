#pragma once

#include "platform/files.h"

namespace kvez {

/// Files through the system. The date is asked for without opening the content, as somebody may be writing it.
class WindowsFiles : public Files {
 public:
  std::optional<std::vector<std::uint8_t>> Read(const std::wstring& path) override;
  std::optional<DateTime> LastWriteTime(const std::wstring& path) override;
};

}  // namespace kvez
