#pragma once

#include "platform/downloader.h"

namespace kvez {

/// Downloads through the system's URL library, with its proxies and certificates.
class WindowsDownloader : public Downloader {
 public:
  std::int32_t Download(const std::wstring& address, const std::wstring& path) override;
};

}  // namespace kvez
