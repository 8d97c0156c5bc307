#pragma once

#include <windows.h>

namespace kvez::forms {

/// Where the pointer is known to be. The system sends a movement to whatever window appears, goes or scrolls under a
/// pointer that rests; what follows the user's hand must tell these from real ones.
class Pointer {
 public:
  /// True when the pointer, seen at `screen` now, was somewhere else before. It is remembered here.
  static bool HasMovedTo(POINT screen);
  static void Remember(POINT screen) { s_last = screen; }
  /// To be called whenever it may have moved unseen: over other programs' windows, menus, dialogs.
  static void RememberWhereItIs() { GetCursorPos(&s_last); }

 private:
  inline static POINT s_last{};
};

}  // namespace kvez::forms
