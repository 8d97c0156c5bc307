#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace kvez::bench {

/// Figures beside their limits: each is printed as it comes, and the missed ones are remembered for the end.
class Limits {
 public:
  void AtLeast(std::string_view what, double figure, double limit, const char* unit) {
    Print(what, figure, "at least", limit, unit, figure >= limit);
  }
  /// A figure that could not be had is no number (NaN), and so a missed one.
  void AtMost(std::string_view what, double figure, double limit, const char* unit) {
    Print(what, figure, "at most ", limit, unit, figure <= limit);
  }
  /// Something that a figure relies on did not happen.
  void Fail(std::string_view what) {
    std::printf("%.*s  FAILED\n", static_cast<int>(what.size()), what.data());
    Remember(what);
  }

  const std::vector<std::string>& Missed() const { return m_missed; }
  /// Names the missed ones on the standard error, which whoever runs several benchmarks shows last. Returns the status
  /// that the program ends with.
  int Finish() const {
    for (const std::string& what : m_missed) std::fprintf(stderr, "missed: %s\n", what.c_str());
    return m_missed.empty() ? 0 : 1;
  }

 private:
  void Print(std::string_view what, double figure, const char* side, double limit, const char* unit, bool kept) {
    // Counted in letters: of those outside of ASCII, UTF-8 has several bytes.
    constexpr std::ptrdiff_t kColumn = 60;
    const auto letters = std::count_if(what.begin(), what.end(),
                                       [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; });
    const auto blanks = static_cast<int>(std::max<std::ptrdiff_t>(kColumn - letters, 0));
    std::printf("%.*s%*s %10.2f %-4s %s %10.2f  %s\n", static_cast<int>(what.size()), what.data(), blanks, "", figure,
                unit, side, limit, kept ? "ok" : "MISSED");
    // A benchmark takes minutes, and somebody may be looking.
    std::fflush(stdout);
    if (!kept) Remember(what);
  }
  void Remember(std::string_view what) { m_missed.emplace_back(what); }

  std::vector<std::string> m_missed;
};

}  // namespace kvez::bench
