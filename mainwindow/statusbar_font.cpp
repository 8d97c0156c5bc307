#include "mainwindow/statusbar_font.h"

#include <iterator>

#include "forms/dpi.h"

namespace kvez {
namespace {

// One leading blank is what the centring gives it.
constexpr wchar_t kWidestDate[] = L" pondělí, 28.12.2026";

OwnedFont CreateFontOf(LOGFONTW description, int height) {
  description.lfHeight = -height;
  return OwnedFont(CreateFontIndirectW(&description));
}

int DateWidth(HFONT font) {
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
  const int smallest = MulDiv(8, scale, 72);
  const LOGFONTW description = forms::MessageFont(dpi);
  const int height =
      FittingFontHeight(-static_cast<int>(description.lfHeight), smallest, available,
                        [&](int candidate) { return DateWidth(CreateFontOf(description, candidate).Get()); });
  return CreateFontOf(description, height);
}

int FittingFontHeight(int height, int smallest, int available, const std::function<int(int)>& width) {
  while (height > smallest && width(height) > available) --height;
  return height;
}

}  // namespace kvez
