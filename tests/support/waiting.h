#pragma once

#include <functional>
#include <string>

namespace kvez::test {

/// Where a call stands, as the default of a parameter. The standard's source_location is missing where Clang reads the
/// other compiler's library.
struct CallPlace {
  const char* file;
  unsigned line;

  static constexpr CallPlace Current(const char* file = __builtin_FILE(), unsigned line = __builtin_LINE()) {
    return {file, line};
  }
};

/// Waits until `condition` holds and returns true. After `seconds` it returns false, says on the standard error what
/// was waited for (the caller's own lines) and leaves a picture of the screen in build/failed/. Nothing else in the
/// tests waits for a time.
bool WaitUntil(const std::function<bool()>& condition, double seconds = 20.0, CallPlace where = CallPlace::Current());

/// The same for a wait that may be in vain: it says nothing.
bool HoldsWithin(double seconds, const std::function<bool()>& condition);

/// What WaitUntil does after a wait in vain; for waits of another kind.
void SayWaitedInVain(double seconds, const CallPlace& where);

/// Writes a picture of the whole screen as a .bmp file. False when it cannot be written.
bool SaveScreen(const std::wstring& path);

}  // namespace kvez::test
