#include "mainwindow/search_rules.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(SearchRules, PostalKeysAreDigitsBackspaceAndBlank) {
  for (int character = 0; character < 256; ++character) {
    const bool passes = (character >= '0' && character <= '9') || character == 8 || character == 32;
    EXPECT_EQ(IsPostalKey(character), passes) << "character " << character;
  }
}

TEST(SearchRules, PostalTextsAreNumbersOrHaveNumberEnds) {
  for (const wchar_t* text : {L"6", L"69", L"692", L"692 ", L"692 0", L"692 01", L"69201", L"692-01", L"692x01"}) {
    EXPECT_TRUE(IsPostalText(text)) << text;
  }
  for (const wchar_t* text : {L"", L" ", L"x", L"69x", L"69x01", L"x92 01", L"692 0x"}) {
    EXPECT_FALSE(IsPostalText(text)) << text;
  }
}

TEST(SearchRules, NumericValueIgnoresBlanksAndStopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(NumericValueText(L"692 01"), L"69201");
  EXPECT_EQ(NumericValueText(L" 69 2 "), L"692");
  EXPECT_EQ(NumericValueText(L"692-01"), L"692");
  EXPECT_EQ(NumericValueText(L"00692"), L"692");
  EXPECT_EQ(NumericValueText(L"000"), L"0");
  EXPECT_EQ(NumericValueText(L"x"), L"0");
  EXPECT_EQ(NumericValueText(L""), L"");
  EXPECT_EQ(NumericValueText(L"  "), L"");
}

TEST(SearchRules, TrimmedTakesTheBlanksAroundATextAway) {
  EXPECT_EQ(Trimmed(L"  Nové Město  "), L"Nové Město");
  EXPECT_EQ(Trimmed(L""), L"");
  EXPECT_EQ(Trimmed(L"   "), L"");
}

}  // namespace
}  // namespace kvez
