#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvez {

/// The code page of the data files, whatever the machine's own is.
wchar_t FromWindows1250(std::uint8_t byte);
std::wstring FromWindows1250(std::span<const std::uint8_t> bytes);
std::wstring FromWindows1250(std::string_view bytes);
/// The same into a text that may have room for it already.
void FromWindows1250(std::string_view bytes, std::wstring& text);

/// The byte of one character, or nothing when the code page lacks it.
std::optional<std::uint8_t> ToWindows1250(wchar_t character);

/// The bytes of a text; `replacement` stands for each character that the code page lacks.
std::string ToWindows1250(std::wstring_view text, char replacement = '?');

}  // namespace kvez
