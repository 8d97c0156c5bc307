#include "database/name_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "text/windows1250.h"

namespace kvez {
namespace {

// By byte value: every byte of the lists is asked about while they are loaded.
const std::array<bool, 256>& Controls() {
  static const auto controls = [] {
    std::array<bool, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
      table[byte] = IsControl(FromWindows1250(static_cast<std::uint8_t>(byte)));
    }
    return table;
  }();
  return controls;
}

}  // namespace

std::string_view WithoutControls(std::string_view name, std::string& copy) {
  const auto isControl = [&controls = Controls()](char byte) { return controls[static_cast<std::uint8_t>(byte)]; };
  if (std::none_of(name.begin(), name.end(), isControl)) return name;
  copy = name;
  std::replace_if(copy.begin(), copy.end(), isControl, ' ');
  return copy;
}

}  // namespace kvez
