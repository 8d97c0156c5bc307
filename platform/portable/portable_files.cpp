#include "platform/portable/portable_files.h"

#include <chrono>
#include <filesystem>
#include <fstream>

#include "platform/portable/local_time.h"
#include "platform/portable/portable_path.h"
#include "platform/portable/read_stream.h"

namespace kvez {

std::optional<std::vector<std::uint8_t>> PortableFiles::Read(const std::wstring& path) {
  const std::filesystem::path file = PortablePath(path);
  std::error_code error;
  // A folder opens like a file on some systems and then has no bytes.
  if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  return ReadStream(stream);
}

std::optional<DateTime> PortableFiles::LastWriteTime(const std::wstring& path) {
  std::error_code error;
  const auto written = std::filesystem::last_write_time(PortablePath(path), error);
  if (error) return std::nullopt;
  const auto sinceEpoch = std::chrono::file_clock::to_sys(written).time_since_epoch();
  return LocalDateTime(static_cast<std::time_t>(std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count()));
}

}  // namespace kvez
