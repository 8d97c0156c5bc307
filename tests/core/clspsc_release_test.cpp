#include <gtest/gtest.h>

#include "tests/core/loaded_database.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;
using Fractions = std::vector<float>;

LoadedDatabase::Municipality Village(std::int32_t code) { return {code, L"Lhota", L"Praha"}; }

TEST(Release, FreshObjectDoesNothingAndShowsNoProgress) {
  fakes::Machine machine;
  fakes::ProgressWindowFake window;
  clspsc database(machine.Platform(), fakes::kFolder);
  database.pscUvolniPamet(window);
  database.pscUvolni();
  EXPECT_EQ(window.shrinking, Fractions{});
  EXPECT_EQ(window.growing, Fractions{});
  EXPECT_EQ(database.pscCelkem(), 0);
  EXPECT_TRUE(machine.log.empty());
}

TEST(Release, EmptiesAllFourLists) {
  LoadedDatabase loaded({Village(11000), Village(12000)}, {{11000, L"Praha 1"}}, {{1, L"Praha"}});
  loaded.database.pscVyberPostu(L"Lhota", loaded.list, loaded.description);
  ASSERT_EQ(loaded.database.pCelkem(), 2);
  loaded.database.pscUvolni();
  EXPECT_EQ(loaded.database.pscCelkem(), 0);
  EXPECT_EQ(loaded.database.pscoCelkem(), 0);
  EXPECT_EQ(loaded.database.pCelkem(), 0);
  EXPECT_EQ(loaded.database.pscPozice(), 0);
  EXPECT_TRUE(loaded.window.shrinking.empty());
  EXPECT_EQ(loaded.database.pscVybran(), L"Seznam je prázdný.");
  EXPECT_EQ(loaded.database.pVybran(), L"Seznam je prázdný.");
}

TEST(Release, ShortListsShowEverySecondElementOnTheWayDown) {
  LoadedDatabase loaded({Village(1), Village(2), Village(3), Village(4)}, {{1, L"a"}, {2, L"b"}, {3, L"c"}},
                        {{1, L"x"}, {2, L"y"}});
  loaded.database.pscVyberPostu(L"Lhota", loaded.list, loaded.description);
  loaded.database.pscUvolniPamet(loaded.window);
  // Municipalities, post offices, districts; the result has none.
  EXPECT_EQ(loaded.window.shrinking,
            (Fractions{3.0F * (1.0F / 4.0F), 1.0F * (1.0F / 4.0F), 2.0F * (1.0F / 3.0F), 1.0F * (1.0F / 2.0F)}));
  EXPECT_TRUE(loaded.window.growing.empty());
  EXPECT_EQ(loaded.database.pCelkem(), 0);
}

TEST(Release, ListOf2000ShowsEverySecondElement) {
  LoadedDatabase loaded(std::vector<LoadedDatabase::Municipality>(2000, Village(11000)), {}, {});
  loaded.database.pscUvolniPamet(loaded.window);
  ASSERT_EQ(loaded.window.shrinking.size(), 1000U);
  EXPECT_EQ(loaded.window.shrinking.front(), 1999.0F * (1.0F / 2000.0F));
  EXPECT_EQ(loaded.window.shrinking.back(), 1.0F * (1.0F / 2000.0F));
}

TEST(Release, ListOf2001ShowsEvery21stElement) {
  LoadedDatabase loaded(std::vector<LoadedDatabase::Municipality>(2001, Village(11000)), {}, {});
  loaded.database.pscUvolniPamet(loaded.window);
  Fractions expected;
  for (int index = 2001 - 20; index >= 1; index -= 21) expected.push_back(static_cast<float>(index) * (1.0F / 2001.0F));
  EXPECT_EQ(expected.size(), 95U);
  EXPECT_EQ(loaded.window.shrinking, expected);
}

TEST(Release, MunicipalityCursorRunsDownWithTheRelease) {
  LoadedDatabase loaded({Village(1), Village(2), Village(3), Village(4)}, {}, {});
  std::vector<std::int32_t> positions;
  loaded.window.onProgress = [&] { positions.push_back(loaded.database.pscPozice()); };
  loaded.database.pscUvolniPamet(loaded.window);
  EXPECT_EQ(positions, (std::vector<std::int32_t>{3, 1}));
  EXPECT_EQ(loaded.database.pscPozice(), 0);
}

TEST(Release, AskingInTheMiddleIsHarmless) {
  LoadedDatabase loaded({Village(1), Village(2), Village(3), Village(4)}, {{4, L"Praha 4"}}, {{1, L"x"}, {2, L"y"}});
  loaded.database.pscVyberPostu(L"Lhota", loaded.list, loaded.description);
  std::vector<std::int32_t> counts;
  std::vector<std::size_t> rows;
  loaded.window.onProgress = [&] {
    counts.push_back(loaded.database.pscCelkem());
    fakes::ProgressWindowFake another;
    loaded.database.pscVyberVse(loaded.list, another);
    rows.push_back(loaded.list.rows.size());
    loaded.database.pscoVyberVse(loaded.list, another);
    loaded.database.pscoDetail(2);
    loaded.database.pDetail(4);
    loaded.database.pscVyberPostu(L"*hot*", loaded.list, loaded.description);
    rows.push_back(loaded.list.rows.size());
    loaded.database.pscDetail(4);
  };
  loaded.database.pscUvolniPamet(loaded.window);
  EXPECT_EQ(counts, (std::vector<std::int32_t>{4, 4, 0}));  // two of the municipalities, one of the districts
  EXPECT_EQ(rows, (std::vector<std::size_t>{2, 2, 0, 0, 0, 0}));
  EXPECT_EQ(loaded.database.pscCelkem(), 0);
  EXPECT_EQ(loaded.database.pscoCelkem(), 0);
  EXPECT_EQ(loaded.database.pCelkem(), 0);
  EXPECT_EQ(loaded.database.pscPozice(), 0);
}

