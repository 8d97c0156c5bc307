#include "controls/button_rules.h"

#include <gtest/gtest.h>

#include <limits>

#include "text/error.h"

namespace kvez {
namespace {

constexpr UINT kAllSides = 0x000F;
constexpr UINT kAllSidesSoft = 0x100F;

TEST(GetEdgeStyle, FlatBorderIsRaisedOuterAndSunkenOuterWhenDown) {
  EXPECT_EQ(GetEdgeStyle(0, false, false), 1U);
  EXPECT_EQ(GetEdgeStyle(0, false, true), 2U);
}

TEST(GetEdgeStyle, FlatUntilHoveredIsRaisedInnerAndSunkenOuterWhenDown) {
  EXPECT_EQ(GetEdgeStyle(0, true, false), 4U);
  EXPECT_EQ(GetEdgeStyle(0, true, true), 2U);
}

TEST(GetEdgeStyle, BorderOneIsTheFullEdge) {
  EXPECT_EQ(GetEdgeStyle(1, false, false), 5U);
  EXPECT_EQ(GetEdgeStyle(1, false, true), 10U);
}

TEST(GetEdgeStyle, BorderTwoIsTheThinEdge) {
  EXPECT_EQ(GetEdgeStyle(2, false, false), 4U);
  EXPECT_EQ(GetEdgeStyle(2, false, true), 2U);
}

TEST(GetEdgeStyle, OtherBordersDrawNothing) {
  for (const std::int32_t border : {3, -1, 255}) {
    EXPECT_EQ(GetEdgeStyle(border, false, false), 0U) << border;
    EXPECT_EQ(GetEdgeStyle(border, true, true), 0U) << border;
    EXPECT_EQ(GetEdgeFlags(border, false), 0U) << border;
  }
}

TEST(GetEdgeStyle, StoredValueThatIsNotAllOnesIsNotTrue) {
  const Boolean one = Boolean::FromStored(1);
  EXPECT_EQ(GetEdgeStyle(0, one, false), 1U);
  EXPECT_EQ(GetEdgeStyle(1, false, one), 5U);
  EXPECT_EQ(GetEdgeFlags(0, one), kAllSidesSoft);
}

TEST(GetEdgeFlags, SoftForTheStandingBorders) {
  EXPECT_EQ(GetEdgeFlags(0, false), kAllSidesSoft);
  EXPECT_EQ(GetEdgeFlags(0, true), kAllSides);
  EXPECT_EQ(GetEdgeFlags(1, false), kAllSidesSoft);
  EXPECT_EQ(GetEdgeFlags(2, false), kAllSides);
}

TEST(HalfOfRest, HalvesGoToTheEvenNumber) {
  EXPECT_EQ(HalfOfRest(81, 50), 16);  // 15.5
  EXPECT_EQ(HalfOfRest(81, 51), 15);  // 15
  EXPECT_EQ(HalfOfRest(81, 52), 14);  // 14.5
  EXPECT_EQ(HalfOfRest(0, 1), 0);     // -0.5
  EXPECT_EQ(HalfOfRest(0, 3), -2);    // -1.5
  EXPECT_EQ(HalfOfRest(0, 5), -2);    // -2.5
  EXPECT_EQ(HalfOfRest(10, 10), 0);
}

TEST(HalfOfRest, OverflowIsAnError) {
  EXPECT_THROW(HalfOfRest(std::numeric_limits<std::int32_t>::min(), 1), OverflowError);
  EXPECT_THROW(HalfOfRest(std::numeric_limits<std::int32_t>::max(), -1), OverflowError);
}

TEST(CenteredText, ShrinksTheAreaOnAllSides) {
  const RECT place = CenteredText({0, 0, 81, 23}, {50, 13});
  EXPECT_EQ(place.left, 16);
  EXPECT_EQ(place.right, 65);
  EXPECT_EQ(place.top, 5);
  EXPECT_EQ(place.bottom, 18);
  EXPECT_EQ(CenteredText({0, 0, 81, 23}, {51, 13}).left, 15);
}

TEST(CenteredText, TextLargerThanItsButtonBeginsOutside) {
  const RECT place = CenteredText({0, 0, 20, 23}, {31, 13});
  EXPECT_EQ(place.left, -6);  // -5.5
  EXPECT_EQ(place.right, 26);
}

TEST(BooleanTest, TrueIsAllOnes) {
  EXPECT_EQ(Boolean(true).Stored(), -1);
  EXPECT_EQ(Boolean(false).Stored(), 0);
  EXPECT_FALSE(Boolean::FromStored(1).IsTrue());
  EXPECT_FALSE(Boolean::FromStored(1).IsZero());
}

}  // namespace
}  // namespace kvez
