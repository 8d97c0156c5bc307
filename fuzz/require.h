#pragma once

#include <cstdio>
#include <cstdlib>

namespace kvez {

/// What must hold for any input. Otherwise the fuzzer keeps the input and says `what` did not hold.
inline void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "not so: %s\n", what);
  std::abort();
}

}  // namespace kvez
