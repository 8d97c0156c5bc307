#pragma once

#include <cstddef>

/// Allocations of `operator new` that fail on purpose. A program that links allocation_faults.cpp has its own.
namespace kvez::test::allocation {

/// From now on allocations are counted, from 1, and number `failing` throws std::bad_alloc; with `andLater` every one
/// behind it does, too. 0 lets none fail.
void Arm(std::size_t failing, bool andLater);

/// Nothing fails any more. Returns how many allocations were counted.
std::size_t Disarm();

/// Whether one has failed since the last Arm().
bool HasFailed();

/// Allocations are neither counted nor failing as long as the object lives: what a fake keeps is not the core's.
class Pause {
 public:
  Pause();
  ~Pause();
  Pause(const Pause&) = delete;
  Pause& operator=(const Pause&) = delete;
};

}  // namespace kvez::test::allocation
