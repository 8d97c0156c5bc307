#include "database/name_text.h"

#include <algorithm>

#include "database/windows1250.h"

namespace kvez {

bool IsControl1250(std::uint8_t byte) {
  const wchar_t character = FromWindows1250(byte);
  return character < L' ' || (character >= 0x7F && character < 0xA0);
}

std::string_view WithoutControls(std::string_view name, std::string& copy) {
  const auto isControl = [](char byte) { return IsControl1250(static_cast<std::uint8_t>(byte)); };
  if (std::none_of(name.begin(), name.end(), isControl)) return name;
  copy = name;
  std::replace_if(copy.begin(), copy.end(), isControl, ' ');
  return copy;
}

}  // namespace kvez
