#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// What the search fields let through, as functions that need no window.

/// True for the characters that may be typed in PSČ mode: digits, Backspace and the blank.
bool IsPostalKey(int character);

/// True when a text may stay in a search field in PSČ mode: it is a number, blanks between its digits allowed as
/// Czech groups digits, or its first three and last two characters are one.
bool IsPostalText(std::wstring_view text);

/// The number at the beginning of a text as a text again, blanks within it ignored and leading zeros dropped:
/// "692 01" gives "69201". An empty text stays empty; a text that begins with no digit gives "0".
std::wstring NumericValueText(std::wstring_view text);

/// A text without the blanks around it.
std::wstring Trimmed(std::wstring_view text);

}  // namespace kvez
