#pragma once

#include <windows.h>

#include "forms/form.h"

namespace kvez::bench {

/// What a person's hand does to a window of this process, as the messages that arrive there. They wait in the queue
/// until somebody handles them, which is what is measured.
void Press(HWND window, WORD virtualKey);
/// Ctrl is held as long as the object lives.
class HeldControl {
 public:
  HeldControl();
  HeldControl(const HeldControl&) = delete;
  HeldControl& operator=(const HeldControl&) = delete;
  ~HeldControl();
};
void Type(HWND window, wchar_t character);
/// The pointer comes to a point of the client area; a click there. Without a point the middle is meant.
void PointAt(HWND window, POINT place);
void PointAt(HWND window);
void Click(HWND window, POINT place);
void Click(HWND window);

/// Handles all messages and paints whatever still waits for it, until neither is left.
void Settle(const forms::Form& form);

}  // namespace kvez::bench
