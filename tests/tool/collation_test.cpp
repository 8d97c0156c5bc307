#include "platform/collation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#ifndef _WIN32
#include "platform/portable/collation/icu_collation.h"
#endif

namespace kvez {
namespace {

TEST(CzechCollation, LettersComeInTheOrderOfTheAlphabet) {
  const auto collation = CreateCzechCollation();
  const std::vector<std::wstring> sorted = {L"Aš",   L"Brno",     L"Cvikov",  L"Čáslav", L"Dačice",  L"Hora", L"Cheb",
                                            L"Ivaň", L"Rokycany", L"Řevnice", L"Slaný",  L"Šumperk", L"Zlín", L"Žatec"};
  std::vector<std::wstring> names = sorted;
  std::reverse(names.begin(), names.end());
  std::sort(names.begin(), names.end(), [&](const std::wstring& a, const std::wstring& b) {
    return collation->SortKey(a) < collation->SortKey(b);
  });
  EXPECT_EQ(names, sorted);
}

TEST(CzechCollation, AccentsDecideOnlyBetweenEqualLetters) {
  const auto collation = CreateCzechCollation();
  EXPECT_LT(collation->SortKey(L"Lipa"), collation->SortKey(L"Lípa"));
  EXPECT_LT(collation->SortKey(L"Lípa"), collation->SortKey(L"Lipar"));
}

TEST(CzechCollation, HyphenSeparatesWords) {
  const auto collation = CreateCzechCollation();
  EXPECT_LT(collation->SortKey(L"Brno-venkov"), collation->SortKey(L"Brnonice"));
}

TEST(CzechCollation, LongTextHasAWholeKey) {
  const auto collation = CreateCzechCollation();
  EXPECT_LT(collation->SortKey(std::wstring(5000, L'x') + L"a"), collation->SortKey(std::wstring(5000, L'x') + L"b"));
  EXPECT_EQ(collation->SortKey(L""), CreateCzechCollation()->SortKey(L""));
}

#ifndef _WIN32
TEST(CzechCollation, LanguageWithoutAnOrderOfItsOwnIsRefused) {
  EXPECT_THROW(CreateIcuCollation("xx"), std::runtime_error);
  EXPECT_THROW(CreateIcuCollation(std::string(1000, 'x').c_str()), std::runtime_error);
}
#endif

}  // namespace
}  // namespace kvez
