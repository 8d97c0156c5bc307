// What the data tool's messages are put together from. Apart from the commands, so that what reads lists and tables can
// be linked without them.

#include "text/utf8.h"
#include "tools/tool.h"

namespace kvez {

std::string InApostrophes(std::wstring_view text) { return ToUtf8(L"'" + std::wstring(text) + L"'"); }

std::string HexByte(std::uint8_t byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  return {'0', 'x', digits[byte >> 4], digits[byte & 0x0FU]};
}

}  // namespace kvez
