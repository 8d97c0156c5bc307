#include <gtest/gtest.h>

#include <ostream>

#include "database/status_text.h"
#include "tests/core/loaded_database.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;

class Cursors : public testing::Test {
 protected:
  LoadedDatabase loaded{{{13900, L"Nikde", L"Praha"},
                         {11000, L"Praha 1", L"Praha"},
                         {13900, L"Taky nikde", L"Praha"},
                         {60200, L"Brno", L"Brno-město"}},
                        {{60200, L"Brno 2"}, {11000, L"Praha 1"}, {11000, L"Praha 111"}},
                        {{3100, L"Praha"}, {3702, L"Brno-město"}}};
  clspsc& database = loaded.database;
};

TEST_F(Cursors, MunicipalityFillsTheCurrentFields) {
  database.pscDetail(4);
  EXPECT_EQ(database.pscPozice(), 4);
  EXPECT_EQ(database.pscPSC(), L"602 00");
  EXPECT_EQ(database.pscObec(), L"Brno");
  EXPECT_EQ(database.pscOkres(), L"Brno-město");
  EXPECT_EQ(database.pscDodavaci(), L"Brno 2");
  EXPECT_EQ(database.pscPSCObec(), L"602 00  Brno 2");
  EXPECT_EQ(database.pscNalezen(), true);
}

TEST_F(Cursors, IndexOutOfRangeClearsTheCurrentFieldsAndTheFoundFlag) {
  for (const std::int32_t n : {5, 0, -1, 2147483647, -2147483647 - 1}) {
    database.pscDetail(4);
    database.pscDetail(n);
    EXPECT_EQ(database.pscPozice(), 0) << n;
    EXPECT_EQ(database.pscPSC(), L"");
    EXPECT_EQ(database.pscObec(), L"");
    EXPECT_EQ(database.pscOkres(), L"");
    EXPECT_EQ(database.pscDodavaci(), L"");
    EXPECT_EQ(database.pscPSCObec(), L"");
    EXPECT_EQ(database.pscNalezen(), false);
  }
}

TEST_F(Cursors, FirstPostOfficeOfTheCodeIsTaken) {
  database.pscDetail(2);
  EXPECT_EQ(database.pscDodavaci(), L"Praha 1");
}

TEST_F(Cursors, WithoutAPostOfficeTheOneShownBeforeStays) {
  database.pscDetail(1);
  EXPECT_EQ(database.pscDodavaci(), L"");
  EXPECT_EQ(database.pscPSCObec(), L"139 00  ");
  database.pscDetail(2);
  database.pscDetail(3);
  EXPECT_EQ(database.pscDodavaci(), L"Praha 1");
  EXPECT_EQ(database.pscPSCObec(), L"139 00  Praha 1");
  database.pscDetail(4);
  database.pscDetail(1);
  EXPECT_EQ(database.pscDodavaci(), L"Brno 2");
  // Selecting nothing empties it.
  database.pscDetail(0);
  database.pscDetail(1);
  EXPECT_EQ(database.pscDodavaci(), L"");
}

TEST_F(Cursors, NextAndPreviousStopAtTheEnds) {
  database.pscDetail(3);
  database.pscDetailPlus();
  EXPECT_EQ(database.pscPozice(), 4);
  database.pscDetailPlus();
  EXPECT_EQ(database.pscPozice(), 4);
  EXPECT_EQ(database.pscObec(), L"Brno");
  database.pscDetail(2);
  database.pscDetailMinus();
  EXPECT_EQ(database.pscPozice(), 1);
  database.pscDetailMinus();
  EXPECT_EQ(database.pscPozice(), 1);
  EXPECT_EQ(database.pscObec(), L"Nikde");
}

TEST_F(Cursors, NextFromNothingIsTheFirstAndPreviousStaysAtNothing) {
  database.pscDetailMinus();
  EXPECT_EQ(database.pscPozice(), 0);
  EXPECT_EQ(database.pscNalezen(), false);
  database.pscDetailPlus();
  EXPECT_EQ(database.pscPozice(), 1);
  database.pscDetail(0);
  database.pscUvolni();
  database.pscDetailPlus();
  EXPECT_EQ(database.pscPozice(), 0);
}

