#pragma once

#include <windows.h>

#include <cstdint>

namespace kvez::forms {

/// Pointer shapes by their numbers in the design.
constexpr std::int16_t kPointerDefault = 0;
constexpr std::int16_t kPointerHourglass = 11;
constexpr std::int16_t kPointerCustom = 99;

/// The system's pointer for a shape; null for the default, for a custom one and for unknown numbers.
HCURSOR SystemPointer(std::int16_t shape);

/// What belongs to the whole screen.
class Screen {
 public:
  /// The pointer of all windows of the program, at once; kPointerDefault gives every window its own back.
  static void SetMousePointer(std::int16_t shape);
  static std::int16_t MousePointer();
};

}  // namespace kvez::forms
