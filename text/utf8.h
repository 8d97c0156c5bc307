#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvez {

/// UTF-8 of a text. Half of a surrogate pair becomes the replacement character.
std::string ToUtf8(std::wstring_view text);

/// The text of UTF-8 bytes, or nothing when they are not well formed (overlong forms and surrogates included).
std::optional<std::wstring> FromUtf8(std::string_view bytes);

}  // namespace kvez
