#include <gtest/gtest.h>

#include "tests/core/loaded_database.h"
#include "text/error.h"

namespace kvez {
namespace {

using fakes::kFolder;
using Place = fakes::SettingsStoreFake::Place;

class Settings : public testing::Test {
 protected:
  void Store(const std::wstring& key, const std::wstring& value) {
    machine.settings.values[Place(L"VD", L"VDKVEZ", key)] = value;
  }

  fakes::Machine machine;
  clspsc database{machine.Platform(), kFolder};
};

TEST_F(Settings, KeyThatWasNeverWrittenReadsAsZero) { EXPECT_EQ(database.vGetNastaveniRegistr(0), 0); }

TEST_F(Settings, EveryNumberButZeroReadsAsOne) {
  for (const wchar_t* stored : {L"1", L"5", L"-1", L" 7 ", L"32767", L"-32768"}) {
    Store(L"nastavení2", stored);
    EXPECT_EQ(database.vGetNastaveniRegistr(2), 1) << stored;
  }
  for (const wchar_t* stored : {L"0", L"-0", L"000", L" 0"}) {
    Store(L"nastavení2", stored);
    EXPECT_EQ(database.vGetNastaveniRegistr(2), 0) << stored;
  }
}

TEST_F(Settings, TextThatIsNoNumberIsAConversionError) {
  for (const wchar_t* stored : {L"ano", L"", L"1,5", L"32768"}) {
    Store(L"nastavení0", stored);
    EXPECT_THROW(database.vGetNastaveniRegistr(0), ConversionError) << stored;
  }
}

TEST_F(Settings, EachNumberHasItsOwnKey) {
  database.vSetNastaveniRegistr(0, 1);
  database.vSetNastaveniRegistr(2, 0);
  database.vSetNastaveniRegistr(12, -1);
  EXPECT_EQ(machine.settings.values, (std::map<Place, std::wstring>{{{L"VD", L"VDKVEZ", L"nastavení0"}, L"1"},
                                                                    {{L"VD", L"VDKVEZ", L"nastavení2"}, L"0"},
                                                                    {{L"VD", L"VDKVEZ", L"nastavení12"}, L"-1"}}));
  EXPECT_EQ(database.vGetNastaveniRegistr(0), 1);
  EXPECT_EQ(database.vGetNastaveniRegistr(1), 0);
  EXPECT_EQ(database.vGetNastaveniRegistr(2), 0);
}

TEST_F(Settings, DatabaseDateIsThatOfTheMunicipalityFile) {
  const DateTime date = {2024, 3, 1, 12, 30, 59};
  machine.disk.written[kFolder + L"\\vd1.kl_"] = date;
  machine.disk.written[kFolder + L"\\vd2.kl_"] = {2026, 1, 1, 0, 0, 0};
  machine.disk.written[kFolder + L"\\vd3.kl_"] = {2026, 1, 1, 0, 0, 0};
  EXPECT_EQ(database.pscDatabazeZeDne(), date);
}

TEST_F(Settings, MissingMunicipalityFileHasNoDate) { EXPECT_EQ(database.pscDatabazeZeDne(), DateTime{}); }

}  // namespace
}  // namespace kvez
