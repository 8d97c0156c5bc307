#pragma once

#include "platform/clock.h"
#include "platform/downloader.h"
#include "platform/windows/owned.h"

namespace kvez {

class DownloadJob;

/// What a download may not do.
struct DownloadLimits {
  unsigned standsStill = 30'000;    // milliseconds without a byte
  std::uint64_t bytes = 64U << 20;  // no file of ours has a tenth of that
};

/// Downloads through the system's URL library, with its proxies and certificates, on a thread of its own: the library
/// comes back only when everything has come. What stands still or grows without end fails.
class WindowsDownloader : public Downloader {
 public:
  /// The clock outlives this object; what has come carries its time.
  explicit WindowsDownloader(Clock& clock, DownloadLimits limits = {}) : m_clock(clock), m_limits(limits) {}

  std::int32_t Download(const std::wstring& address, const std::wstring& path, const DownloadWatch& goesOn) override;

 private:
  std::int32_t WaitFor(DownloadJob& job, const DownloadWatch& goesOn) const;

  Clock& m_clock;
  DownloadLimits m_limits;
  OwnedThread m_thread;  // of the last download
};

}  // namespace kvez
