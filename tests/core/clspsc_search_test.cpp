#include <gtest/gtest.h>

#include "tests/core/loaded_database.h"
#include "text/error.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;
using Message = fakes::MessageDialogFake::Message;
using Row = fakes::ListBoxFake::Row;
using Texts = std::vector<std::wstring>;

class Search : public testing::Test {
 protected:
  Texts ByName(const std::wstring& text) {
    loaded.database.pscVyberPostu(text, loaded.list, loaded.description);
    return loaded.list.Texts();
  }
  Texts ByCode(bool exact, const std::wstring& text) {
    loaded.database.pscNajdiPSC(exact, text, loaded.list, loaded.description);
    return loaded.list.Texts();
  }
  Texts ByDistrict(std::int32_t district) {
    loaded.database.pscoDetail(district);
    loaded.database.pscoVyberPostu(loaded.list, loaded.description);
    return loaded.list.Texts();
  }

  LoadedDatabase loaded{{{11000, L"Praha 1", L"Hlavní město Praha"},
                         {19000, L"Praha IX", L"HLAVNÍ MĚSTO PRAHA"},
                         {11000, L"Praha-Libuš", L"Hlavní město Praha"},
                         {1100, L"Bechyně", L"Tábor"},
                         {38901, L"Lhotach", L"Strakonice"},
                         {-11000, L"Lhota u Prahy", L"tábor"}},
                        {{11000, L"Praha 1"}, {19000, L"Praha 9"}, {11000, L"Praha 111"}},
                        {{3100, L"Hlavní město Praha"}, {3308, L"Tábor"}, {1, L""}, {2, L"Písek"}}};
};

// By postal code

TEST_F(Search, ExactCodeIsFoundWithAndWithoutItsSpace) {
  const Texts expected = {L"Praha 1", L"Praha-Libuš"};
  EXPECT_EQ(ByCode(true, L"11000"), expected);
  EXPECT_EQ(loaded.description, L"Hledané obce s PSČ \"110 00\".");
  EXPECT_EQ(ByCode(true, L"110 00"), expected);
  EXPECT_EQ(loaded.description, L"Hledané obce s PSČ \"110 00\".");
  EXPECT_EQ(ByCode(true, L"110\u00A000"), expected);
  EXPECT_EQ(ByCode(true, L" 11000 "), expected);
  EXPECT_EQ(ByCode(true, L"011000"), expected);
}

TEST_F(Search, ExactCodeThatNobodyHasIsDescribedWithItsZeros) {
  EXPECT_EQ(ByCode(true, L"42"), Texts{});
  EXPECT_EQ(loaded.description, L"Hledané obce s PSČ \"000 42\".");
  EXPECT_EQ(loaded.database.pscNalezen(), false);
}

TEST_F(Search, ExactCodeThatIsNoNumberIsAConversionError) {
  ByName(L"Praha");
  EXPECT_THROW(ByCode(true, L"11x00"), ConversionError);  // its middle goes: "11x" and "00"
  EXPECT_THROW(ByCode(true, L"a"), ConversionError);
  EXPECT_THROW(ByCode(true, L"99999999999"), ConversionError);
  // What every search begins with has happened.
  EXPECT_EQ(loaded.list.Texts(), Texts{});
  EXPECT_EQ(loaded.description, L"Bez zadání.");
  EXPECT_EQ(loaded.database.pCelkem(), 0);
  EXPECT_EQ(loaded.database.pscNalezen(), false);
}

TEST_F(Search, BeginningOfTheCodeComparesItAsItIsWritten) {
  EXPECT_EQ(ByCode(false, L"11"), (Texts{L"Praha 1", L"Praha-Libuš", L"Bechyně"}));
  EXPECT_EQ(loaded.description, L"Obce s PSČ začínající na  \"11\".");
  EXPECT_EQ(ByCode(false, L"1100"), (Texts{L"Praha 1", L"Praha-Libuš", L"Bechyně"}));
  EXPECT_EQ(ByCode(false, L"11000"), (Texts{L"Praha 1", L"Praha-Libuš"}));
  EXPECT_EQ(ByCode(false, L"-11"), Texts{L"Lhota u Prahy"});
  // Codes have no leading zeros to compare with.
  EXPECT_EQ(ByCode(false, L"01"), Texts{});
  EXPECT_EQ(ByCode(false, L"110000"), Texts{});
}

