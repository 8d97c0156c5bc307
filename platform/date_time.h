#pragma once

namespace kvez {

/// A calendar date and a time of day in local time, to the second. All zero means "no date".
struct DateTime {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend bool operator==(const DateTime&, const DateTime&) = default;
};

}  // namespace kvez
