#pragma once

#include <windows.h>

#include <bitset>

namespace kvez {

/// As long as it lives, the dialogs of this thread do not see the repetitions of a key that went down before: Enter
/// that opens a question and is still held must not answer it.
class HeldKeysStayOutside {
 public:
  HeldKeysStayOutside();
  HeldKeysStayOutside(const HeldKeysStayOutside&) = delete;
  HeldKeysStayOutside& operator=(const HeldKeysStayOutside&) = delete;
  ~HeldKeysStayOutside();

 private:
  static LRESULT CALLBACK Filter(int code, WPARAM wParam, LPARAM lParam);
  bool IsOfAKeyHeldBefore(const MSG& message);

  inline static HeldKeysStayOutside* s_innermost = nullptr;
  HeldKeysStayOutside* m_outer;
  HHOOK m_hook;
  std::bitset<256> m_pressedInside;
};

}  // namespace kvez
