#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "database/records.h"

namespace kvez {

/// Finds the first post office of a postal code without walking the list.
class PostOfficeIndex {
 public:
  /// Replaces the index by that of `offices`.
  void Build(std::span<const tclsdodavaci> offices);
  void Clear();

  /// The index from 0 of the first post office in the list that serves `code`.
  std::optional<std::size_t> First(std::int32_t code) const;

 private:
  struct Entry {
    std::int32_t code;
    std::uint32_t index;
  };

  std::vector<Entry> m_entries;  // by code, one entry a code
};

}  // namespace kvez
