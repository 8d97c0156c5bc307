#include "forms/access_key.h"

#include <windows.h>

namespace kvez::forms {
namespace {

wchar_t Upper(wchar_t character) {
  // A pointer whose high part is 0 is taken for a single character.
  return static_cast<wchar_t>(
      reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(character)))));
}

}  // namespace

wchar_t AccessKeyOf(std::wstring_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != L'&') continue;
    if (caption[i + 1] != L'&') return caption[i + 1];
    ++i;
  }
  return 0;
}

bool IsSameLetter(wchar_t first, wchar_t second) { return first != 0 && second != 0 && Upper(first) == Upper(second); }

std::wstring WithoutAccessKeys(std::wstring_view caption) {
  std::wstring text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == L'&' && ++i == caption.size()) break;
    text += caption[i];
  }
  return text;
}

}  // namespace kvez::forms
