#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kvez {

/// "Without regard to case": the capital letters of Windows-1250 become small ones, everything else stays as it is.
/// Diacritics stay: c is not č.
wchar_t FoldCase(wchar_t character);

/// The same for the bytes of the code page, by byte value.
const std::array<std::uint8_t, 256>& FoldTable1250();

bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b);

}  // namespace kvez
