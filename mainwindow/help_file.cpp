#include "mainwindow/help_file.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/windows/owned.h"

namespace kvez {
namespace {

constexpr std::string_view kSignature = "ITSF";
constexpr std::size_t kFirstSection = 56;  // where the header says where its first section lies
constexpr std::size_t kStoredLength = 8;   // in that section
constexpr std::size_t kNumberBytes = 8;

std::uint64_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  std::uint64_t number = 0;
  for (std::size_t i = kNumberBytes; i-- > 0;) number = number << 8 | bytes[offset + i];
  return number;
}

}  // namespace

bool HasHelpFormat(std::span<const std::uint8_t> beginning, std::uint64_t length) {
  if (beginning.size() < kFirstSection + kNumberBytes) return false;
  if (!std::equal(kSignature.begin(), kSignature.end(), beginning.begin())) return false;
  const std::uint64_t section = NumberAt(beginning, kFirstSection);
  if (section > beginning.size() || beginning.size() - section < kStoredLength + kNumberBytes) return false;
  return NumberAt(beginning, static_cast<std::size_t>(section) + kStoredLength) == length;
}

bool HasHelpContent(const std::wstring& path) {
  const OwnedFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                   nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file) return false;
  LARGE_INTEGER length{};
  std::array<std::uint8_t, kHelpHeaderBytes> beginning{};
  DWORD count = 0;
  if (!GetFileSizeEx(file.Get(), &length)) return false;
  if (!ReadFile(file.Get(), beginning.data(), static_cast<DWORD>(beginning.size()), &count, nullptr)) return false;
  return HasHelpFormat({beginning.data(), count}, static_cast<std::uint64_t>(length.QuadPart));
}

bool IsHelpFile(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  constexpr DWORD others = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY;
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & others) == 0 && HasHelpContent(path);
}

}  // namespace kvez
