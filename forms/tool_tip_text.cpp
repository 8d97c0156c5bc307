#include "forms/tool_tip_text.h"

#include <algorithm>

namespace kvez::forms {
namespace {

// Longer than any sentence of the program; what is longer comes from damaged or foreign data.
constexpr std::size_t kMostCharacters = 400;

bool IsBlank(wchar_t character) { return character == L' ' || character == L'\r' || character == L'\n'; }

// How many characters of a word fit into the width: one at least, or there would be no end.
std::size_t Fitting(std::wstring_view word, int width, const std::function<int(std::wstring_view)>& measure) {
  std::size_t count = 1;
  while (count < word.size() && measure(word.substr(0, count + 1)) <= width) ++count;
  return count;
}

}  // namespace

std::wstring FitToolTip(std::wstring_view text, int width, const std::function<int(std::wstring_view)>& measure) {
  const bool isCut = text.size() > kMostCharacters;
  text = text.substr(0, kMostCharacters);
  std::wstring fitting;
  while (!text.empty()) {
    const auto blank = std::find_if(text.begin(), text.end(), IsBlank);
    std::wstring_view word = text.substr(0, static_cast<std::size_t>(blank - text.begin()));
    text.remove_prefix(word.size());
    while (measure(word) > width && word.size() > 1) {
      const std::size_t count = Fitting(word, width, measure);
      fitting.append(word.substr(0, count)).append(L"\r\n");
      word.remove_prefix(count);
    }
    fitting.append(word);
    const auto next = std::find_if_not(text.begin(), text.end(), IsBlank);
    const auto blanks = static_cast<std::size_t>(next - text.begin());
    fitting.append(text.substr(0, blanks));
    text.remove_prefix(blanks);
  }
  if (isCut) fitting.append(L"…");
  return fitting;
}

}  // namespace kvez::forms
