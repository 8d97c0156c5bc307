#include "database/municipality_list.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(MunicipalityList, MakesTheRecordsThatWereAppended) {
  MunicipalityList list;
  list.push_back({11000, "Star\xE9 M\xECsto", "Praha"});
  list.push_back({-1, "", ""});
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].tpscPSC(), 11000);
  EXPECT_EQ(list[0].tpscObec(), L"Staré Město");
  EXPECT_EQ(list[0].tpscOkres(), L"Praha");
  EXPECT_EQ(list.NameLength(0), 11U);
  EXPECT_EQ(list[1].tpscPSC(), -1);
  EXPECT_EQ(list[1].tpscObec(), L"");
  EXPECT_EQ(list[1].tpscOkres(), L"");
}

TEST(MunicipalityList, KeepsEachDistrictOnce) {
  MunicipalityList list;
  for (const char* district : {"Cheb", "Praha", "Cheb", "cheb", "Praha"}) list.push_back({1, "x", district});
  EXPECT_EQ(list.Districts(), (std::vector<std::wstring>{L"Cheb", L"Praha", L"cheb"}));
  EXPECT_EQ(list.DistrictIndex(2), 0U);
  EXPECT_EQ(list.DistrictIndex(3), 2U);
  EXPECT_EQ(list[4].tpscOkres(), L"Praha");
}

TEST(MunicipalityList, TakesNewOnesInThePlaceOfRemovedOnes) {
  MunicipalityList list;
  list.push_back({1, "Cheb", "Cheb"});
  list.push_back({2, "Brno 2", "Brno"});
  list.pop_back();
  EXPECT_EQ(list.size(), 1U);
  list.push_back({3, "Praha", "Praha"});
  EXPECT_EQ(list[0].tpscObec(), L"Cheb");
  EXPECT_EQ(list[1].tpscObec(), L"Praha");
  EXPECT_EQ(list[1].tpscPSC(), 3);
  const auto found = list.Keys().Find({NameMode::Whole, L"praha", L""});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].tpPozice(), 2);
  list.pop_back();
  list.pop_back();
  EXPECT_EQ(list.size(), 0U);
  EXPECT_EQ(list.Keys().Find({NameMode::Contains, L"e", L""}).size(), 0U);
}

}  // namespace
}  // namespace kvez
