#pragma once

#include "platform/formats.h"

namespace kvez {

/// Texts as the system's own formatter makes them, with the user's locale.
class WindowsFormats : public Formats {
 public:
  std::wstring Number(std::int32_t value, std::wstring_view picture) override;

  /// A value that is no date (all zero, 30 February) gives an empty text.
  std::wstring Date(const DateTime& value, std::wstring_view picture) override;
};

}  // namespace kvez
