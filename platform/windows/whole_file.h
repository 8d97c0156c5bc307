#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace kvez {

/// The content of a file that is open for reading, from its beginning; nothing when it cannot be read to its end or is
/// larger than any file of the program (1 GiB).
std::optional<std::vector<std::uint8_t>> ReadWholeFile(HANDLE file);

}  // namespace kvez
