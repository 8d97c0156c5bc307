#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

namespace kvez {

/// The whole content of a stream, or nothing when it is not open, cannot be sought in, or ends before its length.
std::optional<std::vector<std::uint8_t>> ReadStream(std::istream& stream);

}  // namespace kvez
