#include "text/fold.h"

#include <gtest/gtest.h>

#include <string>

#include "text/windows1250.h"

namespace kvez {
namespace {

// All letters of the code page, capital above small.
const std::wstring kCapitals =
    L"ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    L"ŠŚŤŽŹŁĄŞŻĽŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖŘŮÚŰÜÝŢ";
const std::wstring kSmall =
    L"abcdefghijklmnopqrstuvwxyz"
    L"šśťžźłąşżľŕáâăäĺćçčéęëěíîďđńňóôőöřůúűüýţ";

TEST(Fold, EveryCapitalOfTheCodePageMeetsItsSmallLetter) {
  ASSERT_EQ(kCapitals.size(), kSmall.size());
  for (std::size_t i = 0; i < kCapitals.size(); ++i) {
    EXPECT_EQ(FoldCase(kCapitals[i]), kSmall[i]) << i;
    EXPECT_EQ(FoldCase(kSmall[i]), kSmall[i]) << i;
  }
}

TEST(Fold, EveryOtherCharacterStaysAsItIs) {
  for (int value = 0; value < 256; ++value) {
    const wchar_t character = FromWindows1250(static_cast<std::uint8_t>(value));
    if (kCapitals.find(character) != std::wstring::npos) continue;
    EXPECT_EQ(FoldCase(character), character) << value;
  }
  EXPECT_EQ(FoldCase(L'Ω'), L'Ω');  // not in the code page
  EXPECT_EQ(FoldCase(L'Ā'), L'Ā');
}

TEST(Fold, BytesFoldAsTheirCharactersDo) {
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    EXPECT_EQ(FromWindows1250(FoldTable1250()[byte]), FoldCase(FromWindows1250(byte))) << value;
  }
}

TEST(Fold, DiacriticsAreNotFolded) {
  EXPECT_TRUE(EqualIgnoringCase(L"ŽĎÁR", L"žďár"));
  EXPECT_FALSE(EqualIgnoringCase(L"čáslav", L"caslav"));
  EXPECT_FALSE(EqualIgnoringCase(L"Praha", L"Prah"));
  EXPECT_FALSE(EqualIgnoringCase(L"Prah", L"Praha"));
}

}  // namespace
}  // namespace kvez
