#include "forms/pointer.h"

namespace kvez::forms {

bool Pointer::HasMovedTo(POINT screen) {
  const bool moved = screen.x != s_last.x || screen.y != s_last.y;
  s_last = screen;
  return moved;
}

}  // namespace kvez::forms
