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

TEST(SearchRules, PostalTextsMayStandBetweenBlanksOfEveryKind) {
  for (const wchar_t* text : {L" 692 01 ", L"\u00A069201\u00A0", L"692\u00A001", L"\t692\u202F01\r\n", L" 692-01\t"}) {
    EXPECT_TRUE(IsPostalText(text)) << text;
    EXPECT_EQ(ReadPostalCode(text), L"69201") << text;
  }
}

TEST(SearchRules, APostalCodeIsReadWithItsSeparator) {
  EXPECT_EQ(ReadPostalCode(L"692 01"), L"69201");
  EXPECT_EQ(ReadPostalCode(L"692-01"), L"69201");
  EXPECT_EQ(ReadPostalCode(L"692x01"), L"69201");
  EXPECT_EQ(ReadPostalCode(L" 69 2 "), L"692");
  EXPECT_EQ(ReadPostalCode(L"69-201"), L"69");
  EXPECT_EQ(ReadPostalCode(L"00692"), L"692");
  EXPECT_EQ(ReadPostalCode(L"000"), L"0");
  EXPECT_EQ(ReadPostalCode(L"x"), L"0");
  EXPECT_EQ(ReadPostalCode(L""), L"");
  EXPECT_EQ(ReadPostalCode(L"  "), L"");
}

TEST(SearchRules, APastedPostalCodeFindsRoom) {
  EXPECT_EQ(PostalTextToPaste(L" 692 01 ", 6), L"692 01");
  EXPECT_EQ(PostalTextToPaste(L"\t69201\r\n", 6), L"69201");
  EXPECT_EQ(PostalTextToPaste(L"692  01", 6), L"69201");
  EXPECT_EQ(PostalTextToPaste(L"692 - 01", 6), L"692-01");
  EXPECT_EQ(PostalTextToPaste(L"692 01 Mikulov", 6), L"692 01 Mikulov");
}

TEST(SearchRules, APastedNameIsItsFirstLine) {
  EXPECT_EQ(NameToPaste(L"\r\n  Mikulov\r\nBavory"), L"Mikulov");
  EXPECT_EQ(NameToPaste(L"Mikulov\t\r\n"), L"Mikulov\t");
  EXPECT_EQ(NameToPaste(L" Ves"), L" Ves") << "it may go in behind another word";
  EXPECT_EQ(NameToPaste(L"\r\n"), L"");
  EXPECT_EQ(NameToPaste(L""), L"");
}

TEST(SearchRules, TrimmedTakesTheBlanksAroundATextAway) {
  EXPECT_EQ(Trimmed(L"  Nové Město  "), L"Nové Město");
  EXPECT_EQ(Trimmed(L"\t\u00A0Nové Město\u00A0\r\n"), L"Nové Město");
  EXPECT_EQ(Trimmed(L""), L"");
  EXPECT_EQ(Trimmed(L"   "), L"");
}

}  // namespace
}  // namespace kvez