TEST(Release, WindowThatCannotShowItDoesNotStopIt) {
  LoadedDatabase loaded({Village(1), Village(2), Village(3), Village(4)}, {{1, L"a"}, {2, L"b"}},
                        {{1, L"x"}, {2, L"y"}});
  int shown = 0;
  loaded.window.onProgress = [&shown] {
    ++shown;
    throw std::bad_alloc();
  };
  loaded.database.pscUvolniPamet(loaded.window);
  EXPECT_EQ(shown, 3);  // once for each list
  EXPECT_EQ(loaded.database.pscCelkem(), 0);
  EXPECT_EQ(loaded.database.pscoCelkem(), 0);
  EXPECT_EQ(loaded.database.Municipalities().size(), 0U);
  EXPECT_EQ(loaded.database.PostOffices().size(), 0U);
  EXPECT_EQ(loaded.database.pscPozice(), 0);
}

// The count still says 4 when the last element that is left is the second.
TEST(Release, ElementThatIsReleasedAlreadyIsNone) {
  LoadedDatabase loaded({Village(1), Village(2), Village(3), Village(4)}, {}, {{1, L"a"}, {2, L"b"}, {3, L"c"}});
  std::vector<std::int32_t> positions;
  loaded.window.onProgress = [&] {
    for (const std::int32_t n : {4, 3, 2, 1}) {
      loaded.database.pscDetail(n);
      positions.push_back(loaded.database.pscPozice());
    }
  };
  loaded.database.pscUvolniPamet(loaded.window);
  // Shown when the third and when the first went; then once for the districts, when no municipality is left.
  EXPECT_EQ(positions, (std::vector<std::int32_t>{0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(Release, DistrictThatIsReleasedAlreadyIsNone) {
  LoadedDatabase loaded({}, {}, {{1, L"a"}, {2, L"b"}, {3, L"c"}, {4, L"d"}});
  std::vector<std::wstring> texts;
  loaded.window.onProgress = [&] {
    for (const std::int32_t n : {4, 3, 2, 1}) {
      loaded.database.pscoDetail(n);
      texts.push_back(loaded.database.pscoVybran());
    }
  };
  loaded.database.pscUvolniPamet(loaded.window);
  const std::wstring none = L"V seznamu jsou 4 okresy.";
  EXPECT_EQ(texts, (std::vector<std::wstring>{none, none, L"2. záznam z 4", L"1. záznam z 4", none, none, none, none}));
}

TEST(Release, CurrentFieldsStayUntilTheNextLoading) {
  LoadedDatabase loaded({Village(11000)}, {{11000, L"Praha 1"}}, {{1, L"Praha"}});
  loaded.database.pscDetail(1);
  loaded.database.pscUvolni();
  EXPECT_EQ(loaded.database.pscObec(), L"Lhota");
  EXPECT_EQ(loaded.database.pscPSCObec(), L"110 00  Praha 1");
  EXPECT_EQ(loaded.database.pscNalezen(), true);
  loaded.Load();
  EXPECT_EQ(loaded.database.pscObec(), L"");
  EXPECT_EQ(loaded.database.pscPSCObec(), L"");
  EXPECT_EQ(loaded.database.pscNalezen(), false);
}

TEST(Release, ReleasedDatabaseLoadsAgain) {
  LoadedDatabase loaded({Village(11000)}, {{11000, L"Praha 1"}}, {{1, L"Praha"}});
  loaded.database.pscUvolniPamet(loaded.window);
  loaded.municipalityFile.clear();
  fakes::AppendMunicipality(loaded.municipalityFile, 60200, L"Brno 2", L"Brno-město");
  fakes::AppendMunicipality(loaded.municipalityFile, 11000, L"Praha 1", L"Praha");
  loaded.Load();
  EXPECT_EQ(loaded.database.pscCelkem(), 2);
  EXPECT_EQ(loaded.database.pscoCelkem(), 1);
  loaded.database.pscDetail(1);
  EXPECT_EQ(loaded.database.pscObec(), L"Brno 2");
  loaded.database.pscDetail(2);
  EXPECT_EQ(loaded.database.pscDodavaci(), L"Praha 1");
  loaded.database.pscVyberPostu(L"Lhota", loaded.list, loaded.description);
  EXPECT_EQ(loaded.database.pCelkem(), 0);
}

}  // namespace
}  // namespace kvez