TEST_F(Cursors, StoppingAtAnEndAppliesTheMunicipalityAgain) {
  database.pscDetail(1);
  loaded.database.pscVyberPostu(L"nothing", loaded.list, loaded.description);
  EXPECT_EQ(database.pscNalezen(), false);
  database.pscDetailMinus();
  EXPECT_EQ(database.pscNalezen(), true);
}

TEST_F(Cursors, DistrictCursorLeavesTheMunicipalityAlone) {
  database.pscDetail(4);
  database.pscoDetail(1);
  EXPECT_EQ(database.pscoVybran(), L"1. záznam z 2");
  EXPECT_EQ(database.pscObec(), L"Brno");
  EXPECT_EQ(database.pscNalezen(), true);
  database.pscoDetail(3);
  EXPECT_EQ(database.pscoVybran(), L"V seznamu jsou 2 okresy.");
  EXPECT_EQ(database.pscNalezen(), true);
  database.pscDetail(0);
  database.pscoDetail(2);
  EXPECT_EQ(database.pscNalezen(), false);
}

TEST_F(Cursors, ResultCursorMovesTheMunicipalityCursorToo) {
  database.pscVyberPostu(L"*n*", loaded.list, loaded.description);
  ASSERT_EQ(loaded.list.Texts(), (std::vector<std::wstring>{L"Nikde", L"Taky nikde", L"Brno"}));
  database.pDetail(3);
  EXPECT_EQ(database.pscPozice(), 4);
  EXPECT_EQ(database.pVybran(), L"3. záznam z 3");
  EXPECT_EQ(database.pscVybran(), L"4. záznam z 4");
  for (const std::int32_t n : {4, 0, -1}) {
    database.pDetail(3);
    database.pDetail(n);
    EXPECT_EQ(database.pscPozice(), 0) << n;
    EXPECT_EQ(database.pVybran(), L"Zadání vyhovují 3 obce.");
    EXPECT_EQ(database.pscObec(), L"");
  }
}

TEST_F(Cursors, ReadingTheWholeResultRowByRow) {
  database.pscVyberPostu(L"*n*", loaded.list, loaded.description);
  std::vector<std::wstring> rows;
  for (std::int32_t i = 1; i <= database.pCelkem(); ++i) {
    database.pDetail(i);
    rows.push_back(database.pscPSC() + L";" + database.pscDodavaci() + L";" + database.pscObec() + L";" +
                   database.pscOkres());
  }
  // The search left the cursor on Brno, and Nikde has no post office of its own.
  EXPECT_EQ(rows, (std::vector<std::wstring>{L"139 00;Brno 2;Nikde;Praha", L"139 00;Brno 2;Taky nikde;Praha",
                                             L"602 00;Brno 2;Brno;Brno-město"}));
}

TEST_F(Cursors, EachCodeIsFormattedOnce) {
  for (int round = 0; round < 3; ++round) {
    for (std::int32_t n = 1; n <= 4; ++n) {
      database.pscDetail(n);
      database.pscPSC();
      database.pscPSCObec();
    }
  }
  EXPECT_EQ(loaded.machine.formats.numbers, 3U);
}

// Status texts

TEST_F(Cursors, StatusTextsOfTheThreeLists) {
  EXPECT_EQ(database.pscVybran(), L"V seznamu jsou 4 obce.");
  EXPECT_EQ(database.pscoVybran(), L"V seznamu jsou 2 okresy.");
  EXPECT_EQ(database.pVybran(), L"Seznam je prázdný.");
  database.pscDetail(2);
  database.pscoDetail(2);
  EXPECT_EQ(database.pscVybran(), L"2. záznam z 4");
  EXPECT_EQ(database.pscoVybran(), L"2. záznam z 2");
}

