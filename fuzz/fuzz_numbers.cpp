// Any text as a number: what a plain reading makes of it, or the error of a text that is none or does not fit.

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "text/error.h"
#include "text/numeric_text.h"
#include "text/windows1250.h"
#include "tools/tables.h"

namespace kvez {
namespace {

/// A decimal number of any length, as a person compares it: the sign, then the digits without leading zeros.
struct Plain {
  bool negative = false;
  std::wstring digits;
};

std::optional<Plain> Read(std::wstring text, std::wstring_view around) {
  text.erase(0, std::min(text.find_first_not_of(around), text.size()));
  text.erase(text.find_last_not_of(around) + 1);
  Plain plain;
  if (!text.empty() && (text.front() == L'+' || text.front() == L'-')) {
    plain.negative = text.front() == L'-';
    text.erase(0, 1);
  }
  if (text.empty() || text.find_first_not_of(L"0123456789") != std::wstring::npos) return std::nullopt;
  text.erase(0, std::min(text.find_first_not_of(L'0'), text.size()));
  plain.digits = text;
  return plain;
}

bool Fits(const Plain& number, const std::wstring& greatest, const std::wstring& least) {
  const std::wstring& limit = number.negative ? least : greatest;
  if (number.digits.size() != limit.size()) return number.digits.size() < limit.size();
  return number.digits <= limit;
}

/// How the number is written.
std::wstring Text(const Plain& number) {
  if (number.digits.empty()) return L"0";
  return (number.negative ? L"-" : L"") + number.digits;
}

template <class Integer>
void CheckConversion(Integer (*convert)(std::wstring_view), const std::wstring& text, const std::wstring& greatest,
                     const std::wstring& least) {
  const auto plain = Read(text, L" \t");
  try {
    const std::wstring number = std::to_wstring(convert(text));
    Require(plain.has_value(), "only a numeric text becomes a number");
    Require(Fits(*plain, greatest, least), "only a number that fits is one");
    Require(number == Text(*plain), "the number is the one that stands there");
  } catch (const ConversionError& error) {
    Require(!plain || !Fits(*plain, greatest, least), "a number that fits is no error");
    Require(error.Text().find(text) != std::wstring::npos, "the error shows the text");
  }
}

void CheckCodes(const std::wstring& text) {
  const bool digits = text.find_first_not_of(L"0123456789") == std::wstring::npos;
  const auto postal = ParsePostalCode(text);
  Require(postal.has_value() == (digits && text.size() == 5), "five digits are a postal code");
  if (postal) Require(PostalCodeText(*postal) == text, "a postal code is written as it is read");

  // A code has nothing around it and no plus.
  const auto plain = text.starts_with(L'+') ? std::nullopt : Read(text, L"");
  const auto district = ParseDistrictCode(text);
  Require(district.has_value() == (plain && Fits(*plain, L"32767", L"")), "a district code is from 0 to 32767");
  if (district) Require(std::to_wstring(*district) == Text(*plain), "a district code is the one that stands there");
}

void Check(const std::wstring& text) {
  Require(IsNumericText(text) == Read(text, L" \t").has_value(), "a numeric text is one for the plain reading too");
  CheckConversion(&ToInt32, text, L"2147483647", L"2147483648");
  CheckConversion(&ToInt16, text, L"32767", L"32768");
  CheckCodes(text);
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvez::Check(kvez::FromWindows1250(std::span(data, size)));
  return 0;
}
