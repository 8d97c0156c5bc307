#pragma once

#include "platform/files.h"

namespace kvez {

/// Files through the standard library, on any machine.
class PortableFiles : public Files {
 public:
  std::optional<std::vector<std::uint8_t>> Read(const std::wstring& path) override;
  std::optional<DateTime> LastWriteTime(const std::wstring& path) override;
};

}  // namespace kvez