TEST_F(Search, BeginningOfTheCodeIsDescribedAsTyped) {
  EXPECT_EQ(ByCode(false, L"110 00"), (Texts{L"Praha 1", L"Praha-Libuš"}));
  EXPECT_EQ(loaded.description, L"Obce s PSČ začínající na  \"110 00\".");
  // Blanks and signs around a number are part of what is compared.
  EXPECT_EQ(ByCode(false, L" 11"), Texts{});
  EXPECT_EQ(loaded.description, L"Obce s PSČ začínající na  \" 11\".");
  EXPECT_EQ(ByCode(false, L"+11"), Texts{});
  // Three characters and two, whatever the text is: "11x" and "1x".
  EXPECT_EQ(ByCode(false, L"11x"), Texts{});
  EXPECT_EQ(ByCode(false, L"110 "), Texts{});
}

TEST_F(Search, EmptyCodeFindsNothingAndSaysSo) {
  for (const bool exact : {true, false}) {
    ByName(L"Praha");
    ASSERT_GT(loaded.list.extent, 0);
    EXPECT_EQ(ByCode(exact, L""), Texts{});
    EXPECT_EQ(loaded.description, L"Bez zadání.");
    EXPECT_EQ(loaded.list.extent, 0) << "of rows that are gone";
  }
  EXPECT_TRUE(loaded.machine.messages.messages.empty());
}

TEST(SearchOfNothing, DatabaseWithoutMunicipalitiesFindsNothing) {
  fakes::Machine machine;
  clspsc database(machine.Platform(), fakes::kFolder);
  fakes::ListBoxFake list;
  std::wstring description;
  list.rows.push_back({L"old", 1});
  database.pscNajdiPSC(true, L"no number", list, description);
  EXPECT_EQ(description, L"Bez zadání.");
  EXPECT_EQ(list.rows.size(), 0U);
  database.pscVyberPostu(L"*", list, description);
  EXPECT_EQ(description, L"Seznam je prázdný.");
  EXPECT_TRUE(machine.messages.messages.empty());
}

// By the code of the current municipality

TEST_F(Search, SameCodeAsTheCurrentMunicipality) {
  loaded.database.pscDetail(3);
  loaded.database.pscObceKPSC(loaded.list, loaded.description);
  EXPECT_EQ(loaded.list.Texts(), (Texts{L"Praha 1", L"Praha-Libuš"}));
  EXPECT_EQ(loaded.description, L"Hledané obce s PSČ \"110 00\".");
  EXPECT_EQ(loaded.database.pVybran(), L"Zadání vyhovují 2 obce.");
}

TEST_F(Search, SameCodeIsTheNumberAndNotItsFormattedText) {
  // "1234 56" would be taken for 12356.
  LoadedDatabase strange({{12356, L"Jinde", L"x"}, {123456, L"Tady", L"x"}, {123456, L"Také tady", L"x"}}, {}, {});
  strange.database.pscDetail(2);
  strange.database.pscObceKPSC(strange.list, strange.description);
  EXPECT_EQ(strange.list.Texts(), (Texts{L"Tady", L"Také tady"}));
  EXPECT_EQ(strange.description, L"Hledané obce s PSČ \"1234 56\".");
}

TEST_F(Search, SameCodeWithoutACurrentMunicipalityIsNothing) {
  ByName(L"Praha");
  loaded.database.pscDetail(0);
  loaded.database.pscObceKPSC(loaded.list, loaded.description);
  EXPECT_EQ(loaded.list.Texts(), Texts{});
  EXPECT_EQ(loaded.description, L"Bez zadání.");
  loaded.database.pscDetail(1);
  loaded.database.pscUvolni();
  loaded.database.pscObceKPSC(loaded.list, loaded.description);
  EXPECT_EQ(loaded.description, L"Bez zadání.");
}

