#include "database/records.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(Records, NewOnesAreEmpty) {
  EXPECT_EQ(tclspsc().tpscPSC(), 0);
  EXPECT_EQ(tclspsc().tpscObec(), L"");
  EXPECT_EQ(tclspsc().tpscOkres(), L"");
  EXPECT_EQ(tclsdodavaci().tpPSC(), 0);
  EXPECT_EQ(tclsdodavaci().tpDodavaci(), L"");
  EXPECT_EQ(tclsokresy().tpscoKod(), 0);
  EXPECT_EQ(tclsokresy().tpscoOkres(), L"");
  EXPECT_EQ(tpclspsc().tpPozice(), 0);
}

TEST(Records, EachFieldKeepsItsOwnValue) {
  tclspsc municipality;
  municipality.tpscPSC(11000);
  municipality.tpscObec(L"Staré Město");
  municipality.tpscOkres(L"Praha");
  EXPECT_EQ(municipality.tpscPSC(), 11000);
  EXPECT_EQ(municipality.tpscObec(), L"Staré Město");
  EXPECT_EQ(municipality.tpscOkres(), L"Praha");

  tclsdodavaci postOffice;
  postOffice.tpPSC(-1);
  postOffice.tpDodavaci(L"Praha 1");
  EXPECT_EQ(postOffice.tpPSC(), -1);
  EXPECT_EQ(postOffice.tpDodavaci(), L"Praha 1");

  tclsokresy district;
  district.tpscoKod(3100);
  district.tpscoOkres(L"Praha");
  EXPECT_EQ(district.tpscoKod(), 3100);
  EXPECT_EQ(district.tpscoOkres(), L"Praha");

  tpclspsc position;
  position.tpPozice(7);
  EXPECT_EQ(position.tpPozice(), 7);
}

TEST(Records, TextsAreCopies) {
  std::wstring name = L"Praha";
  tclspsc municipality;
  municipality.tpscObec(name);
  name = L"Brno";
  std::wstring taken = municipality.tpscObec();
  taken += L"!";
  EXPECT_EQ(municipality.tpscObec(), L"Praha");
}

}  // namespace
}  // namespace kvez
