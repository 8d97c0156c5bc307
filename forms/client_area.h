#pragma once

#include <windows.h>

namespace kvez::forms {

/// The inside of a window, in its own pixels: it begins at 0, 0.
inline RECT ClientOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return client;
}

}  // namespace kvez::forms
