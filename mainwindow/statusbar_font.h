#pragma once

#include <functional>

#include "platform/windows/owned.h"

namespace kvez {

/// The user's font for messages, made a little smaller where the widest date would be cut: the date panel has a fixed
/// width. Never below 8 points, where reading the messages would become harder than guessing a digit.
OwnedFont StatusBarFont(unsigned dpi);

/// The largest height from `height` down to `smallest` whose text is at most `available` wide; `smallest` when none is.
/// Pixels.
int FittingFontHeight(int height, int smallest, int available, const std::function<int(int height)>& width);

}  // namespace kvez