TEST_F(Cursors, ReleasedDistrictsWithTheirCursorStillSetSayNothing) {
  database.pscoDetail(2);
  database.pscUvolni();
  EXPECT_EQ(database.pscoVybran(), L"");
  database.pscoDetail(2);
  EXPECT_EQ(database.pscoVybran(), L"Seznam je prázdný.");
}

struct Count {
  std::int32_t count;
  const wchar_t* municipalities;
  const wchar_t* districts;
  const wchar_t* result;
};

void PrintTo(const Count& counted, std::ostream* out) { *out << counted.count; }

class StatusTexts : public testing::TestWithParam<Count> {};

TEST_P(StatusTexts, TakeTheFormOfTheWholeCount) {
  const auto count = static_cast<std::size_t>(GetParam().count);
  LoadedDatabase loaded(std::vector<LoadedDatabase::Municipality>(count, {1, L"Lhota", L"Praha"}), {},
                        std::vector<LoadedDatabase::Named>(count, {1, L"Praha"}));
  EXPECT_EQ(loaded.database.pscVybran(), GetParam().municipalities);
  EXPECT_EQ(loaded.database.pscoVybran(), GetParam().districts);
  loaded.database.pscVyberPostu(L"Lhota", loaded.list, loaded.description);
  EXPECT_EQ(loaded.database.pVybran(), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Counts, StatusTexts,
    testing::Values(Count{1, L"V seznamu je 1 obec.", L"V seznamu je 1 okres.", L"Zadání vyhovuje 1 obec."},
                    Count{2, L"V seznamu jsou 2 obce.", L"V seznamu jsou 2 okresy.", L"Zadání vyhovují 2 obce."},
                    Count{4, L"V seznamu jsou 4 obce.", L"V seznamu jsou 4 okresy.", L"Zadání vyhovují 4 obce."},
                    Count{5, L"V seznamu je 5 obcí.", L"V seznamu je 5 okresů.", L"Zadání vyhovuje 5 obcí."},
                    Count{12, L"V seznamu je 12 obcí.", L"V seznamu je 12 okresů.", L"Zadání vyhovuje 12 obcí."},
                    Count{14, L"V seznamu je 14 obcí.", L"V seznamu je 14 okresů.", L"Zadání vyhovuje 14 obcí."},
                    Count{21, L"V seznamu je 21 obcí.", L"V seznamu je 21 okresů.", L"Zadání vyhovuje 21 obcí."},
                    Count{22, L"V seznamu je 22 obcí.", L"V seznamu je 22 okresů.", L"Zadání vyhovuje 22 obcí."},
                    Count{104, L"V seznamu je 104 obcí.", L"V seznamu je 104 okresů.", L"Zadání vyhovuje 104 obcí."},
                    Count{1000, L"V seznamu je 1\u00A0000 obcí.", L"V seznamu je 1\u00A0000 okresů.",
                          L"Zadání vyhovuje 1\u00A0000 obcí."}),
    [](const testing::TestParamInfo<Count>& counted) { return std::to_string(counted.param.count); });

TEST(StatusText, CursorAndCountHaveTheirGroups) {
  LoadedDatabase loaded(std::vector<LoadedDatabase::Municipality>(1250, {1, L"Lhota", L"Praha"}), {}, {});
  loaded.database.pscDetail(3);
  EXPECT_EQ(loaded.database.pscVybran(), L"3. záznam z 1\u00A0250");
  loaded.database.pscDetail(1249);
  EXPECT_EQ(loaded.database.pscVybran(), L"1\u00A0249. záznam z 1\u00A0250");
}

TEST(StatusText, OtherCombinationsSayNothing) {
  PortableFormats formats;
  const CountSentences sentences = {L"1", L"", L"", L"", L""};
  EXPECT_EQ(StatusText(formats, 0, 3, sentences), L"");
  EXPECT_EQ(StatusText(formats, 0, -1, sentences), L"");
  EXPECT_EQ(StatusText(formats, 1, -1, sentences), L"");
  EXPECT_EQ(StatusText(formats, -1, 0, sentences), L"");
  EXPECT_EQ(StatusText(formats, 1, 0, sentences), L"1");
}

}  // namespace
}  // namespace kvez
