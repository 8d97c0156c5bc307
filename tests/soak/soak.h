#pragma once

#include <filesystem>

#include "bench/limits.h"

namespace kvez::soak {

/// What all parts of the soak share.
struct Soak {
  std::filesystem::path program;  // the folder that the build makes
  std::filesystem::path work;     // where copies of it live and die
  double share = 1;               // of everything that is repeated
  unsigned seed = 0;
  bench::Limits limits;

  int Times(int whole) const { return whole * share < 1 ? 1 : static_cast<int>(whole * share + 0.5); }
};

}  // namespace kvez::soak
