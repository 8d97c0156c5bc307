#include "forms/mouse_pointer.h"

#include <array>
#include <cstddef>

namespace kvez::forms {
namespace {

std::int16_t& CurrentShape() {
  static std::int16_t shape = kPointerDefault;
  return shape;
}

}  // namespace

HCURSOR SystemPointer(std::int16_t shape) {
  static const std::array<LPCWSTR, 16> names{
      nullptr,      IDC_ARROW,  IDC_CROSS,   IDC_IBEAM, IDC_ARROW, IDC_SIZEALL,     IDC_SIZENESW, IDC_SIZENS,
      IDC_SIZENWSE, IDC_SIZEWE, IDC_UPARROW, IDC_WAIT,  IDC_NO,    IDC_APPSTARTING, IDC_HELP,     IDC_SIZEALL};
  if (shape < 0 || static_cast<std::size_t>(shape) >= names.size()) return nullptr;
  const LPCWSTR name = names[static_cast<std::size_t>(shape)];
  return name == nullptr ? nullptr : LoadCursorW(nullptr, name);
}

void Screen::SetMousePointer(std::int16_t shape) {
  CurrentShape() = shape;
  const HCURSOR pointer = SystemPointer(shape);
  // The default comes back with the next movement, window by window; until then the arrow is right almost everywhere.
  SetCursor(pointer != nullptr ? pointer : LoadCursorW(nullptr, IDC_ARROW));
}

std::int16_t Screen::MousePointer() { return CurrentShape(); }

}  // namespace kvez::forms
