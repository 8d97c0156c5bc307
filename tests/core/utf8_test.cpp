#include "text/utf8.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

/// A text of one character, a pair of halves where characters have 16 bits.
std::wstring Character(std::uint32_t point) {
  if (sizeof(wchar_t) > 2 || point < 0x10000) return {static_cast<wchar_t>(point)};
  return {static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10)), static_cast<wchar_t>(0xDC00 + (point & 0x3FF))};
}

struct Encoded {
  std::uint32_t point;
  std::string_view bytes;
};

// The first and the last character of each length, and those on both sides of the surrogates.
constexpr Encoded kEnds[] = {{0x00, std::string_view("\0", 1)},
                             {0x7F, "\x7F"},
                             {0x80, "\xC2\x80"},
                             {0x7FF, "\xDF\xBF"},
                             {0x800, "\xE0\xA0\x80"},
                             {0xD7FF, "\xED\x9F\xBF"},
                             {0xE000, "\xEE\x80\x80"},
                             {0xFFFF, "\xEF\xBF\xBF"},
                             {0x10000, "\xF0\x90\x80\x80"},
                             {0x10FFFF, "\xF4\x8F\xBF\xBF"}};

TEST(Utf8, EveryLengthHasItsBytes) {
  for (const auto& [point, bytes] : kEnds) {
    EXPECT_EQ(ToUtf8(Character(point)), bytes) << std::hex << point;
    EXPECT_EQ(FromUtf8(bytes), Character(point)) << std::hex << point;
  }
}

TEST(Utf8, TextsOfSeveralCharacters) {
  EXPECT_EQ(ToUtf8(L"Žďár 1€"), "\xC5\xBD\xC4\x8F\xC3\xA1r 1\xE2\x82\xAC");
  EXPECT_EQ(FromUtf8("\xC5\xBD\xC4\x8F\xC3\xA1r 1\xE2\x82\xAC"), L"Žďár 1€");
  EXPECT_EQ(FromUtf8("a\xF0\x9F\x98\x80z"), L"a" + Character(0x1F600) + L"z");
  EXPECT_EQ(ToUtf8(L""), "");
  EXPECT_EQ(FromUtf8(""), L"");
}

TEST(Utf8, HalfAPairIsTheReplacementCharacter) {
  for (const std::uint32_t half : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU}) {
    EXPECT_EQ(ToUtf8(std::wstring{static_cast<wchar_t>(half)}), "\xEF\xBF\xBD") << std::hex << half;
    EXPECT_EQ(ToUtf8(std::wstring{static_cast<wchar_t>(half), L'a'}),
              "\xEF\xBF\xBD"
              "a")
        << std::hex << half;
  }
  // The wrong way round.
  EXPECT_EQ(ToUtf8(std::wstring{wchar_t{0xDC00}, wchar_t{0xD800}}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, CharacterBeyondTheLastIsTheReplacementCharacter) {
  if (sizeof(wchar_t) == 2) GTEST_SKIP() << "Characters of 16 bits reach no further.";
  EXPECT_EQ(ToUtf8(std::wstring{static_cast<wchar_t>(0x110000)}), "\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(std::wstring{static_cast<wchar_t>(-1)}), "\xEF\xBF\xBD");
}

TEST(Utf8, BytesThatAreNotWellFormedAreNoText) {
  for (const std::string_view bytes : {"\x80",  // a continuation alone
                                       "\xBF",
                                       "\xC2",  // cut
                                       "a\xE2\x82",
                                       "\xF0\x9F\x98",
                                       "\xC2\x41",  // no continuation
                                       "\xC2\xC2",
                                       "\xE2\x28\xA1",
                                       "\xE2\x82\x28",
                                       "\xF0\x9F\x98\x28",
                                       "\xC0\x80",
                                       "\xC1\xBF",
                                       "\xE0\x9F\xBF",
                                       "\xF0\x8F\xBF\xBF",  // longer than need be
                                       "\xED\xA0\x80",
                                       "\xED\xAF\xBF",
                                       "\xED\xB0\x80",
                                       "\xED\xBF\xBF",  // halves of pairs
                                       "\xF4\x90\x80\x80",
                                       "\xF5\x80\x80\x80",
                                       "\xFE",
                                       "\xFF"}) {  // beyond the last
    EXPECT_EQ(FromUtf8(bytes), std::nullopt) << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace kvez
