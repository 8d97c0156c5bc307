#pragma once

#include <windows.h>

#include <functional>

namespace kvez {

/// How long is waited for what another program holds for a few milliseconds only: a file, because two sessions of one
/// machine may run the program in the same folder, or the clipboard.
struct Patience {
  std::function<void()> pause = [] { Sleep(25); };
  int pauses = 20;

  /// Opens something again and again while it is held. `open` gives a handle, and `failed` stands for none; why, the
  /// system's last error says.
  template <class Handle, class Open>
  Handle OpenPatiently(Open open, Handle failed) const {
    for (int paused = 0;; ++paused) {
      const Handle handle = open();
      if (handle != failed || GetLastError() != ERROR_SHARING_VIOLATION || paused == pauses) return handle;
      pause();
    }
  }
};

}  // namespace kvez
