#include "platform/portable/portable_formats.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(PortableFormats, PostalCodeKeepsItsLeadingZeros) {
  PortableFormats formats;
  EXPECT_EQ(formats.Number(11000, L"000\\ 00"), L"110 00");
  EXPECT_EQ(formats.Number(0, L"000\\ 00"), L"000 00");
  EXPECT_EQ(formats.Number(7, L"000\\ 00"), L"000 07");
  EXPECT_EQ(formats.Number(99999, L"000\\ 00"), L"999 99");
}

TEST(PortableFormats, FirstPlaceTakesTheDigitsThatAreLeft) {
  PortableFormats formats;
  EXPECT_EQ(formats.Number(1234567, L"000\\ 00"), L"12345 67");
  EXPECT_EQ(formats.Number(-11000, L"000\\ 00"), L"-110 00");
  EXPECT_EQ(formats.Number(-2147483647 - 1, L"000\\ 00"), L"-21474836 48");
}

TEST(PortableFormats, GroupsAreSetApartByANoBreakSpace) {
  PortableFormats formats;
  EXPECT_EQ(formats.Number(0, L"#,##0"), L"0");
  EXPECT_EQ(formats.Number(999, L"#,##0"), L"999");
  EXPECT_EQ(formats.Number(1000, L"#,##0"), L"1\u00A0000");
  EXPECT_EQ(formats.Number(16567, L"#,##0"), L"16\u00A0567");
  EXPECT_EQ(formats.Number(2147483647, L"#,##0"), L"2\u00A0147\u00A0483\u00A0647");
  EXPECT_EQ(formats.Number(-1000, L"#,##0"), L"-1\u00A0000");
}

TEST(PortableFormats, OptionalPlaceShowsNothingForZero) {
  PortableFormats formats;
  EXPECT_EQ(formats.Number(0, L"#"), L"");
  EXPECT_EQ(formats.Number(12, L"#"), L"12");
  EXPECT_EQ(formats.Number(3, L"# \\z "), L"3 z ");
  EXPECT_EQ(formats.Number(12, L"# \\z "), L"12 z ");
}

const DateTime kMonday = {2026, 11, 16, 0, 50, 7};
const DateTime kSunday = {2025, 2, 9, 9, 5, 0};

TEST(PortableFormats, DatesHaveTheNamesOfDaysAndMonths) {
  PortableFormats formats;
  EXPECT_EQ(formats.Date(kMonday, L"d.mmmm yyyy"), L"16.listopad 2026");
  EXPECT_EQ(formats.Date(kMonday, L"dddd, d.mmmm yyyy HH:mm"), L"pondělí, 16.listopad 2026 00:50");
  EXPECT_EQ(formats.Date(kSunday, L"dddd, d.mmmm yyyy \\v H:mm"), L"neděle, 9.únor 2025 v 9:05");
  EXPECT_EQ(formats.Date(kSunday, L"dddd, d.m.yyyy"), L"neděle, 9.2.2025");
}

TEST(PortableFormats, MinutesFollowTheHour) {
  PortableFormats formats;
  EXPECT_EQ(formats.Date(kSunday, L"H:mm"), L"9:05");
  EXPECT_EQ(formats.Date(kSunday, L"HH:mm d.m."), L"09:05 9.2.");
}

TEST(PortableFormats, SignsAreWrittenInTheirLengths) {
  PortableFormats formats;
  EXPECT_EQ(formats.Date(kSunday, L"d dd m mm y yy yyy yyyy"), L"9 09 2 02 25 25 2025 2025");
  EXPECT_EQ(formats.Date({2005, 10, 30}, L"dd.mm.yy"), L"30.10.05");
  EXPECT_EQ(formats.Date({987, 10, 30}, L"yyyy"), L"0987");
}

TEST(PortableFormats, BackslashTakesTheNextCharacterAsItStands) {
  PortableFormats formats;
  EXPECT_EQ(formats.Date(kSunday, L"\\d\\\\d\\"), L"d\\9");
  EXPECT_EQ(formats.Number(7, L"\\00\\"), L"07");
}

TEST(PortableFormats, EveryMonthHasItsName) {
  PortableFormats formats;
  const std::wstring_view names[] = {L"leden",    L"únor",  L"březen", L"duben", L"květen",   L"červen",
                                     L"červenec", L"srpen", L"září",   L"říjen", L"listopad", L"prosinec"};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(formats.Date({2024, month, 1, 0, 0, 0}, L"mmmm"), names[month - 1]);
  }
}

TEST(PortableFormats, EveryWeekdayHasItsName) {
  PortableFormats formats;
  const std::wstring_view names[] = {L"pondělí", L"úterý", L"středa", L"čtvrtek", L"pátek", L"sobota", L"neděle"};
  for (int day = 0; day < 7; ++day) {
    EXPECT_EQ(formats.Date({2026, 11, 16 + day, 0, 0, 0}, L"dddd"), names[day]);
  }
}

TEST(PortableFormats, NoDateIsAnEmptyText) {
  PortableFormats formats;
  EXPECT_EQ(formats.Date(DateTime{}, L"d.mmmm yyyy"), L"");
  for (const DateTime& none :
       {DateTime{2026, 0, 1}, DateTime{2026, 13, 1}, DateTime{2026, 1, 0}, DateTime{2026, 1, 32}}) {
    EXPECT_EQ(formats.Date(none, L"d.m.yyyy"), L"") << none.month << " " << none.day;
  }
  EXPECT_EQ(formats.Date({2026, 12, 31}, L"d.m.yyyy"), L"31.12.2026");
  EXPECT_EQ(formats.Date({2026, 1, 1}, L"d.m.yyyy"), L"1.1.2026");
}

}  // namespace
}  // namespace kvez
