#include <gtest/gtest.h>

#include "tests/core/loaded_database.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;
using Row = fakes::ListBoxFake::Row;
using Fractions = std::vector<float>;

TEST(Listing, AllMunicipalitiesWithTheirIndex) {
  LoadedDatabase loaded({{1, L"Praha 1", L"Praha"}, {2, L"Brno-Líšeň", L"Brno"}, {3, L"Aš", L"Cheb"}}, {},
                        {{1, L"Praha"}});
  loaded.database.pscVyberPostu(L"Aš", loaded.list, loaded.description);
  loaded.database.pDetail(1);
  loaded.database.pscVyberVse(loaded.list, loaded.window);
  EXPECT_EQ(loaded.list.rows, (std::vector<Row>{{L"Praha 1", 1}, {L"Brno-Líšeň", 2}, {L"Aš", 3}}));
  EXPECT_EQ(loaded.list.extent, 10 * (10 + 2));
  EXPECT_EQ(loaded.list.announcedRows, 3U);
  EXPECT_EQ(loaded.list.announcedCharacters, 7U + 10U + 2U);
  EXPECT_EQ(loaded.list.openFillings, 0);
  EXPECT_EQ(loaded.window.growing, Fractions{2.0F * (1.0F / 3.0F)});
  // The result and the cursors stay.
  EXPECT_EQ(loaded.database.pCelkem(), 1);
  EXPECT_EQ(loaded.database.pVybran(), L"1. záznam z 1");
  EXPECT_EQ(loaded.database.pscPozice(), 3);
  EXPECT_EQ(loaded.database.pscNalezen(), true);
}

TEST(Listing, AllDistrictsWithTheirIndex) {
  LoadedDatabase loaded({{1, L"Praha 1", L"Praha"}}, {},
                        {{1, L"Praha"}, {2, L"Brno-město"}, {3, L"Cheb"}, {4, L"Zlín"}});
  loaded.database.pscoVyberVse(loaded.list, loaded.window);
  EXPECT_EQ(loaded.list.rows, (std::vector<Row>{{L"Praha", 1}, {L"Brno-město", 2}, {L"Cheb", 3}, {L"Zlín", 4}}));
  EXPECT_EQ(loaded.list.extent, 10 * (10 + 2));
  EXPECT_EQ(loaded.list.announcedCharacters, 5U + 10U + 4U + 4U);
  EXPECT_EQ(loaded.window.growing, (Fractions{0.5F, 1.0F}));
  EXPECT_EQ(loaded.database.pCelkem(), 0);
}

TEST(Listing, EmptyListsClearTheBox) {
  fakes::Machine machine;
  clspsc database(machine.Platform(), fakes::kFolder);
  fakes::ListBoxFake list;
  fakes::ProgressWindowFake window;
  list.rows.push_back({L"old", 1});
  database.pscVyberVse(list, window);
  EXPECT_EQ(list.rows.size(), 0U);
  EXPECT_EQ(list.extent, 0);
  list.rows.push_back({L"old", 1});
  list.extent = 50;
  database.pscoVyberVse(list, window);
  EXPECT_EQ(list.rows.size(), 0U);
  EXPECT_EQ(list.extent, 0);
  EXPECT_TRUE(window.growing.empty());
}

TEST(Listing, ProgressGoesByElements) {
  for (const std::size_t count : {2000U, 2001U}) {
    LoadedDatabase loaded(std::vector<LoadedDatabase::Municipality>(count, {1, L"Lhota", L"Praha"}), {}, {});
    loaded.database.pscVyberVse(loaded.list, loaded.window);
    const std::size_t every = count == 2000 ? 2 : 21;
    Fractions expected;
    for (std::size_t i = every; i <= count; i += every) {
      expected.push_back(static_cast<float>(i) * (1.0F / static_cast<float>(count)));
    }
    EXPECT_EQ(loaded.window.growing, expected);
  }
}

}  // namespace
}  // namespace kvez
