#pragma once

#include <cstdint>
#include <string_view>

namespace kvez {

/// True for decimal digits with at most one sign before them and blanks around. Separators, exponents and prefixes
/// make a text non-numeric. A number too large for any type is still numeric.
bool IsNumericText(std::wstring_view text);

/// The number that `text` says. Throws ConversionError when it is not numeric or does not fit.
std::int32_t ToInt32(std::wstring_view text);
std::int16_t ToInt16(std::wstring_view text);

}  // namespace kvez
