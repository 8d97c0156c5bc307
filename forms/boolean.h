#pragma once

#include <concepts>
#include <cstdint>

namespace kvez::forms {

/// A truth value as properties keep and persist it: 16 bits, true is all ones. A stored value that is neither 0 nor all
/// ones is "not zero" without being "true", and the two are asked for in different places.
class Boolean {
 public:
  constexpr Boolean() = default;
  /// From a bool only: a number would silently become a truth value.
  template <std::same_as<bool> Bool>
  constexpr Boolean(Bool value) : m_value(value ? std::int16_t{-1} : std::int16_t{0}) {}  // NOLINT: as good as a bool
  static constexpr Boolean FromStored(std::int16_t value) {
    Boolean result;
    result.m_value = value;
    return result;
  }

  constexpr std::int16_t Stored() const { return m_value; }
  constexpr bool IsTrue() const { return m_value == -1; }
  constexpr bool IsZero() const { return m_value == 0; }
  constexpr explicit operator bool() const { return IsTrue(); }

  friend constexpr bool operator==(Boolean, Boolean) = default;

 private:
  std::int16_t m_value = 0;
};

}  // namespace kvez::forms
