#include "settings/boolean_text.h"

#include <algorithm>
#include <string>

#include "text/error.h"

namespace kvez {
namespace {

constexpr std::wstring_view kTrue = L"True";
constexpr std::wstring_view kFalse = L"False";

wchar_t LowerAscii(wchar_t character) {
  return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

bool EqualsWithoutCase(std::wstring_view left, std::wstring_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](wchar_t a, wchar_t b) { return LowerAscii(a) == LowerAscii(b); });
}

}  // namespace

std::wstring_view BooleanText(bool value) { return value ? kTrue : kFalse; }

bool BooleanFromText(std::wstring_view text) {
  if (EqualsWithoutCase(text, kTrue)) return true;
  if (EqualsWithoutCase(text, kFalse)) return false;
  throw ConversionError(L"Uložená hodnota „" + std::wstring(text) + L"“ není True ani False.");
}

}  // namespace kvez
