#pragma once

#include <string>

namespace kvez::test {

/// The beginning of a compiled help that says it is `length` bytes long, with nothing behind its first section.
inline std::string HelpBytes(unsigned length = 0) {
  std::string bytes(120, '\0');
  bytes.replace(0, 4, "ITSF");
  bytes[56] = 96;  // where the first section lies
  const unsigned stored = length == 0 ? static_cast<unsigned>(bytes.size()) : length;
  for (unsigned i = 0; i < 4; ++i) bytes[104 + i] = static_cast<char>(stored >> (8 * i) & 0xFF);
  return bytes;
}

}  // namespace kvez::test
