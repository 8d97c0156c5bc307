#include "forms/text_ruler.h"

#include <algorithm>

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

void TextRuler::Measure(HFONT font) {
  const OwnedContext context(GetDC(nullptr));
  const ObjectSelection selection(context.Get(), font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(context.Get(), &metrics);
  m_overhang = static_cast<int>(metrics.tmOverhang);
  for (std::size_t i = 0; i < m_widths.size(); ++i) {
    const auto character = static_cast<wchar_t>(i);
    m_widths[i] = MeasuredWidth(context.Get(), {&character, 1}) - m_overhang;
  }
  m_measured = true;
}

int TextRuler::Width(std::wstring_view text, HFONT font) {
  if (text.empty()) return 0;
  const bool known = std::all_of(text.begin(), text.end(), [this](wchar_t c) { return c < m_widths.size(); });
  if (!known) {
    const OwnedContext context(GetDC(nullptr));
    const ObjectSelection selection(context.Get(), font);
    return MeasuredWidth(context.Get(), text);
  }
  if (!m_measured) Measure(font);
  int width = m_overhang;
  for (const wchar_t character : text) width += m_widths[character];
  return width;
}

}  // namespace kvez::forms
