#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/formats.h"

namespace kvez {

/// How a postal code is shown: 110 00, with its leading zeros.
inline constexpr std::wstring_view kCodePicture = L"000\\ 00";

/// A whole number in digit groups.
std::wstring GroupedNumber(Formats& formats, std::int32_t number);

/// "1 obec", "4 obce", "1 204 obcí".
std::wstring CountOfMunicipalities(Formats& formats, std::int32_t count);

/// The sentences for 1, for 2 to 4, and for more. The count stands between the two halves of the last two.
struct CountSentences {
  std::wstring_view one;
  std::wstring_view fewBefore, fewAfter;
  std::wstring_view manyBefore, manyAfter;
};

/// Where `cursor` stands among `count` elements: an empty list, the row of the cursor, or the count alone.
std::wstring StatusText(Formats& formats, std::int32_t count, std::int32_t cursor, const CountSentences& sentences);

}  // namespace kvez
