#pragma once

#include <windows.h>

#include <cstdint>

#include "forms/boolean.h"

namespace kvez {

using forms::Boolean;

/// The edge argument of DrawEdge.
UINT GetEdgeStyle(std::int32_t DEBorder, Boolean DEMove, Boolean IsDown);

/// The flags argument of DrawEdge.
UINT GetEdgeFlags(std::int32_t DEBorder, Boolean DEMove);

/// Half of a length, to the nearest whole number, halves to the even one: 31 gives 16, 29 gives 14. Throws
/// OverflowError when `total - part` does not fit into 32 bits.
std::int32_t HalfOfRest(std::int32_t total, std::int32_t part);

/// `area` shrunk on all sides so that a text of this size lies in its middle.
RECT CenteredText(const RECT& area, SIZE text);

/// The place of the caption in a button that is held down.
RECT ShiftedByOne(const RECT& area);

}  // namespace kvez
