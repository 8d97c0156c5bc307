// Files that do not belong together are told of in numbers.

#include <gtest/gtest.h>

#include "postal/clspsc.h"
#include "tests/core/data_bytes.h"
#include "tests/core/fakes.h"

namespace kvez {
namespace {

class LooseEnds : public ::testing::Test {
 protected:
  void Municipality(std::int32_t code, const std::wstring& district) {
    fakes::AppendMunicipality(municipalities, code, L"Obec", district);
  }
  void PostOffice(std::int32_t code) { fakes::AppendPostOffice(postOffices, code, L"Pošta"); }
  void District(const std::wstring& name) { fakes::AppendDistrict(districts, 1, name); }

  std::wstring Sentence() {
    machine.disk.files = {{L"C:\\vd1.kl_", municipalities}, {L"C:\\vd2.kl_", postOffices}, {L"C:\\vd3.kl_", districts}};
    database.pscNacti(window);
    database.pscpNacti(window);
    database.pscoNacti(window);
    return database.pscNesoulad();
  }

  fakes::Bytes municipalities;
  fakes::Bytes postOffices;
  fakes::Bytes districts;
  fakes::Machine machine;
  fakes::ProgressWindowFake window;
  clspsc database{machine.Platform(), L"C:"};
};

TEST_F(LooseEnds, NothingIsSaidOfFilesThatBelongTogether) {
  Municipality(11000, L"Praha");
  Municipality(11000, L"Brno");
  PostOffice(11000);
  PostOffice(60200);  // serves nobody, which is no municipality's trouble
  District(L"Praha");
  District(L"Brno");
  District(L"Cheb");
  EXPECT_EQ(Sentence(), L"");
}

TEST_F(LooseEnds, NothingIsSaidWithoutData) { EXPECT_EQ(database.pscNesoulad(), L""); }

TEST_F(LooseEnds, MunicipalitiesWithoutPostOfficeAreCounted) {
  PostOffice(1);
  District(L"Praha");
  Municipality(1, L"Praha");
  Municipality(2, L"Praha");
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 1 obec bez pošty.");
  Municipality(2, L"Praha");
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 2 obce bez pošty.");
  Municipality(3, L"Praha");
  Municipality(4, L"Praha");
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 4 obce bez pošty.");
  Municipality(5, L"Praha");
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 5 obcí bez pošty.");
}

TEST_F(LooseEnds, MunicipalitiesWithoutDistrictAreCounted) {
  PostOffice(1);
  District(L"Praha");
  Municipality(1, L"Praha");
  Municipality(1, L"praha");
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 1 obec bez okresu.");
}

TEST_F(LooseEnds, BothAreToldTogetherWithGroupedNumbers) {
  PostOffice(1);
  District(L"Praha");
  for (int i = 0; i < 1250; ++i) Municipality(2, L"Praha");
  Municipality(1, L"Brno");
  Municipality(1, L"Brno");
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 1\u00A0250 obcí bez pošty, 2 obce bez okresu.");
}

TEST_F(LooseEnds, ListThatIsMissingIsNotAsked) {
  Municipality(1, L"Praha");
  EXPECT_EQ(Sentence(), L"");
  District(L"Brno");
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 1 obec bez okresu.");
  districts.clear();
  PostOffice(2);
  EXPECT_EQ(Sentence(), L"Soubory k sobě nepatří: 1 obec bez pošty.");
}

}  // namespace
}  // namespace kvez
