#include "forms/text_ruler.h"

#include <algorithm>
#include <cstdlib>

namespace kvez::forms {
namespace {

int MeasuredWidth(HDC context, std::wstring_view text) {
  SIZE size{};
  GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

}  // namespace

HDC TextRuler::Context() {
  if (!m_context) m_context.Reset(CreateCompatibleDC(nullptr));
  return m_context.Get();
}

int TextRuler::Measured(wchar_t character, HFONT font) {
  const ObjectSelection selection(Context(), font);
  if (m_overhang == kUnknown) {
    TEXTMETRICW metrics{};
    GetTextMetricsW(Context(), &metrics);
    m_overhang = static_cast<int>(metrics.tmOverhang);
  }
  return m_widths[character] = MeasuredWidth(Context(), {&character, 1}) - m_overhang;
}

int TextRuler::Width(std::wstring_view text, HFONT font) {
  if (text.empty()) return 0;
  int width = 0;
  for (const wchar_t character : text) {
    if (character >= m_widths.size()) {
      const ObjectSelection selection(Context(), font);
      return MeasuredWidth(Context(), text);
    }
    const int known = m_widths[character];
    width += known != kUnknown ? known : Measured(character, font);
  }
  return width + m_overhang;
}

void TextRuler::Forget() {
  m_widths.fill(kUnknown);
  m_overhang = kUnknown;
}

int LineHeight(HFONT font) {
  const OwnedMemoryContext context(CreateCompatibleDC(nullptr));
  const ObjectSelection selection(context.Get(), font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(context.Get(), &metrics);
  return static_cast<int>(metrics.tmHeight);
}

void FitLine(LOGFONTW& description, int lineHeight, int room) {
  if (lineHeight <= room) return;
  // Where a line grows evenly with its letters, the first one fits.
  for (int letters = MulDiv(std::abs(static_cast<int>(description.lfHeight)), room, lineHeight); letters > 0;
       --letters) {
    description.lfHeight = -letters;
    const OwnedFont font(CreateFontIndirectW(&description));
    if (LineHeight(font.Get()) <= room) return;
  }
}

}  // namespace kvez::forms
