#include "text/assertion.h"

#include <gtest/gtest.h>

#include <string>

namespace kvez {
namespace {

TEST(Assertion, IsToldToWhoeverWantsToKnowWhenItDoesNotHold) {
  static std::string told;
  told.clear();
  const AssertionHandler before = SetAssertionHandler([](const char* what) { told += what; });
  Assert(true, "one is one");
  EXPECT_EQ(told, "");
  Assert(false, "one is two");
  EXPECT_EQ(told, "one is two");
  SetAssertionHandler(nullptr);
  Assert(false, "the program goes on");
  EXPECT_EQ(told, "one is two");
  SetAssertionHandler(before);
}

}  // namespace
}  // namespace kvez
