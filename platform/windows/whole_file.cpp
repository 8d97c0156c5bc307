#include "platform/windows/whole_file.h"

namespace kvez {
namespace {

// The files here are of some hundred kilobytes; more than this is not one of them.
constexpr LONGLONG kLargestFile = 1LL << 30;

}  // namespace

std::optional<std::vector<std::uint8_t>> ReadWholeFile(HANDLE file) {
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file, &size) || size.QuadPart > kLargestFile) return std::nullopt;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size.QuadPart));
  DWORD read = 0;
  if (!ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) return std::nullopt;
  if (read != bytes.size()) return std::nullopt;
  return bytes;
}

}  // namespace kvez
