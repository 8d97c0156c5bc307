#include "controls/button_rules.h"

#include <limits>

#include "text/error.h"

namespace kvez {
namespace {

std::int32_t Checked(std::int64_t value) {
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    throw OverflowError();
  }
  return static_cast<std::int32_t>(value);
}

std::int64_t HalfToEven(std::int64_t value) {
  std::int64_t half = value / 2;  // towards zero
  if (value % 2 != 0 && half % 2 != 0) half += value > 0 ? 1 : -1;
  return half;
}

}  // namespace

UINT GetEdgeStyle(std::int32_t DEBorder, Boolean DEMove, Boolean IsDown) {
  switch (DEBorder) {
    case 0:
      if (IsDown.IsTrue()) return BDR_SUNKENOUTER;
      return DEMove.IsTrue() ? BDR_RAISEDINNER : BDR_RAISEDOUTER;
    case 1:
      return IsDown.IsTrue() ? EDGE_SUNKEN : EDGE_RAISED;
    case 2:
      return IsDown.IsTrue() ? BDR_SUNKENOUTER : BDR_RAISEDINNER;
    default:
      return 0;
  }
}

UINT GetEdgeFlags(std::int32_t DEBorder, Boolean DEMove) {
  switch (DEBorder) {
    case 0:
      return DEMove.IsTrue() ? UINT{BF_RECT} : UINT{BF_RECT | BF_SOFT};
    case 1:
      return BF_RECT | BF_SOFT;
    case 2:
      return BF_RECT;
    default:
      return 0;
  }
}

std::int32_t HalfOfRest(std::int32_t total, std::int32_t part) {
  return Checked(HalfToEven(Checked(std::int64_t{total} - part)));
}

RECT CenteredText(const RECT& area, SIZE text) {
  const std::int32_t dx = HalfOfRest(area.right, text.cx);
  const std::int32_t dy = HalfOfRest(area.bottom, text.cy);
  return {Checked(std::int64_t{area.left} + dx), Checked(std::int64_t{area.top} + dy),
          Checked(std::int64_t{area.right} - dx), Checked(std::int64_t{area.bottom} - dy)};
}

RECT ShiftedByOne(const RECT& area) {
  RECT shifted = area;
  OffsetRect(&shifted, 1, 1);
  return shifted;
}

}  // namespace kvez
