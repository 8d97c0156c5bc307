#include "mainwindow/search_rules.h"

#include <algorithm>

namespace kvez {
namespace {

constexpr int kBackspace = 8;

bool IsDigit(int character) { return character >= L'0' && character <= L'9'; }

// Of every kind: what is copied from a page brings hard ones and narrow ones, a table tabs, a line its end.
constexpr std::wstring_view kLineEnds = L"\n\v\f\r\u0085\u2028\u2029";
constexpr std::wstring_view kBlanks =
    L" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u200B\u2028\u2029"
    L"\u202F\u205F\u2060\u3000\uFEFF";

bool IsBlank(wchar_t character) { return kBlanks.find(character) != std::wstring_view::npos; }

std::wstring WithoutBlanks(std::wstring_view text) {
  std::wstring rest(text);
  std::erase_if(rest, IsBlank);
  return rest;
}

bool IsNumber(std::wstring_view text) { return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit); }

// The digits that a text stands for in PSČ mode; empty when it stands for none.
std::wstring PostalDigits(std::wstring_view text) {
  std::wstring digits = WithoutBlanks(text);
  if (IsNumber(digits)) return digits;
  // Only the joined ends are tested on purpose: whatever stands fourth between three and two digits separates them.
  const std::wstring trimmed = Trimmed(text);
  digits = WithoutBlanks(trimmed.substr(0, 3) + trimmed.substr(trimmed.size() < 2 ? 0 : trimmed.size() - 2));
  return IsNumber(digits) ? digits : std::wstring();
}

}  // namespace

bool IsPostalKey(int character) { return IsDigit(character) || character == kBackspace || character == L' '; }

bool IsPostalText(std::wstring_view text) { return !PostalDigits(text).empty(); }

std::wstring ReadPostalCode(std::wstring_view text) {
  const std::wstring packed = WithoutBlanks(text);
  if (packed.empty()) return {};
  std::wstring digits = PostalDigits(text);
  if (digits.empty()) digits.assign(packed.begin(), std::find_if_not(packed.begin(), packed.end(), IsDigit));
  digits.erase(0, digits.find_first_not_of(L'0'));
  return digits.empty() ? L"0" : digits;
}

std::wstring PostalTextToPaste(std::wstring_view text, std::size_t longest) {
  std::wstring trimmed = Trimmed(text);
  if (trimmed.size() <= longest) return trimmed;
  std::wstring packed = WithoutBlanks(trimmed);
  return packed.size() <= longest && IsPostalText(packed) ? packed : trimmed;
}

std::wstring NameToPaste(std::wstring_view text) {
  const std::size_t lead = std::min(text.find_first_not_of(kBlanks), text.size());
  // A blank in front may be meant: the text may go in behind another word.
  const bool startsBelow = text.substr(0, lead).find_first_of(kLineEnds) != std::wstring_view::npos;
  const std::wstring_view rest = text.substr(startsBelow ? lead : 0);
  return std::wstring(rest.substr(0, rest.find_first_of(kLineEnds)));
}

std::wstring Trimmed(std::wstring_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::wstring_view::npos) return {};
  return std::wstring(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

}  // namespace kvez
