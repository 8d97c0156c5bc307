#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// Whether a character is no letter, no sign and no blank but steers whoever shows it: NUL, TAB, line ends, and what
/// stands for the unassigned bytes of Windows-1250.
constexpr bool IsControl(wchar_t character) { return character < L' ' || (character >= 0x7F && character < 0xA0); }

/// A stored name as it is kept. Files come from anywhere, and a control character in a name would end the clipboard's
/// text, split a line of the list text or overlap the status bar: it reads as a blank. The result is `name` itself, or
/// a view of `copy` when the name had to change.
std::string_view WithoutControls(std::string_view name, std::string& copy);

}  // namespace kvez
