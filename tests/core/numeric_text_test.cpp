#include "text/numeric_text.h"

#include <gtest/gtest.h>

#include <string>

#include "text/error.h"

namespace kvez {
namespace {

template <class Convert>
std::wstring ErrorOf(Convert convert) {
  try {
    convert();
  } catch (const ConversionError& error) {
    return error.Text();
  }
  return L"no error";
}

TEST(NumericText, DigitsWithASignAndBlanksAroundAreNumeric) {
  for (const wchar_t* text : {L"0", L"11000", L" 5 ", L"\t5", L"-5", L"+5", L" -5 ", L"99999999999999999999"}) {
    EXPECT_EQ(IsNumericText(text), true) << text;
  }
}

TEST(NumericText, NothingElseIsNumeric) {
  for (const wchar_t* text : {L"", L" ", L"-", L"+-5", L"- 5", L"5-", L"110 00", L"1,5", L"1.5", L"1e3", L"0x10",
                              L"&H10", L"abc", L"5a", L"110\u00A000", L"٣"}) {
    EXPECT_EQ(IsNumericText(text), false) << text;
  }
}

TEST(NumericText, ConvertsUpToTheEndsOfTheType) {
  EXPECT_EQ(ToInt32(L"11000"), 11000);
  EXPECT_EQ(ToInt32(L" +00042 "), 42);
  EXPECT_EQ(ToInt32(L"2147483647"), 2147483647);
  EXPECT_EQ(ToInt32(L"-2147483648"), -2147483647 - 1);
  EXPECT_EQ(ToInt16(L"32767"), 32767);
  EXPECT_EQ(ToInt16(L"-32768"), -32768);
}

TEST(NumericText, WhatIsNoNumberIsAConversionError) {
  EXPECT_EQ(ErrorOf([] { ToInt32(L"abc"); }), L"Text \"abc\" není celé číslo.");
  EXPECT_EQ(ErrorOf([] { ToInt16(L""); }), L"Text \"\" není celé číslo.");
}

// Whoever knows only the standard's errors gets a word too.
TEST(NumericText, WhatDoesNotFitIsAConversionError) {
  EXPECT_EQ(ErrorOf([] { ToInt32(L"2147483648"); }), L"Číslo \"2147483648\" je mimo povolený rozsah.");
  EXPECT_EQ(ErrorOf([] { ToInt32(L"-2147483649"); }), L"Číslo \"-2147483649\" je mimo povolený rozsah.");
  EXPECT_EQ(ErrorOf([] { ToInt16(L"32768"); }), L"Číslo \"32768\" je mimo povolený rozsah.");
  EXPECT_EQ(ErrorOf([] { ToInt16(L"-32769"); }), L"Číslo \"-32769\" je mimo povolený rozsah.");
  // The digits before the last are the least number: it must not stop there.
  EXPECT_EQ(ErrorOf([] { ToInt16(L"-327680"); }), L"Číslo \"-327680\" je mimo povolený rozsah.");
  EXPECT_EQ(ErrorOf([] { ToInt32(L"-21474836480"); }), L"Číslo \"-21474836480\" je mimo povolený rozsah.");
  const std::wstring manyDigits(1000, L'9');
  EXPECT_EQ(ErrorOf([&] { ToInt32(manyDigits); }), L"Číslo \"" + manyDigits + L"\" je mimo povolený rozsah.");
}

}  // namespace
}  // namespace kvez
