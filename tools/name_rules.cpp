#include "tools/name_rules.h"

#include <algorithm>

#include "database/name_keys.h"
#include "database/name_normalisation.h"
#include "database/name_pattern.h"
#include "database/name_text.h"
#include "text/fold.h"
#include "text/windows1250.h"
#include "tools/tool.h"

namespace kvez {
namespace {

constexpr wchar_t kNoBreakSpace = 0xA0;

bool IsBlank(wchar_t character) { return character == L' ' || character == kNoBreakSpace; }

}  // namespace

std::string NameFault(std::wstring_view name) {
  if (name.empty()) return "is empty";
  if (std::all_of(name.begin(), name.end(), IsBlank)) return "is blank";
  for (const wchar_t character : name) {
    if (IsControl(character)) return "has the control character " + HexByte(static_cast<std::uint8_t>(character));
    if (IsWildcard(character)) return "has the wildcard " + InApostrophes(std::wstring_view(&character, 1));
  }
  return {};
}

std::wstring ComparedName(std::wstring_view name) {
  std::wstring compared(name);
  std::transform(compared.begin(), compared.end(), compared.begin(), FoldCase);
  return compared;
}

std::wstring SearchedName(std::wstring_view name) { return FromWindows1250(NormalisedName(ToWindows1250(name))); }

bool Finds(std::wstring_view typed, std::wstring_view name) {
  NameKeys row;
  row.Append(ToWindows1250(name));
  return !row.Find({NameMode::Whole, std::wstring(typed), {}}).empty();
}

}  // namespace kvez
