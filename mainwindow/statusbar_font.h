#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/formats.h"
#include "platform/windows/owned.h"

namespace kvez {

/// What the clock's panels show at their longest in the user's locale: an hour of two digits, and each weekday with a
/// day and a month of two. The digits stand for whichever are the widest.
struct LongestClockTexts {
  explicit LongestClockTexts(Formats& formats);

  std::wstring time;
  std::vector<std::wstring> dates;
};

/// The user's font for messages, made a little smaller where the widest date would be cut at the date panel's usual
/// width. Never below 8 points, where reading the messages would become harder than guessing a digit.
OwnedFont StatusBarFont(unsigned dpi, const LongestClockTexts& texts);

/// The right edges of the time panel and of the date panel, in pixels: the usual ones, and further to the right where a
/// text would be cut in this font.
std::array<int, 2> ClockPanelEdges(unsigned dpi, HFONT font, const LongestClockTexts& texts);

/// The largest height from `height` down to `smallest` whose text is at most `available` wide; `smallest` when none is.
/// Pixels.
int FittingFontHeight(int height, int smallest, int available, const std::function<int(int height)>& width);

}  // namespace kvez
