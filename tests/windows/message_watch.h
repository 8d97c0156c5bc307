#pragma once

#include <windows.h>
// Stays below windows.h.
#include <commctrl.h>

#include <functional>
#include <utility>

namespace kvez::test {

/// Calls back whenever a window gets a message of one kind.
class MessageWatch {
 public:
  MessageWatch(HWND window, UINT message, std::function<void()> seen)
      : m_window(window), m_message(message), m_seen(std::move(seen)) {
    SetWindowSubclass(m_window, &MessageWatch::Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
  }
  MessageWatch(const MessageWatch&) = delete;
  MessageWatch& operator=(const MessageWatch&) = delete;
  ~MessageWatch() { RemoveWindowSubclass(m_window, &MessageWatch::Procedure, 1); }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR watch) {
    const auto& self = *reinterpret_cast<const MessageWatch*>(watch);
    if (message == self.m_message) self.m_seen();
    return DefSubclassProc(window, message, wParam, lParam);
  }

  HWND m_window;
  UINT m_message;
  std::function<void()> m_seen;
};

}  // namespace kvez::test
