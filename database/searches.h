#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/municipality_list.h"
#include "database/name_pattern.h"
#include "database/records.h"
#include "platform/formats.h"

namespace kvez {

/// What a search finds: 1-based positions in list order, and the line that says what was searched for.
struct SearchResult {
  std::vector<tpclspsc> positions;
  std::wstring description;
};

/// The municipalities with one code.
SearchResult FindCode(const MunicipalityList& list, std::int32_t code, Formats& formats);
/// The municipalities whose codes, written without leading zeros, begin with what was typed.
SearchResult FindCodesBeginning(const MunicipalityList& list, const std::wstring& typed);
/// The code that was typed, as its digits: "110 00" is "11000".
std::wstring NormalisedCode(const std::wstring& typed);

SearchResult FindName(const MunicipalityList& list, const NamePattern& pattern);
/// The municipalities of a district, without regard to case.
SearchResult FindDistrict(const MunicipalityList& list, const std::wstring& district);

}  // namespace kvez
