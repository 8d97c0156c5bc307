#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvez {

/// The bytes of a text in the system's 8-bit code page, for calls named with an A at their end and for text files.
/// A character that the code page lacks becomes its default character.
std::string ToSystemCodePage(std::wstring_view text);

/// The same, or nothing when a character would be lost: for paths, where a replaced letter names another file.
std::optional<std::string> ToSystemCodePageExactly(std::wstring_view text);

/// A text from the system's 8-bit code page.
std::wstring FromSystemCodePage(std::string_view bytes);

}  // namespace kvez
