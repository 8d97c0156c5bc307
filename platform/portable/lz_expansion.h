#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace kvez {

/// What the expansion library makes of a file, whoever is asked. The negative results have the values that the
/// platform's library gives them.
struct LzExpansion {
  static constexpr std::int32_t kBadSource = -1;  // no such handle, not open for reading, or no such file
  static constexpr std::int32_t kBadTarget = -2;  // no such handle, not open for writing, or the file cannot be made
  static constexpr std::int32_t kReadError = -3;  // the file cannot be read, or is damaged
  static constexpr std::int32_t kWriteError = -4;
  static constexpr std::int32_t kNoMemory = -5;
  static constexpr std::int32_t kBadValue = -7;          // more bytes than a result can tell
  static constexpr std::int32_t kUnknownAlgorithm = -8;  // another compression mode than 'A'

  std::int32_t result = 0;          // how many bytes there are, or what is wrong with the file
  std::vector<std::uint8_t> bytes;  // none when something is
};

/// A compressed file expands, any other one stays what it is. A damaged file, and one that comes to more than
/// `mostBytes`, comes to nothing. Throws std::bad_alloc.
LzExpansion ExpandAsLibrary(std::vector<std::uint8_t> file,
                            std::size_t mostBytes = std::numeric_limits<std::int32_t>::max());

}  // namespace kvez
