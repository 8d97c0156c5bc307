#include "forms/text_ruler.h"

#include "platform/windows/owned.h"

namespace kvez::forms {
namespace {

using OwnedContext = Owned<HDC, [](HDC context) { ReleaseDC(nullptr, context); }>;

int MeasuredWidth(HDC context, std::wstring_view text) {
  SIZE size{};
  GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

}  // namespace

int TextRuler::Measured(wchar_t character, HFONT font) {
  const OwnedContext context(GetDC(nullptr));
  const ObjectSelection selection(context.Get(), font);
  if (m_overhang == kUnknown) {
    TEXTMETRICW metrics{};
    GetTextMetricsW(context.Get(), &metrics);
    m_overhang = static_cast<int>(metrics.tmOverhang);
  }
  return m_widths[character] = MeasuredWidth(context.Get(), {&character, 1}) - m_overhang;
}

int TextRuler::Width(std::wstring_view text, HFONT font) {
  if (text.empty()) return 0;
  int width = 0;
  for (const wchar_t character : text) {
    if (character >= m_widths.size()) {
      const OwnedContext context(GetDC(nullptr));
      const ObjectSelection selection(context.Get(), font);
      return MeasuredWidth(context.Get(), text);
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

}  // namespace kvez::forms
