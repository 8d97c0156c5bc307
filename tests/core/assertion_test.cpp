#include "text/assertion.h"

#include <gtest/gtest.h>

#include <string>

namespace kvez {
namespace {

TEST(Assertion, IsToldToWhoeverWantsToKnowWhenItDoesNotHold) {
  static std::string told;
  told.clear();
  const AssertionHandler teller = [](const char* what) { told += what; };
  const AssertionHandler before = SetAssertionHandler(teller);
  Assert(true, "one is one");
  EXPECT_EQ(told, "");
  Assert(false, "one is two");
  EXPECT_EQ(told, "one is two");
  EXPECT_EQ(SetAssertionHandler(nullptr), teller);
  Assert(false, "the program goes on");
  EXPECT_EQ(told, "one is two");
  SetAssertionHandler(before);
}

}  // namespace
}  // namespace kvez
