// The searches by themselves: a list and a question, no window, no printer, no machine but its formats.
#include "database/searches.h"

#include <gmock/gmock.h>

#include "platform/portable/portable_formats.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;

class Searches : public testing::Test {
 protected:
  Searches() {
    Add(11000, L"Praha 1", L"Hlavní město Praha");
    Add(25001, L"Brandýs nad Labem", L"Praha-východ");
    Add(1100, L"Žďár", L"MĚLNÍK");
    Add(25001, L"Káraný", L"Mělník");
  }

  void Add(std::int32_t code, const wchar_t* name, const wchar_t* district) {
    const std::string bytes = ToWindows1250(name);
    const std::string districtBytes = ToWindows1250(district);
    list.push_back({code, bytes, districtBytes});
  }

  static std::vector<std::int32_t> Positions(const SearchResult& result) {
    std::vector<std::int32_t> positions;
    for (const tpclspsc& position : result.positions) positions.push_back(position.tpPozice());
    return positions;
  }

  MunicipalityList list;
  PortableFormats formats;
};

TEST_F(Searches, CodeIsFoundAndShownAsPeopleWriteIt) {
  const SearchResult found = FindCode(list, 25001, formats);
  EXPECT_THAT(Positions(found), ElementsAre(2, 4));
  EXPECT_EQ(found.description, L"Hledané obce s PSČ \"250 01\".");
}

TEST_F(Searches, BeginningOfACodeIsThatOfItsDigitsWithoutZeros) {
  const SearchResult found = FindCodesBeginning(list, L"11");
  EXPECT_THAT(Positions(found), ElementsAre(1, 3));
  EXPECT_EQ(found.description, L"Obce s PSČ začínající na  \"11\".");
  EXPECT_THAT(Positions(FindCodesBeginning(list, L"110 00")), ElementsAre(1));
}

TEST_F(Searches, NameIsFoundByItsPattern) {
  const SearchResult found = FindName(list, {NameMode::BeginsWith, L"pra", {}});
  EXPECT_THAT(Positions(found), ElementsAre(1));
  EXPECT_EQ(found.description, L"Název začíná \"pra\".");
}

TEST_F(Searches, DistrictIsFoundWithoutRegardToCase) {
  const SearchResult found = FindDistrict(list, L"mělník");
  EXPECT_THAT(Positions(found), ElementsAre(3, 4));
  EXPECT_EQ(found.description, L"Obce v okrese \"mělník\".");
}

TEST_F(Searches, NothingFoundIsAnAnswerToo) {
  EXPECT_THAT(Positions(FindCode(list, 1, formats)), ElementsAre());
  EXPECT_THAT(Positions(FindDistrict(list, L"Kladno")), ElementsAre());
}

}  // namespace
}  // namespace kvez
