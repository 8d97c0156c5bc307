#pragma once

#include <cstdint>

namespace kvez {

/// How often a walk over `total` elements (or bytes) shows its progress: rarely, because each showing repaints.
class ProgressCadence {
 public:
  explicit ProgressCadence(std::uint64_t total)
      : m_interval(total >= 2001 ? 20 : 1), m_reciprocal(1.0F / static_cast<float>(total)) {}

  /// Called once an element; true when the progress is to be shown now. The counter is compared before it is
  /// raised, so the true ones are every 21st and every 2nd element, not every 20th and every one. That is meant so.
  bool Step() {
    if (m_counter == m_interval) {
      m_counter = 0;
      return true;
    }
    ++m_counter;
    return false;
  }

  /// `done` of the total, at most 1: the record that runs past the end of a damaged file can be the one that is shown.
  float Fraction(std::uint64_t done) const {
    const float fraction = static_cast<float>(done) * m_reciprocal;
    return fraction > 1.0F ? 1.0F : fraction;
  }

 private:
  unsigned m_interval;
  unsigned m_counter = 0;
  float m_reciprocal;
};

}  // namespace kvez
