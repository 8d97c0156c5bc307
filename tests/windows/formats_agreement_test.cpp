#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "platform/portable/portable_formats.h"
#include "platform/windows/windows_formats.h"

namespace kvez {
namespace {

// The core is tested on machines without the system's formatter: what stands in for it must write the same texts.
class FormatsAgreement : public ::testing::Test {
 protected:
  void CompareNumber(std::int32_t value) {
    for (const wchar_t* picture : {L"000\\ 00", L"#,##0", L"#", L"# \\z "}) {
      ASSERT_EQ(m_portable.Number(value, picture), m_windows.Number(value, picture)) << value << " as " << picture;
    }
  }
  void CompareDate(const DateTime& value) {
    for (const wchar_t* picture :
         {L"d.mmmm yyyy", L"dddd, d.mmmm yyyy HH:mm", L"dddd, d.mmmm yyyy \\v H:mm", L"dddd, d.m.yyyy", L"H:mm"}) {
      ASSERT_EQ(m_portable.Date(value, picture), m_windows.Date(value, picture))
          << value.day << "." << value.month << "." << value.year << " " << value.hour << ":" << value.minute << " as "
          << picture;
    }
  }

 private:
  PortableFormats m_portable;
  WindowsFormats m_windows;
};

TEST_F(FormatsAgreement, OnSmallNumbers) {
  for (std::int32_t value = -1100; value <= 11000; ++value) ASSERT_NO_FATAL_FAILURE(CompareNumber(value));
}

TEST_F(FormatsAgreement, OnNumbersOfEveryLength) {
  for (std::int64_t power = 1; power <= 1000000000; power *= 10) {
    for (const std::int64_t value : {power - 1, power, power + 1, 2 * power, power + power / 2}) {
      ASSERT_NO_FATAL_FAILURE(CompareNumber(static_cast<std::int32_t>(value)));
      ASSERT_NO_FATAL_FAILURE(CompareNumber(static_cast<std::int32_t>(-value)));
    }
  }
  CompareNumber(std::numeric_limits<std::int32_t>::max());
  CompareNumber(std::numeric_limits<std::int32_t>::min());
}

TEST_F(FormatsAgreement, OnEveryDayOfFourYears) {
  const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int year = 2024; year <= 2027; ++year) {
    for (int month = 1; month <= 12; ++month) {
      const int leapDay = year == 2024 && month == 2 ? 1 : 0;
      for (int day = 1; day <= lengths[month - 1] + leapDay; ++day) {
        ASSERT_NO_FATAL_FAILURE(CompareDate({year, month, day, day % 24, (day * 7) % 60, day}));
      }
    }
  }
}

TEST_F(FormatsAgreement, OnEveryMinuteOfADay) {
  for (int minute = 0; minute < 1440; ++minute) {
    ASSERT_NO_FATAL_FAILURE(CompareDate({2026, 11, 16, minute / 60, minute % 60, 59}));
  }
}

TEST_F(FormatsAgreement, OnDatesThatFilesCanHave) {
  CompareDate({1980, 1, 1, 0, 0, 0});
  CompareDate({1601, 1, 1, 0, 0, 0});
  CompareDate({1899, 12, 29, 6, 0, 0});  // before day 0 of the system's count of days
  CompareDate({1899, 12, 30, 0, 0, 0});
  CompareDate({2099, 12, 31, 23, 59, 59});
  CompareDate({});
}

}  // namespace
}  // namespace kvez
