#include "tests/support/allocation_faults.h"

#include <cstdlib>
#include <new>

namespace kvez::test::allocation {
namespace {

bool armed = false;
bool later = false;
bool failed = false;
int paused = 0;
std::size_t target = 0;
std::size_t counted = 0;

bool IsToFail() {
  if (!armed || paused > 0) return false;
  ++counted;
  const bool now = target != 0 && (later ? counted >= target : counted == target);
  failed = failed || now;
  return now;
}

void* Allocate(std::size_t size) {
  if (IsToFail()) throw std::bad_alloc();
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* AllocateOrNothing(std::size_t size) noexcept { return IsToFail() ? nullptr : std::malloc(size == 0 ? 1 : size); }

}  // namespace

void Arm(std::size_t failing, bool andLater) {
  target = failing;
  later = andLater;
  counted = 0;
  failed = false;
  armed = true;
}

std::size_t Disarm() {
  armed = false;
  return counted;
}

bool HasFailed() { return failed; }

Pause::Pause() { ++paused; }
Pause::~Pause() { --paused; }

}  // namespace kvez::test::allocation

using kvez::test::allocation::Allocate;
using kvez::test::allocation::AllocateOrNothing;

// Each of them, because a library that brings its own (that of the sanitizers does) forwards none to another.
void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNothing(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNothing(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
