#include "platform/portable/lz_expansion.h"

#include <limits>
#include <utility>

#include "platform/portable/szdd.h"

namespace kvez {
namespace {

LzExpansion Whole(std::vector<std::uint8_t> bytes) {
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    return {LzExpansion::kBadValue, {}};
  }
  return {static_cast<std::int32_t>(bytes.size()), std::move(bytes)};
}

}  // namespace

LzExpansion ExpandAsLibrary(std::vector<std::uint8_t> file) {
  if (!IsSzdd(file)) return Whole(std::move(file));
  SzddResult expanded = ExpandSzdd(file);
  if (expanded.Ok()) return Whole(std::move(expanded.bytes));
  const bool otherMode = file.size() > kSzddModeOffset && file[kSzddModeOffset] != kSzddMode;
  return {otherMode ? LzExpansion::kUnknownAlgorithm : LzExpansion::kReadError, {}};
}

}  // namespace kvez
