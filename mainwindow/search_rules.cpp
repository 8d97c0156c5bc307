#include "mainwindow/search_rules.h"

#include <algorithm>

namespace kvez {
namespace {

constexpr int kBackspace = 8;

bool IsDigit(int character) { return character >= L'0' && character <= L'9'; }

std::wstring WithoutBlanks(std::wstring_view text) {
  std::wstring rest(text);
  std::erase(rest, L' ');
  return rest;
}

bool IsGroupedNumber(std::wstring_view text) {
  const std::wstring digits = WithoutBlanks(text);
  return !digits.empty() && std::all_of(digits.begin(), digits.end(), IsDigit);
}

}  // namespace

bool IsPostalKey(int character) { return IsDigit(character) || character == kBackspace || character == L' '; }

bool IsPostalText(std::wstring_view text) {
  if (IsGroupedNumber(text)) return true;
  // Only the joined ends are tested on purpose: whatever stands fourth between three and two digits stays.
  const std::wstring_view start = text.substr(0, 3);
  const std::wstring_view end = text.substr(text.size() < 2 ? 0 : text.size() - 2);
  return IsGroupedNumber(std::wstring(start).append(end));
}

std::wstring NumericValueText(std::wstring_view text) {
  if (Trimmed(text).empty()) return {};
  const std::wstring packed = WithoutBlanks(text);
  const auto end = std::find_if_not(packed.begin(), packed.end(), IsDigit);
  const auto firstNonZero = std::find_if(packed.begin(), end, [](wchar_t digit) { return digit != L'0'; });
  return firstNonZero == end ? L"0" : std::wstring(firstNonZero, end);
}

std::wstring Trimmed(std::wstring_view text) {
  const auto first = text.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return std::wstring(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

}  // namespace kvez
