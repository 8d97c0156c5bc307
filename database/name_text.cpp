#include "database/name_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "text/windows1250.h"

namespace kvez {
namespace {

// The bytes of Windows-1250 that are no letter, no sign and no blank but steer whoever shows them: NUL, TAB, line ends,
// the unassigned bytes. Every byte of the lists is asked about while they are loaded.
const std::array<bool, 256>& Controls() {
  static const auto controls = [] {
    std::array<bool, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
      const wchar_t character = FromWindows1250(static_cast<std::uint8_t>(byte));
      table[byte] = character < L' ' || (character >= 0x7F && character < 0xA0);
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
