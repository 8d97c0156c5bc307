#include "bench/windows/person.h"

#include "forms/message_loop.h"

namespace kvez::bench {
namespace {

LPARAM KeyData(WORD virtualKey, bool up) {
  const UINT scan = MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC);
  return static_cast<LPARAM>(1U | scan << 16 | (up ? 0xC0000000U : 0U));
}

void HoldControl(bool held) {
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_CONTROL] = held ? 0x80 : 0;
  SetKeyboardState(keys);
}

POINT MiddleOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right / 2, client.bottom / 2};
}

}  // namespace

void Press(HWND window, WORD virtualKey) {
  PostMessageW(window, WM_KEYDOWN, virtualKey, KeyData(virtualKey, false));
  PostMessageW(window, WM_KEYUP, virtualKey, KeyData(virtualKey, true));
}

HeldControl::HeldControl() { HoldControl(true); }
HeldControl::~HeldControl() { HoldControl(false); }

void Type(HWND window, wchar_t character) { PostMessageW(window, WM_CHAR, character, 1); }

void PointAt(HWND window, POINT place) {
  POINT screen = place;
  ClientToScreen(window, &screen);
  SetCursorPos(screen.x, screen.y);
  PostMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(place.x, place.y));
}

void PointAt(HWND window) { PointAt(window, MiddleOf(window)); }

void Click(HWND window, POINT place) {
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(place.x, place.y));
  PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
}

void Click(HWND window) { Click(window, MiddleOf(window)); }

void Settle(const forms::Form& form) {
  do {
    // The system asks for painting when nothing else waits.
    forms::DoEvents();
    RedrawWindow(form.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  } while (HIWORD(GetQueueStatus(QS_ALLINPUT)) != 0 && form.IsOpen());
}

}  // namespace kvez::bench
