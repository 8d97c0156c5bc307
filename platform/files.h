#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/date_time.h"

namespace kvez {

/// Reading whole files and asking for their dates. Paths are full paths.
class Files {
 public:
  virtual ~Files() = default;

  /// The whole content, or nothing when the file cannot be opened or read to its end.
  virtual std::optional<std::vector<std::uint8_t>> Read(const std::wstring& path) = 0;

  /// The last-write time in local time to the second, or nothing when there is no such file.
  virtual std::optional<DateTime> LastWriteTime(const std::wstring& path) = 0;
};

}  // namespace kvez
