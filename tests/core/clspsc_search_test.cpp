#include <gtest/gtest.h>

#include "tests/core/loaded_database.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;
using Texts = std::vector<std::wstring>;

TEST(NameSearch, PrahaFindsItsNumberedAndHyphenatedParts) {
  LoadedDatabase loaded({{11000, L"Praha 1", L"Praha"},
                         {19000, L"Praha IX", L"Praha"},
                         {14200, L"Praha-Libuš", L"Praha"},
                         {38901, L"Prahatice", L"Strakonice"}},
                        {{11000, L"Praha 1"}}, {{3100, L"Praha"}});
  loaded.database.pscVyberPostu(L"praha", loaded.list, loaded.description);
  EXPECT_EQ(loaded.list.Texts(), (Texts{L"Praha 1", L"Praha IX", L"Praha-Libuš"}));
  EXPECT_EQ(loaded.description, L"Název obce \"praha\".");
  EXPECT_EQ(loaded.database.pVybran(), L"Zadání vyhovují 3 obce.");
}

}  // namespace
}  // namespace kvez
