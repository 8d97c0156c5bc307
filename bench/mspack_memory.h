#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kvez::bench {

/// Expands an SZDD file with libmspack, in memory as our own expander does; the number of bytes that came out.
std::size_t ExpandWithMspack(std::span<const std::uint8_t> file);

}  // namespace kvez::bench
