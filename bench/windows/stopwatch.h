#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>
#include <vector>

/// What somebody waits for, by the clock on the wall.
namespace kvez::bench {

inline double Seconds(const std::function<void()>& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Of no values at all: no number, which no limit lets pass.

inline double Best(const std::vector<double>& values) {
  return values.empty() ? std::numeric_limits<double>::quiet_NaN() : *std::min_element(values.begin(), values.end());
}

inline double Median(std::vector<double> values) {
  if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace kvez::bench
