#include "platform/portable/lz_expansion.h"

#include <utility>

#include "platform/portable/szdd.h"

namespace kvez {
namespace {

LzExpansion Whole(std::vector<std::uint8_t> bytes, std::size_t mostBytes) {
  if (bytes.size() > mostBytes) return {LzExpansion::kBadValue, {}};
  return {static_cast<std::int32_t>(bytes.size()), std::move(bytes)};
}

}  // namespace

LzExpansion ExpandAsLibrary(std::vector<std::uint8_t> file, std::size_t mostBytes) {
  if (!IsSzdd(file)) return Whole(std::move(file), mostBytes);
  SzddResult expanded = ExpandSzdd(file);
  if (expanded.Ok()) return Whole(std::move(expanded.bytes), mostBytes);
  const bool otherMode = file.size() > kSzddModeOffset && file[kSzddModeOffset] != kSzddMode;
  return {otherMode ? LzExpansion::kUnknownAlgorithm : LzExpansion::kReadError, {}};
}

}  // namespace kvez
