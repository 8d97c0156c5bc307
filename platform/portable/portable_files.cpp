#include "platform/portable/portable_files.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "platform/portable/portable_path.h"

namespace kvez {

std::optional<std::vector<std::uint8_t>> PortableFiles::Read(const std::wstring& path) {
  const std::filesystem::path file = PortablePath(path);
  std::error_code error;
  // A folder opens like a file on some systems and then has no bytes.
  if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::filesystem::file_size(file, error)));
  if (error) return std::nullopt;
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (stream.gcount() != static_cast<std::streamsize>(bytes.size())) return std::nullopt;
  return bytes;
}

std::optional<DateTime> PortableFiles::LastWriteTime(const std::wstring& path) {
  std::error_code error;
  const auto written = std::filesystem::last_write_time(PortablePath(path), error);
  if (error) return std::nullopt;
  const auto sinceEpoch = std::chrono::file_clock::to_sys(written).time_since_epoch();
  const auto seconds = static_cast<std::time_t>(std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count());
  std::tm local{};
#ifdef _WIN32
  if (localtime_s(&local, &seconds) != 0) return std::nullopt;
#else
  if (localtime_r(&seconds, &local) == nullptr) return std::nullopt;
#endif
  return DateTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace kvez
