#include "text/numeric_text.h"

#include <algorithm>
#include <limits>
#include <string>

#include "text/error.h"
#include "text/quoted.h"

namespace kvez {
namespace {

bool IsBlank(wchar_t character) { return character == L' ' || character == L'\t'; }
bool IsDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }
bool IsSign(wchar_t character) { return character == L'+' || character == L'-'; }

std::wstring_view WithoutBlanks(std::wstring_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::int64_t ToInteger(std::wstring_view text, std::int64_t least, std::int64_t greatest) {
  if (!IsNumericText(text)) throw ConversionError(L"Text " + Quoted(text) + L" není celé číslo.");
  std::wstring_view digits = WithoutBlanks(text);
  const bool negative = digits.front() == L'-';
  if (IsSign(digits.front())) digits.remove_prefix(1);
  std::int64_t value = 0;
  for (const wchar_t digit : digits) {
    value = value * 10 + (digit - L'0');
    // Once out of range, always out of range; stopping here keeps the sum from overflowing.
    if (value > greatest + 1) break;
  }
  if (negative) value = -value;
  if (value < least || value > greatest) throw ConversionError(L"Číslo " + Quoted(text) + L" je mimo povolený rozsah.");
  return value;
}

template <class Integer>
Integer ToIntegerOf(std::wstring_view text) {
  using Limits = std::numeric_limits<Integer>;
  return static_cast<Integer>(ToInteger(text, Limits::min(), Limits::max()));
}

}  // namespace

bool IsNumericText(std::wstring_view text) {
  std::wstring_view digits = WithoutBlanks(text);
  if (!digits.empty() && IsSign(digits.front())) digits.remove_prefix(1);
  return !digits.empty() && std::all_of(digits.begin(), digits.end(), IsDigit);
}

std::int32_t ToInt32(std::wstring_view text) { return ToIntegerOf<std::int32_t>(text); }
std::int16_t ToInt16(std::wstring_view text) { return ToIntegerOf<std::int16_t>(text); }

}  // namespace kvez
