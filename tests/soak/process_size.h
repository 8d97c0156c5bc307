#pragma once

#include "bench/limits.h"
#include "tests/support/program_driver.h"

namespace kvez::soak {

/// What a process holds. What the system does not tell is -1.
struct ProcessSize {
  int gdiObjects = -1;
  int windows = -1;
  int handles = -1;       // of the kernel
  int descriptors = -1;   // of the machine below, where there is one
  double mebibytes = -1;  // resident
};

ProcessSize SizeOf(const test::Program& program);
void Print(const char* when, const ProcessSize& size);

/// What is shown at a moment may need an object more or less, but no more with every round. Both are to be measured
/// after a warm-up: caches of the system fill late.
void LimitGrowth(const std::string& what, const ProcessSize& before, const ProcessSize& after, bench::Limits& limits);

}  // namespace kvez::soak
