#pragma once

namespace kvez {

/// What is done about an assertion that does not hold; null for nothing.
using AssertionHandler = void (*)(const char* what);

/// Gives the handler of before back. Users have none: the program goes on as if nobody had looked. The tests fail.
AssertionHandler SetAssertionHandler(AssertionHandler handler);

void AssertionFails(const char* what);

/// States what the code here relies on and no type says. It is part of what is given to users, so that the tests test
/// just that; it costs a comparison. What a user or a file can bring about is no matter for it.
inline void Assert(bool holds, const char* what) {
  if (!holds) AssertionFails(what);
}

}  // namespace kvez