// By name

TEST_F(Search, NameFindsAllPartsAndShowsTheirFullNames) {
  EXPECT_EQ(ByName(L"Praha"), (Texts{L"Praha 1", L"Praha IX", L"Praha-Libuš"}));
  EXPECT_EQ(loaded.description, L"Název obce \"Praha\".");
  EXPECT_EQ(ByName(L"PRAHA"), (Texts{L"Praha 1", L"Praha IX", L"Praha-Libuš"}));
  EXPECT_EQ(loaded.description, L"Název obce \"PRAHA\".");
  EXPECT_EQ(ByName(L"Praha 1"), Texts{});  // the typed text is not shortened
}

TEST_F(Search, PatternsSelectByTheirWildcards) {
  EXPECT_EQ(ByName(L"Lhota*"), (Texts{L"Lhotach", L"Lhota u Prahy"}));
  EXPECT_EQ(loaded.description, L"Název začíná \"Lhota\".");
  EXPECT_EQ(ByName(L"*ně"), Texts{L"Bechyně"});
  EXPECT_EQ(loaded.description, L"Název končí \"ně\".");
  EXPECT_EQ(ByName(L"*rah*"), (Texts{L"Praha 1", L"Praha IX", L"Praha-Libuš", L"Lhota u Prahy"}));
  EXPECT_EQ(loaded.description, L"Název obsahuje \"rah\".");
  EXPECT_EQ(ByName(L"l*y"), Texts{L"Lhota u Prahy"});
  EXPECT_EQ(loaded.description, L"Název začíná \"l\" a končí \"y\".");
  EXPECT_EQ(ByName(L"a*"), Texts{});
  EXPECT_EQ(loaded.description, L"Název začíná \"a\".");
}

TEST_F(Search, DigraphIsNotSplit) {
  EXPECT_EQ(ByName(L"Lhotac*"), Texts{});
  EXPECT_EQ(ByName(L"Lhotach*"), Texts{L"Lhotach"});
  EXPECT_EQ(ByName(L"*h"), Texts{});
  EXPECT_EQ(ByName(L"*CH"), Texts{L"Lhotach"});
  EXPECT_EQ(ByName(L"*ch*"), (Texts{L"Bechyně", L"Lhotach"}));
}

TEST_F(Search, WildcardsAloneAreRefused) {
  for (const wchar_t* text : {L"*", L"**", L"?*", L"?", L"??", L"*?"}) {
    ByName(L"Praha");
    loaded.machine.messages.messages.clear();
    EXPECT_EQ(ByName(text), Texts{}) << text;
    EXPECT_EQ(loaded.machine.messages.messages,
              (std::vector<Message>{{L"Zadejte minimálně 1 znak pro vyhledání !", MessageIcon::Exclamation, L"Kvez"}}));
    EXPECT_EQ(loaded.description, L"Seznam je prázdný.");
    EXPECT_EQ(loaded.database.pCelkem(), 0);
    EXPECT_EQ(loaded.database.pscNalezen(), false);
  }
}

TEST_F(Search, EmptyNameFindsNothingAndSaysSo) {
  EXPECT_EQ(ByName(L""), Texts{});
  EXPECT_EQ(loaded.description, L"Seznam je prázdný.");
  EXPECT_TRUE(loaded.machine.messages.messages.empty());
}

TEST_F(Search, CharacterOutsideTheCodePageIsInNoName) {
  for (const wchar_t* text : {L"Ωmega", L"Ω*", L"*Ω", L"*Ω*", L"P*Ω", L"Ω*a"}) EXPECT_EQ(ByName(text), Texts{}) << text;
}

// By district

TEST_F(Search, DistrictFindsItsMunicipalitiesWithoutRegardToCase) {
  EXPECT_EQ(ByDistrict(1), (Texts{L"Praha 1", L"Praha IX", L"Praha-Libuš"}));
  EXPECT_EQ(loaded.description, L"Obce v okrese \"Hlavní město Praha\".");
  EXPECT_EQ(ByDistrict(2), (Texts{L"Bechyně", L"Lhota u Prahy"}));
  EXPECT_EQ(loaded.description, L"Obce v okrese \"Tábor\".");
  EXPECT_EQ(ByDistrict(4), Texts{});
  EXPECT_EQ(loaded.description, L"Obce v okrese \"Písek\".");
  EXPECT_EQ(loaded.list.extent, 0);
}

