#include "database/searches.h"

#include <array>
#include <charconv>

#include "database/status_text.h"
#include "text/fold.h"
#include "text/numeric_text.h"
#include "text/quoted.h"

namespace kvez {
namespace {

// Codes are compared as they are written, without leading zeros.
bool CodeBeginsWith(std::int32_t code, std::wstring_view beginning) {
  std::array<char, 12> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), code).ptr;
  const std::string_view written(digits.data(), static_cast<std::size_t>(end - digits.data()));
  return written.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), written.begin(),
                    [](wchar_t a, char b) { return a == static_cast<wchar_t>(b); });
}

template <class Matches>
std::vector<tpclspsc> PositionsOf(const MunicipalityList& list, Matches matches) {
  std::vector<tpclspsc> positions;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (!matches(i)) continue;
    tpclspsc position;
    position.tpPozice(static_cast<std::int32_t>(i) + 1);
    positions.push_back(position);
  }
  return positions;
}

}  // namespace

std::wstring NormalisedCode(const std::wstring& typed) {
  if (IsNumericText(typed)) return typed;
  // What stands between the first three and the last two characters goes.
  const std::size_t lastTwo = typed.size() < 2 ? 0 : typed.size() - 2;
  return typed.substr(0, 3) + typed.substr(lastTwo);
}

SearchResult FindCode(const MunicipalityList& list, std::int32_t code, Formats& formats) {
  std::wstring description = L"Hledané obce s PSČ " + Quoted(formats.Number(code, kCodePicture)) + L".";
  return {PositionsOf(list, [&](std::size_t i) { return list.Code(i) == code; }), std::move(description)};
}

SearchResult FindCodesBeginning(const MunicipalityList& list, const std::wstring& typed) {
  const std::wstring beginning = NormalisedCode(typed);
  // The two spaces are meant so, and the text stands as it was typed.
  return {PositionsOf(list, [&](std::size_t i) { return CodeBeginsWith(list.Code(i), beginning); }),
          L"Obce s PSČ začínající na  " + Quoted(typed) + L"."};
}

SearchResult FindName(const MunicipalityList& list, const NamePattern& pattern) {
  return {list.Keys().Find(pattern), DescribeNamePattern(pattern)};
}

SearchResult FindDistrict(const MunicipalityList& list, const std::wstring& district) {
  // Each name is compared once; two districts of the list can differ in case only.
  const std::vector<std::wstring>& names = list.Districts();
  std::vector<bool> matches(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) matches[i] = EqualIgnoringCase(names[i], district);
  return {PositionsOf(list, [&](std::size_t i) { return matches[list.DistrictIndex(i)]; }),
          L"Obce v okrese " + Quoted(district) + L"."};
}

}  // namespace kvez
