#include "text/windows1250.h"

#include <gtest/gtest.h>

#include <vector>

namespace kvez {
namespace {

TEST(Windows1250, EveryByteSurvivesTheWayThereAndBack) {
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    EXPECT_EQ(ToWindows1250(FromWindows1250(byte)), byte) << "byte " << value;
  }
}

TEST(Windows1250, CzechLettersHaveTheirBytes) {
  EXPECT_EQ(ToWindows1250(L"Žďár nad Sázavou"), "\x8E\xEF\xE1r nad S\xE1zavou");
  EXPECT_EQ(ToWindows1250(L"ěščřžýáíéúůťňó"), "\xEC\x9A\xE8\xF8\x9E\xFD\xE1\xED\xE9\xFA\xF9\x9D\xF2\xF3");
}

TEST(Windows1250, BytesBecomeATextHoweverTheyAreKept) {
  const std::vector<std::uint8_t> bytes = {0x8E, 0xEF, 0xE1, 'r', 0x81};
  EXPECT_EQ(FromWindows1250(bytes), L"Žďár\x81");
  std::wstring text = L"longer than the bytes";
  FromWindows1250(std::string_view("\x8E\xEF"), text);
  EXPECT_EQ(text, L"Žď");
}

TEST(Windows1250, CharacterOutsideTheCodePageIsReplaced) {
  EXPECT_EQ(ToWindows1250(L'Ω'), std::nullopt);
  EXPECT_EQ(ToWindows1250(L"aΩb"), "a?b");
}

}  // namespace
}  // namespace kvez
