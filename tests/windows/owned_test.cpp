// The owner of handles.
#include "platform/windows/owned.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

int releasedHandles = 0;

void CountRelease(HANDLE) { ++releasedHandles; }
using CountedHandle = Owned<HANDLE, &CountRelease>;

HANDLE NumberedHandle(std::uintptr_t number) { return reinterpret_cast<HANDLE>(number); }

class OwnedTest : public ::testing::Test {
 protected:
  void SetUp() override { releasedHandles = 0; }
};

TEST_F(OwnedTest, WhatACallFailsWithIsNoHandle) {
  for (const HANDLE none : {HANDLE{nullptr}, INVALID_HANDLE_VALUE}) {
    CountedHandle handle(none);
    EXPECT_FALSE(handle);
    EXPECT_EQ(handle.Get(), nullptr);
    handle.Reset(none);
    EXPECT_FALSE(handle);
  }
  EXPECT_EQ(releasedHandles, 0);
}

TEST_F(OwnedTest, ReleasesOnceWhatItHas) {
  {
    CountedHandle handle(NumberedHandle(4));
    handle.Reset(NumberedHandle(8));
    EXPECT_EQ(releasedHandles, 1);
    handle.Reset(INVALID_HANDLE_VALUE);
    EXPECT_EQ(releasedHandles, 2);
    handle.Reset(NumberedHandle(12));
    handle.Reset(NumberedHandle(12));
    EXPECT_EQ(releasedHandles, 2);
    handle = CountedHandle(NumberedHandle(16));
    EXPECT_EQ(releasedHandles, 3);
  }
  EXPECT_EQ(releasedHandles, 4);
}

TEST_F(OwnedTest, WhatIsGivenAwayIsNotReleased) {
  {
    CountedHandle first(NumberedHandle(4));
    CountedHandle second(std::move(first));
    CountedHandle third;
    third = std::move(second);
    EXPECT_EQ(third.TakeOwnership(), NumberedHandle(4));
  }
  EXPECT_EQ(releasedHandles, 0);
}

}  // namespace
}  // namespace kvez
