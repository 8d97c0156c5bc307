#pragma once

#include <windows.h>

#include <cstdint>

namespace kvez::forms {

/// The Shift, Ctrl and Alt keys of the message that is being handled.
std::int16_t ShiftState();

/// True in the lParam of a key's message when the key was down before: it is held.
inline bool IsRepeated(LPARAM lParam) { return (HIWORD(lParam) & KF_REPEAT) != 0; }

/// The mouse buttons in the wParam of a mouse message.
std::int16_t HeldButtons(WPARAM wParam);

/// A character's code in the system's 8-bit code page, 63 ("?") or a look-alike when the code page lacks it; and back.
std::int16_t ToKeyAscii(wchar_t character);
wchar_t FromKeyAscii(std::int16_t keyAscii);

}  // namespace kvez::forms
