// What the tests count on when they send keys: the display has a say in it, too.

#include <gtest/gtest.h>

#include "tests/support/window_test.h"

namespace kvez::test {
namespace {

class HeldKey : public testing::TestWithParam<int> {
 protected:
  HeldKey() {
    PointAt(FarAway());
    EXPECT_TRUE(ShowActive(form));
    Press(Key());
    EXPECT_TRUE(IsHeld());
  }
  ~HeldKey() override { Release(Key()); }

  static WORD Key() { return static_cast<WORD>(GetParam()); }
  static bool IsHeld() { return (GetAsyncKeyState(Key()) & 0x8000) != 0; }
  static bool IsLetGo() {
    return PumpWithin(0.3, [] { return !IsHeld(); });
  }

  TestForm form;
};

TEST_P(HeldKey, StaysHeldWhenThePointerEntersAWindow) {
  PointAt(CenterOf(form.Handle()));
  EXPECT_FALSE(IsLetGo());
}

TEST_P(HeldKey, StaysHeldWhenAnotherWindowTakesTheKeyboard) {
  TestForm other;
  ASSERT_TRUE(ShowActive(other));
  EXPECT_FALSE(IsLetGo());
}

INSTANTIATE_TEST_SUITE_P(Modifiers, HeldKey, testing::Values(VK_SHIFT, VK_CONTROL, VK_MENU));

}  // namespace
}  // namespace kvez::test
