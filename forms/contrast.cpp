#include "forms/contrast.h"

#include <algorithm>
#include <cmath>

namespace kvez::forms {
namespace {

double Luminance(COLORREF color) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) + 0.0722 * linear(GetBValue(color));
}

}  // namespace

double ContrastRatio(COLORREF first, COLORREF second) {
  const auto [darker, lighter] = std::minmax({Luminance(first), Luminance(second)});
  return (lighter + 0.05) / (darker + 0.05);
}

bool ReadsWell(COLORREF text, COLORREF background) { return ContrastRatio(text, background) >= 7; }

COLORREF ReadableOn(COLORREF background, std::initializer_list<COLORREF> wishes) {
  for (const COLORREF wish : wishes) {
    if (ReadsWell(wish, background)) return wish;
  }
  return *(wishes.end() - 1);
}

bool MakesRelief(COLORREF face, COLORREF highlight, COLORREF shadow) {
  // An ordinary Windows has 2.3; darker than a dark face there is nothing that far away.
  constexpr double kClearly = 2;
  const double light = Luminance(face);
  return Luminance(highlight) > light && Luminance(shadow) < light && ContrastRatio(face, shadow) >= kClearly;
}

}  // namespace kvez::forms
