#include "text/fold.h"

#include <algorithm>

#include "text/windows1250.h"

namespace kvez {
namespace {

// The letters of the code page lie in three blocks of the character set. In the first two a small letter follows its
// capital at a distance of 32. In the third the two are neighbours, and the capitals are the even ones, except from
// U+0139 to U+0148 and from U+0179 on.
wchar_t SmallLetter(wchar_t character) {
  const auto code = static_cast<std::uint32_t>(character);
  const bool basic = code >= 'A' && code <= 'Z';
  const bool latin1 = code >= 0xC0 && code <= 0xDE && code != 0xD7;  // 0xD7 is the multiplication sign
  if (basic || latin1) return static_cast<wchar_t>(code + 32);
  if (code < 0x0100 || code > 0x017E) return character;
  const bool capitalsAreOdd = (code >= 0x0139 && code <= 0x0148) || code >= 0x0179;
  const bool isOdd = code % 2 == 1;
  return isOdd == capitalsAreOdd ? static_cast<wchar_t>(code + 1) : character;
}

std::array<std::uint8_t, 256> MakeFoldTable() {
  std::array<std::uint8_t, 256> table{};
  for (std::size_t value = 0; value < table.size(); ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    table[value] = ToWindows1250(SmallLetter(FromWindows1250(byte))).value_or(byte);
  }
  return table;
}

}  // namespace

const std::array<std::uint8_t, 256>& FoldTable1250() {
  static const std::array<std::uint8_t, 256> table = MakeFoldTable();
  return table;
}

wchar_t FoldCase(wchar_t character) {
  const auto byte = ToWindows1250(character);
  return byte ? FromWindows1250(FoldTable1250()[*byte]) : character;
}

bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return x == y || FoldCase(x) == FoldCase(y); });
}

}  // namespace kvez
