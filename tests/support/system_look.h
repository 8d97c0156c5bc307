#pragma once

#include <windows.h>

#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace kvez::test {

/// System colours: index (COLOR_...) and value.
using Palette = std::vector<std::pair<int, COLORREF>>;

/// What an ordinary Windows has.
inline const Palette kOrdinaryColors = {
    {COLOR_BTNFACE, RGB(240, 240, 240)},       {COLOR_BTNTEXT, RGB(0, 0, 0)},
    {COLOR_BTNHIGHLIGHT, RGB(255, 255, 255)},  {COLOR_3DLIGHT, RGB(227, 227, 227)},
    {COLOR_BTNSHADOW, RGB(160, 160, 160)},     {COLOR_3DDKSHADOW, RGB(105, 105, 105)},
    {COLOR_WINDOW, RGB(255, 255, 255)},        {COLOR_WINDOWTEXT, RGB(0, 0, 0)},
    {COLOR_GRAYTEXT, RGB(109, 109, 109)},      {COLOR_HIGHLIGHT, RGB(0, 120, 215)},
    {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255)}, {COLOR_HOTLIGHT, RGB(0, 102, 204)},
};

/// Two contrast themes as Windows brings them, a dark one and a light one.
inline const Palette kDarkContrast = {
    {COLOR_BTNFACE, RGB(0, 0, 0)},
    {COLOR_BTNTEXT, RGB(255, 255, 255)},
    {COLOR_BTNHIGHLIGHT, RGB(192, 192, 192)},
    {COLOR_3DLIGHT, RGB(255, 255, 255)},
    {COLOR_BTNSHADOW, RGB(128, 128, 128)},
    {COLOR_3DDKSHADOW, RGB(255, 255, 255)},
    {COLOR_WINDOW, RGB(0, 0, 0)},
    {COLOR_WINDOWTEXT, RGB(255, 255, 255)},
    {COLOR_WINDOWFRAME, RGB(255, 255, 255)},
    {COLOR_GRAYTEXT, RGB(63, 242, 63)},
    {COLOR_HIGHLIGHT, RGB(26, 235, 255)},
    {COLOR_HIGHLIGHTTEXT, RGB(0, 0, 0)},
    {COLOR_HOTLIGHT, RGB(255, 255, 0)},
};
inline const Palette kLightContrast = {
    {COLOR_BTNFACE, RGB(255, 255, 255)},      {COLOR_BTNTEXT, RGB(0, 0, 0)},
    {COLOR_BTNHIGHLIGHT, RGB(192, 192, 192)}, {COLOR_3DLIGHT, RGB(0, 0, 0)},
    {COLOR_BTNSHADOW, RGB(128, 128, 128)},    {COLOR_3DDKSHADOW, RGB(0, 0, 0)},
    {COLOR_WINDOW, RGB(255, 255, 255)},       {COLOR_WINDOWTEXT, RGB(0, 0, 0)},
    {COLOR_WINDOWFRAME, RGB(0, 0, 0)},        {COLOR_GRAYTEXT, RGB(96, 0, 0)},
    {COLOR_HIGHLIGHT, RGB(55, 0, 110)},       {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255)},
    {COLOR_HOTLIGHT, RGB(0, 0, 159)},
};

/// Gives the system these colours until the session ends, and tells all windows.
inline void SetSystemColors(const Palette& palette) {
  std::vector<int> indexes;
  std::vector<COLORREF> colors;
  for (const auto& [index, color] : palette) {
    indexes.push_back(index);
    colors.push_back(color);
  }
  SetSysColors(static_cast<int>(indexes.size()), indexes.data(), colors.data());
}

/// The system has these colours as long as the object lives, and tells all windows of the change both times.
class SystemColors {
 public:
  explicit SystemColors(const Palette& palette) {
    for (const auto& [index, color] : palette) m_before.emplace_back(index, GetSysColor(index));
    SetSystemColors(palette);
  }
  SystemColors(const SystemColors&) = delete;
  SystemColors& operator=(const SystemColors&) = delete;
  ~SystemColors() { SetSystemColors(m_before); }

 private:
  Palette m_before;
};

/// How far apart two colours are to the eye: 1 for equal ones to 21 for black and white. The formula is the one of the
/// guidelines for accessible web content.
inline double Contrast(COLORREF first, COLORREF second) {
  const auto luminance = [](COLORREF color) {
    const auto part = [](int value) {
      const double share = value / 255.0;
      return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(GetRValue(color)) + 0.7152 * part(GetGValue(color)) + 0.0722 * part(GetBValue(color));
  };
  const double one = luminance(first) + 0.05;
  const double other = luminance(second) + 0.05;
  return one > other ? one / other : other / one;
}

}  // namespace kvez::test
