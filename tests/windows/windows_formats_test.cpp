#include "platform/windows/windows_formats.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/windows_clock.h"

namespace kvez {
namespace {

constexpr DateTime kMondayNight{2026, 11, 16, 0, 50, 7};

TEST(WindowsFormatsTest, WritesDatesInCzech) {
  WindowsFormats formats;
  EXPECT_EQ(formats.Date(kMondayNight, L"dddd, d.mmmm yyyy HH:mm"), L"pondělí, 16.listopad 2026 00:50");
  EXPECT_EQ(formats.Date(kMondayNight, L"dddd, d.mmmm yyyy \\v H:mm"), L"pondělí, 16.listopad 2026 v 0:50");
  EXPECT_EQ(formats.Date(kMondayNight, L"dddd, d.m.yyyy"), L"pondělí, 16.11.2026");
  EXPECT_EQ(formats.Date(kMondayNight, L"d.mmmm yyyy"), L"16.listopad 2026");
  EXPECT_EQ(formats.Date(kMondayNight, L"H:mm"), L"0:50");
}

TEST(WindowsFormatsTest, KeepsSingleDigitsWhereThePictureDoes) {
  WindowsFormats formats;
  const DateTime thursday{2026, 1, 1, 9, 5, 0};
  EXPECT_EQ(formats.Date(thursday, L"dddd, d.m.yyyy"), L"čtvrtek, 1.1.2026");
  EXPECT_EQ(formats.Date(thursday, L"dddd, d.mmmm yyyy HH:mm"), L"čtvrtek, 1.leden 2026 09:05");
  EXPECT_EQ(formats.Date(thursday, L"H:mm"), L"9:05");
}

TEST(WindowsFormatsTest, NamesEveryDayOfTheWeek) {
  WindowsFormats formats;
  const std::wstring names[] = {L"neděle", L"pondělí", L"úterý", L"středa", L"čtvrtek", L"pátek", L"sobota"};
  for (int day = 0; day < 7; ++day) {
    // 15 November 2026 was a Sunday.
    EXPECT_EQ(formats.Date({2026, 11, 15 + day, 12, 0, 0}, L"dddd, d.m.yyyy"),
              names[day] + L", " + std::to_wstring(15 + day) + L".11.2026");
  }
}

TEST(WindowsFormatsTest, WhatIsNoDateHasNoText) {
  WindowsFormats formats;
  EXPECT_EQ(formats.Date({}, L"d.mmmm yyyy"), L"");
  EXPECT_EQ(formats.Date({2026, 2, 30, 0, 0, 0}, L"d.mmmm yyyy"), L"");
  EXPECT_EQ(formats.Date({2024, 2, 29, 23, 59, 59}, L"d.mmmm yyyy"), L"29.únor 2024");
}

TEST(WindowsFormatsTest, WritesPostalCodes) {
  WindowsFormats formats;
  EXPECT_EQ(formats.Number(11000, L"000\\ 00"), L"110 00");
  EXPECT_EQ(formats.Number(1234, L"000\\ 00"), L"012 34");
  EXPECT_EQ(formats.Number(0, L"000\\ 00"), L"000 00");
  EXPECT_EQ(formats.Number(2147483647, L"000\\ 00"), L"21474836 47");
  EXPECT_EQ(formats.Number(-11000, L"000\\ 00"), L"-110 00");
}

TEST(WindowsFormatsTest, WritesCounts) {
  WindowsFormats formats;
  EXPECT_EQ(formats.Number(0, L"#,##0"), L"0");
  EXPECT_EQ(formats.Number(999, L"#,##0"), L"999");
  EXPECT_EQ(formats.Number(1250, L"#,##0"), L"1\u00A0250");
  EXPECT_EQ(formats.Number(2147483647, L"#,##0"), L"2\u00A0147\u00A0483\u00A0647");
}

TEST(WindowsFormatsTest, WritesPageNumbers) {
  WindowsFormats formats;
  EXPECT_EQ(formats.Number(2, L"# \\z "), L"2 z ");
  EXPECT_EQ(formats.Number(5, L"#"), L"5");
  EXPECT_EQ(formats.Number(0, L"#"), L"");
}

TEST(WindowsClockTest, TellsTheMachinesTime) {
  // Around the turn of a second the clock may give either.
  for (int attempt = 0; attempt < 100; ++attempt) {
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    GetLocalTime(&before);
    const DateTime now = WindowsClock().Now();
    GetLocalTime(&after);
    if (before.wSecond != after.wSecond) continue;
    EXPECT_EQ(now, (DateTime{before.wYear, before.wMonth, before.wDay, before.wHour, before.wMinute, before.wSecond}));
    return;
  }
  FAIL() << "The second turned a hundred times.";
}

}  // namespace
}  // namespace kvez
