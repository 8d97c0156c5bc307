#pragma once

#include <cstdint>
#include <span>

namespace kvez {

/// Whether a file of these bytes is a compiled help, whole: its signature, and the length that is stored in it. The
/// viewer does nothing with anything else, or ends the program over it.
bool IsWholeHelp(std::span<const std::uint8_t> file);

}  // namespace kvez
