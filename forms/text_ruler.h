#pragma once

#include <windows.h>

#include <array>
#include <string_view>

namespace kvez::forms {

/// Widths of texts in one font. Measuring ten thousand names one by one takes longer than filling a list with them; a
/// sum over a table of characters gives the very same widths, because the device does not kern.
class TextRuler {
 public:
  /// The width in pixels, as GetTextExtentPoint32W gives it.
  int Width(std::wstring_view text, HFONT font);

  /// The font has changed: the table is measured anew when it is needed.
  void Forget() { m_measured = false; }

 private:
  void Measure(HFONT font);

  // Latin letters, all Czech ones among them. Texts with others are measured as a whole.
  std::array<int, 0x180> m_widths{};
  // What emboldened or slanted bitmap fonts add to a text once, however long it is.
  int m_overhang = 0;
  bool m_measured = false;
};

}  // namespace kvez::forms