TEST_F(Search, NoDistrictFindsNothingAndSaysSo) {
  ByDistrict(1);
  for (const std::int32_t district : {0, 3, 5, -1}) {  // 3 has an empty name
    EXPECT_EQ(ByDistrict(district), Texts{}) << district;
    EXPECT_EQ(loaded.description, L"Bez zadání.");
    EXPECT_EQ(loaded.database.pCelkem(), 0);
  }
}

// What every search leaves behind

TEST_F(Search, RowsCarryTheirIndexInTheResult) {
  ByName(L"Praha");
  EXPECT_EQ(loaded.list.rows, (std::vector<Row>{{L"Praha 1", 1}, {L"Praha IX", 2}, {L"Praha-Libuš", 3}}));
  loaded.database.pDetail(loaded.list.rows[2].data);
  EXPECT_EQ(loaded.database.pscObec(), L"Praha-Libuš");
}

TEST_F(Search, WidestRowAndTwoSpacesGiveTheExtent) {
  ByName(L"Praha");
  EXPECT_EQ(loaded.list.extent, 10 * (11 + 2));
  EXPECT_EQ(loaded.list.announcedRows, 3U);
  EXPECT_EQ(loaded.list.announcedCharacters, 7U + 8U + 11U);
  EXPECT_EQ(loaded.list.openFillings, 0);
  ByName(L"Brno");
  EXPECT_EQ(loaded.list.extent, 0);
  EXPECT_EQ(loaded.list.rows.size(), 0U);
  EXPECT_EQ(loaded.list.openFillings, 0);
}

TEST_F(Search, CursorStandsOnTheLastListedMunicipality) {
  ByName(L"Praha");
  EXPECT_EQ(loaded.database.pscPozice(), 3);
  EXPECT_EQ(loaded.database.pscObec(), L"Praha-Libuš");
  EXPECT_EQ(loaded.database.pscDodavaci(), L"Praha 1");
  EXPECT_EQ(loaded.database.pscNalezen(), true);
  EXPECT_EQ(loaded.database.pVybran(), L"Zadání vyhovují 3 obce.");  // the result cursor is 0
}

TEST_F(Search, NothingFoundLeavesTheCursorWhereItWas) {
  loaded.database.pscDetail(2);
  ByName(L"Brno");
  EXPECT_EQ(loaded.database.pscPozice(), 2);
  EXPECT_EQ(loaded.database.pscObec(), L"Praha IX");
  EXPECT_EQ(loaded.database.pscNalezen(), false);
  EXPECT_EQ(loaded.database.pVybran(), L"Seznam je prázdný.");
}

TEST_F(Search, NextSearchReplacesTheResult) {
  ByName(L"Praha");
  loaded.database.pDetail(2);
  ByCode(true, L"1100");
  EXPECT_EQ(loaded.database.pCelkem(), 1);
  loaded.database.pDetail(1);
  EXPECT_EQ(loaded.database.pscObec(), L"Bechyně");
  ByName(L"Brno");
  EXPECT_EQ(loaded.database.pVybran(), L"Seznam je prázdný.");
}

TEST_F(Search, FillingCarriesThePostOfficeOverFromRowToRow) {
  // Bechyně and the two villages have none: each keeps what was there before.
  loaded.database.pscDetail(2);
  ByName(L"Lhota*");
  EXPECT_EQ(loaded.database.pscDodavaci(), L"Praha 9");
  ByName(L"*h*");  // the last row with a post office is Praha-Libuš
  EXPECT_EQ(loaded.database.pscObec(), L"Lhota u Prahy");
  EXPECT_EQ(loaded.database.pscDodavaci(), L"Praha 1");
}

}  // namespace
}  // namespace kvez
