#include "database/name_keys.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(NameKeys, PatternWithoutATextFindsNothing) {
  NameKeys keys;
  keys.Append("Cheb");
  keys.Append("");
  for (const NameMode mode :
       {NameMode::Whole, NameMode::BeginsWith, NameMode::EndsWith, NameMode::BeginsAndEndsWith, NameMode::Contains}) {
    EXPECT_EQ(keys.Find({mode, L"", L""}).size(), 0U);
    EXPECT_EQ(keys.Find({mode, L"", L"b"}).size(), 0U);
  }
}

}  // namespace
}  // namespace kvez
