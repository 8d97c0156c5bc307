#pragma once

#include <cstdint>
#include <functional>

namespace kvez::forms {

/// Shift states of the keyboard and mouse events, added together.
constexpr std::int16_t kShiftMask = 1;
constexpr std::int16_t kCtrlMask = 2;
constexpr std::int16_t kAltMask = 4;

/// Mouse buttons; MouseMove gives the sum of those that are held.
constexpr std::int16_t kLeftButton = 1;
constexpr std::int16_t kRightButton = 2;
constexpr std::int16_t kMiddleButton = 4;

using PlainEvent = std::function<void()>;
/// KeyCode is the virtual key; set to 0, the control does not see the key.
using KeyEvent = std::function<void(std::int16_t& KeyCode, std::int16_t Shift)>;
/// KeyAscii is the character in the system's 8-bit code page; set to 0, the character is swallowed, set to another
/// value, that character takes its place. An unchanged one reaches the control exactly as it was typed.
using KeyPressEvent = std::function<void(std::int16_t& KeyAscii)>;
/// X and Y are twips in the control.
using MouseEvent = std::function<void(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y)>;

}  // namespace kvez::forms
