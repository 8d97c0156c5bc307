#pragma once

#include <cstdint>
#include <string>

namespace kvez {

/// Files from the internet.
class Downloader {
 public:
  virtual ~Downloader() = default;

  /// Downloads `address` over the file `path` and returns when that has succeeded (0) or failed (any other value).
  /// What an interrupted download leaves in the file is not defined. Never answers from a cache.
  virtual std::int32_t Download(const std::wstring& address, const std::wstring& path) = 0;
};

}  // namespace kvez
