#include "mainwindow/help_file.h"

#include <algorithm>
#include <string_view>

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

bool IsWholeHelp(std::span<const std::uint8_t> file) {
  if (file.size() < kFirstSection + kNumberBytes) return false;
  if (!std::equal(kSignature.begin(), kSignature.end(), file.begin())) return false;
  const std::uint64_t section = NumberAt(file, kFirstSection);
  if (section > file.size() || file.size() - section < kStoredLength + kNumberBytes) return false;
  return NumberAt(file, static_cast<std::size_t>(section) + kStoredLength) == file.size();
}

}  // namespace kvez
