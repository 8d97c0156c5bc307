#pragma once

#include <string_view>

namespace kvez {

/// The stored text of a truth value: "True" or "False", whatever the user's language.
std::wstring_view BooleanText(bool value);

/// The truth value of such a text, without regard to case. Throws ConversionError for any other text.
bool BooleanFromText(std::wstring_view text);

}  // namespace kvez
