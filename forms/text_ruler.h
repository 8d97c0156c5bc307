#pragma once

#include <windows.h>

#include <array>
#include <climits>
#include <string_view>

#include "platform/windows/owned.h"

namespace kvez::forms {

/// Widths of texts in one font. Quick start: measuring ten thousand names one by one takes longer than filling a list
/// with them; a sum over a table of characters gives the very same widths, because the device does not kern.
class TextRuler {
 public:
  TextRuler() { Forget(); }

  /// The width in pixels, as GetTextExtentPoint32W gives it.
  int Width(std::wstring_view text, HFONT font);

  /// The font has changed: what is known of the old one is forgotten.
  void Forget();

 private:
  static constexpr int kUnknown = INT_MIN;

  HDC Context();
  int Measured(wchar_t character, HFONT font);

  // One for all measurements: a list needs some eighty of them, and fetching the screen's context for each takes longer
  // than measuring.
  OwnedMemoryContext m_context;
  // Latin letters, all Czech ones among them, each measured when it first comes: a list needs a quarter of them. Texts
  // with others are measured as a whole.
  std::array<int, 0x180> m_widths{};
  // What emboldened or slanted bitmap fonts add to a text once, however long it is.
  int m_overhang = kUnknown;
};

/// The height of a line in a font, in pixels.
int LineHeight(HFONT font);

/// Lowers `description` until a line of it is no higher than `room` pixels. `lineHeight` is that of the font as it is.
void FitLine(LOGFONTW& description, int lineHeight, int room);

}  // namespace kvez::forms
