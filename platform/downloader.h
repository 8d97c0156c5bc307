#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace kvez {

/// Called again and again while a download goes on, with how many bytes have come and how many will, 0 when nobody
/// knows that. False ends the download. It is also where the windows can catch up.
using DownloadWatch = std::function<bool(std::uint64_t bytes, std::uint64_t total)>;

/// Files from the internet.
class Downloader {
 public:
  virtual ~Downloader() = default;

  /// Downloads `address` over the file `path` and returns when that has succeeded (0) or failed (any other value); one
  /// that was ended has failed. What an interrupted download leaves in the file is not defined. Never answers from a
  /// cache.
  virtual std::int32_t Download(const std::wstring& address, const std::wstring& path, const DownloadWatch& goesOn) = 0;
};

}  // namespace kvez
