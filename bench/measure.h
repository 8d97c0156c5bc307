#pragma once

#include <algorithm>
#include <ctime>
#include <functional>

/// Measuring what computes.
namespace kvez::bench {

/// The processor time of this thread: what other programs take meanwhile does not count. All that is measured here
/// computes.
inline double Now() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

inline double Seconds(const std::function<void()>& action) {
  const double start = Now();
  action();
  return Now() - start;
}

struct Pair {
  double first;
  double second;
};

/// The best of `rounds` of each, taken in turn.
inline Pair BestOf(int rounds, const std::function<void()>& first, const std::function<void()>& second) {
  Pair best{1e9, 1e9};
  for (int round = 0; round < rounds; ++round) {
    best.first = std::min(best.first, Seconds(first));
    best.second = std::min(best.second, Seconds(second));
  }
  return best;
}

/// The best of `rounds` of an action and of one that is `times` as long; each returns what it took. As many short
/// rounds as one long one takes, so that noise has the same chance in both.
inline Pair BestOfUnequal(int rounds, int times, const std::function<double()>& first,
                          const std::function<double()>& timesAsLong) {
  Pair best{1e9, 1e9};
  for (int round = 0; round < rounds; ++round) {
    for (int i = 0; i < times; ++i) best.first = std::min(best.first, first());
    best.second = std::min(best.second, timesAsLong());
  }
  return best;
}

}  // namespace kvez::bench
