#include "mainwindow/statusbar_font.h"

#include <iterator>

#include "forms/dpi.h"

namespace kvez {
namespace {

// One leading blank is what the centring gives it.
constexpr wchar_t kWidestDate[] = L" pondělí, 28.12.2026";

int Width(HFONT font) {
  const OwnedMemoryContext context(CreateCompatibleDC(nullptr));
  const ObjectSelection selection(context.Get(), font);
  SIZE size{};
  GetTextExtentPoint32W(context.Get(), kWidestDate, static_cast<int>(std::size(kWidestDate)) - 1, &size);
  return size.cx;
}

}  // namespace

OwnedFont StatusBarFont(unsigned dpi) {
  const int scale = static_cast<int>(dpi);
  // The date panel's 108 pixels less its borders and the gap before the text.
  const int available = MulDiv(102, scale, 96);
  const int smallest = MulDiv(9, scale, 96);
  LOGFONTW description = forms::MessageFont(dpi);
  OwnedFont font(CreateFontIndirectW(&description));
  while (Width(font.Get()) > available && -description.lfHeight > smallest) {
    ++description.lfHeight;
    font.Reset(CreateFontIndirectW(&description));
  }
  return font;
}

}  // namespace kvez
