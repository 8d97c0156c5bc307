#pragma once

#include <windows.h>

namespace kvez {

/// A console takes what is written to it for UTF-8 as long as the object lives. Outputs that are files or pipes need
/// nothing of the kind.
class Utf8Console {
 public:
  Utf8Console() : m_before(GetConsoleOutputCP()) {
    if (m_before != 0 && m_before != CP_UTF8) m_changed = SetConsoleOutputCP(CP_UTF8) != FALSE;
  }
  ~Utf8Console() {
    // The console belongs to whoever has started the program.
    if (m_changed) SetConsoleOutputCP(m_before);
  }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  UINT m_before;
  bool m_changed = false;
};

}  // namespace kvez
