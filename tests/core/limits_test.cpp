#include "bench/limits.h"

#include <gtest/gtest.h>

#include <limits>

namespace kvez::bench {
namespace {

using Names = std::vector<std::string>;

TEST(Limits, AreKeptUpToTheirVeryValue) {
  Limits limits;
  limits.AtMost("at most", 16.7, 16.7, "ms");
  limits.AtLeast("at least", 10, 10, "x");
  EXPECT_EQ(limits.Missed(), Names{});
  EXPECT_EQ(limits.Finish(), 0);
}

TEST(Limits, MissedOnesAreNamedInTheirOrderAndGiveTheStatus) {
  Limits limits;
  limits.AtMost("too much", 16.8, 16.7, "ms");
  limits.AtMost("enough", 16.6, 16.7, "ms");
  limits.AtLeast("too little", 9.9, 10, "x");
  limits.Fail("not there");
  EXPECT_EQ(limits.Missed(), (Names{"too much", "too little", "not there"}));
  EXPECT_EQ(limits.Finish(), 1);
}

TEST(Limits, AFigureThatCouldNotBeHadIsMissed) {
  Limits limits;
  const double none = std::numeric_limits<double>::quiet_NaN();
  limits.AtMost("one", none, 1, "x");
  limits.AtLeast("other", none, 1, "x");
  EXPECT_EQ(limits.Missed(), (Names{"one", "other"}));
}

}  // namespace
}  // namespace kvez::bench
