#pragma once

#include <functional>
#include <source_location>
#include <string>

namespace kvez::test {

/// Waits until `condition` holds and returns true. After `seconds` it returns false, says on the standard error what
/// was waited for (the caller's own lines) and leaves a picture of the screen in build/failed/. Nothing else in the
/// tests waits for a time.
bool WaitUntil(const std::function<bool()>& condition, double seconds = 20.0,
               std::source_location where = std::source_location::current());

/// The same for a wait that may be in vain: it says nothing.
bool HoldsWithin(double seconds, const std::function<bool()>& condition);

/// What WaitUntil does after a wait in vain; for waits of another kind.
void SayWaitedInVain(double seconds, const std::source_location& where);

/// Writes a picture of the whole screen as a .bmp file. False when it cannot be written.
bool SaveScreen(const std::wstring& path);

}  // namespace kvez::test
