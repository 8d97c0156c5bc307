#include "text/error.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(Error, SentenceStandsBeforeTheCallAndItsCode) {
  const Error error(L"Nastavení se nepodařilo uložit.", "RegSetValueExW", 5);
  EXPECT_EQ(error.Text(), L"Nastavení se nepodařilo uložit.");
  EXPECT_EQ(error.Code(), 5U);
  EXPECT_EQ(error.TextWithCode(), L"Nastavení se nepodařilo uložit. (RegSetValueExW 5)");
}

TEST(Error, CallWithoutACodeAndNoCallAtAllSayNoNumber) {
  EXPECT_EQ(Error(L"Nic.", "CreatePopupMenu").TextWithCode(), L"Nic. (CreatePopupMenu)");
  EXPECT_EQ(ConversionError(L"Text není číslo.").TextWithCode(), L"Text není číslo.");
  EXPECT_EQ(OverflowError().TextWithCode(), L"Číslo je mimo povolený rozsah.");
}

}  // namespace
}  // namespace kvez
