#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/date_time.h"

namespace kvez {

/// Numbers and dates as texts by a picture, in the user's locale.
///
/// Pictures in use: numbers "000\ 00", "#,##0", "#", "# \z "; dates "d.mmmm yyyy", "dddd, d.mmmm yyyy HH:mm",
/// "dddd, d.mmmm yyyy \v H:mm", "dddd, d.m.yyyy", "H:mm". A backslash takes the next character as it stands.
class Formats {
 public:
  virtual ~Formats() = default;

  virtual std::wstring Number(std::int32_t value, std::wstring_view picture) = 0;
  virtual std::wstring Date(const DateTime& value, std::wstring_view picture) = 0;
};

}  // namespace kvez
