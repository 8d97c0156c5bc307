#pragma once

#include <random>

#include "tests/support/program_driver.h"

namespace kvez::test {

/// Input that nobody would think of, for a program whose main window is loaded: letters, keys, mode keys, movements and
/// clicks everywhere but on the command buttons, which start other programs and downloads. What opens in front of the
/// window is closed again.
class RandomInput {
 public:
  explicit RandomInput(unsigned seed) : m_random(seed) {}

  void SendEvent(const Program& program);

  /// Shows the About panel once: its windows are made when it is first shown, which may be late.
  static void BringUpAbout(const Program& program);
  /// Waits until the program has worked all input off; closes whatever has opened in front of it. False when it has
  /// ended or does not answer.
  static bool Settle(const Program& program);
  /// The same, and no input waits any more.
  static bool WorkOff(const Program& program);

 private:
  POINT PlaceBesideCommands(const Program& program);
  void SendKey(const Program& program, WORD key);
  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

  std::mt19937 m_random;
};

}  // namespace kvez::test
