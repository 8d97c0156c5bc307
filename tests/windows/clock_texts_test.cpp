#include "mainwindow/clock_texts.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(ClockTextsTest, TimeIsPaddedToFiveCharacters) {
  EXPECT_EQ(TimePanelText(L"9:05"), L" 9:05");
  EXPECT_EQ(TimePanelText(L"0:00"), L" 0:00");
  EXPECT_EQ(TimePanelText(L"23:59"), L"23:59");
  EXPECT_EQ(TimePanelText(L""), L"     ");
  // A locale may write the time longer than the panel was made for.
  EXPECT_EQ(TimePanelText(L"23 : 59"), L"23 : 59");
}

TEST(ClockTextsTest, DateIsCentredWithHalvesToTheEvenNeighbour) {
  // Indexed by the number of characters that are missing to 21.
  const std::size_t blanks[] = {0, 0, 1, 2, 2, 2, 3, 4, 4, 4, 5, 6, 6, 6, 7, 8, 8, 8, 9, 10, 10, 10};
  for (std::size_t missing = 0; missing <= 21; ++missing) {
    const std::wstring date(21 - missing, L'x');
    EXPECT_EQ(DatePanelText(date), std::wstring(blanks[missing], L' ') + date) << missing << " characters missing";
  }
}

TEST(ClockTextsTest, CzechDates) {
  EXPECT_EQ(DatePanelText(L"pondělí, 16.11.2026"), L" pondělí, 16.11.2026");  // 2 missing
  EXPECT_EQ(DatePanelText(L"pátek, 2.1.2026"), L"   pátek, 2.1.2026");        // 6 missing
  EXPECT_EQ(DatePanelText(L"neděle, 1.2.2026"), L"  neděle, 1.2.2026");       // 5 missing
  EXPECT_EQ(DatePanelText(L"pátek, 16.1.26"), L"    pátek, 16.1.26");         // 7 missing
}

TEST(ClockTextsTest, LongDatesStayAsTheyAre) {
  EXPECT_EQ(DatePanelText(std::wstring(22, L'x')), std::wstring(22, L'x'));
  EXPECT_EQ(DatePanelText(std::wstring(40, L'x')), std::wstring(40, L'x'));
}

}  // namespace
}  // namespace kvez
