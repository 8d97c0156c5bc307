#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvez {

/// What the search fields let through and how they are read, as functions that need no window. A blank is one of every
/// kind here: hard blanks, tabs and line ends come along with what was copied elsewhere.

/// True for the characters that may be typed in PSČ mode: digits, Backspace and the blank.
bool IsPostalKey(int character);

/// True when a text may stay in a search field in PSČ mode: it is a number, blanks around it and between its digits
/// allowed as Czech groups digits, or its first three and last two characters are one.
bool IsPostalText(std::wstring_view text);

/// The PSČ, or the beginning of one, that a search field holds, typed or pasted, as a number without leading zeros:
/// "692 01", "69201", " 692-01 " give "69201". Blanks count nowhere, nor does what stands between three and two digits.
/// Of any other text the number at its beginning counts, "0" when there is none. An empty text stays empty.
std::wstring ReadPostalCode(std::wstring_view text);

/// What is pasted in PSČ mode instead of `text`: it goes without the blanks around it, and without those within where
/// only so all of it finds room in `longest` characters.
std::wstring PostalTextToPaste(std::wstring_view text, std::size_t longest);

/// What is pasted in the other modes: the first line with something in it.
std::wstring NameToPaste(std::wstring_view text);

/// A text without the blanks around it.
std::wstring Trimmed(std::wstring_view text);

}  // namespace kvez
