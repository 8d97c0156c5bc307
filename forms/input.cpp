#include "forms/input.h"

#include "forms/events.h"
#include "platform/windows/system_code_page.h"

namespace kvez::forms {

std::int16_t ShiftState() {
  const auto held = [](int key) { return GetKeyState(key) < 0; };
  return static_cast<std::int16_t>((held(VK_SHIFT) ? kShiftMask : 0) | (held(VK_CONTROL) ? kCtrlMask : 0) |
                                   (held(VK_MENU) ? kAltMask : 0));
}

std::int16_t HeldButtons(WPARAM wParam) {
  return static_cast<std::int16_t>(((wParam & MK_LBUTTON) != 0 ? kLeftButton : 0) |
                                   ((wParam & MK_RBUTTON) != 0 ? kRightButton : 0) |
                                   ((wParam & MK_MBUTTON) != 0 ? kMiddleButton : 0));
}

std::int16_t ToKeyAscii(wchar_t character) {
  const auto bytes = ToSystemCodePage({&character, 1});
  if (!bytes || bytes->size() != 1) return '?';
  return static_cast<unsigned char>(bytes->front());
}

wchar_t FromKeyAscii(std::int16_t keyAscii) {
  const char byte = static_cast<char>(keyAscii);
  wchar_t character = L'?';
  MultiByteToWideChar(CP_ACP, 0, &byte, 1, &character, 1);
  return character;
}

}  // namespace kvez::forms
