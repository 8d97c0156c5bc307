#pragma once

#include <cstddef>
#include <functional>
#include <string>

/// Calls of the system for files that fail on purpose. A program that links system_call_faults.cpp makes its calls
/// through it, and so do the libraries that it is linked with. Only Linux.
namespace kvez::test::system_calls {

enum class Fault {
  Refuse,     // it fails: a full disk for what writes, a refusal for what opens, renames, removes, makes, looks
  Interrupt,  // a signal interrupts it; only calls that can be interrupted and are called again
  Part,       // it reads or writes a part only, one byte at least
  Kill        // the process is killed instead
};

/// From now on calls are counted, from 1, and `fault` happens to number `failing`. 0 lets none fail.
void Arm(std::size_t failing, Fault fault);

/// From now on the process is killed before call number `number`. With `refusal`, renaming number `refusal` is refused
/// first, and the calls are counted from there on.
void ArmToKill(std::size_t refusal, std::size_t number);

/// The next call of this name runs `act` first, whose calls are the system's own again, and fails with the error number
/// that it returns; 0 lets it go on.
void AtNext(const char* name, std::function<int()> act);

/// Nothing fails any more. Returns how many calls were counted: of the kind that the fault can happen to.
std::size_t Disarm();

bool HasFailed();

/// The name of the call that failed, and what it was called with, for messages.
std::string FailedCall();

}  // namespace kvez::test::system_calls
