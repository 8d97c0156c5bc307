#include <gtest/gtest.h>

#include "tests/core/loaded_database.h"

namespace kvez {
namespace {

using fakes::Bytes;
using fakes::kFolder;
using fakes::Log;
using fakes::Machine;
using fakes::ProgressWindowFake;
using Message = fakes::MessageDialogFake::Message;
using Fractions = std::vector<float>;

const Message kMunicipalitiesDamaged = {L"Soubor se seznamem PSČ je poškozen nebo neexistuje !",
                                        MessageIcon::Exclamation, L"Kvez"};
const Message kPostOfficesDamaged = {L"Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !",
                                     MessageIcon::Exclamation, L"Kvez"};
const Message kDistrictsDamaged = {L"Soubor se seznamem okresů je poškozen nebo neexistuje !", MessageIcon::Exclamation,
                                   L"Kvez"};

class Loading : public testing::Test {
 protected:
  void Deliver(int file, Bytes bytes) {
    machine.disk.files[kFolder + L"\\vd" + std::to_wstring(file) + L".kl_"] = std::move(bytes);
  }

  static Bytes TwoMunicipalities() {
    Bytes bytes;
    fakes::AppendMunicipality(bytes, 11000, L"Staré Město", L"Praha");
    fakes::AppendMunicipality(bytes, 60200, L"Žabovřesky", L"Brno-město");
    return bytes;
  }
  static Bytes OnePostOffice() {
    Bytes bytes;
    fakes::AppendPostOffice(bytes, 11000, L"Praha 1");
    return bytes;
  }
  static Bytes ThreeDistricts() {
    Bytes bytes;
    fakes::AppendDistrict(bytes, 3100, L"Praha");
    fakes::AppendDistrict(bytes, 3702, L"Brno-město");
    fakes::AppendDistrict(bytes, -1, L"");
    return bytes;
  }
  void DeliverAll() {
    Deliver(1, TwoMunicipalities());
    Deliver(2, OnePostOffice());
    Deliver(3, ThreeDistricts());
  }
  void LoadAll() {
    database.pscNacti(window);
    database.pscpNacti(window);
    database.pscoNacti(window);
  }

  Machine machine;
  ProgressWindowFake window;
  clspsc database{machine.Platform(), kFolder};
};

TEST_F(Loading, SoundFilesLoadCompletelyAndLeaveNoExpandedFileBehind) {
  DeliverAll();
  LoadAll();
  EXPECT_EQ(database.pscCelkem(), 2);
  EXPECT_EQ(database.pscoCelkem(), 3);
  EXPECT_EQ(database.pscPozice(), 0);
  EXPECT_TRUE(machine.messages.messages.empty());
  EXPECT_EQ(machine.disk.files.size(), 3U);
  EXPECT_EQ(machine.lz.OpenHandles(), 0U);

  database.pscDetail(2);
  EXPECT_EQ(database.pscObec(), L"Žabovřesky");
  EXPECT_EQ(database.pscOkres(), L"Brno-město");
  EXPECT_EQ(database.pscPSC(), L"602 00");
  EXPECT_EQ(database.pscDodavaci(), L"");
  database.pscDetail(1);
  EXPECT_EQ(database.pscObec(), L"Staré Město");
  EXPECT_EQ(database.pscDodavaci(), L"Praha 1");
}

TEST_F(Loading, EachFileIsExpandedThenReadThenDeleted) {
  DeliverAll();
  LoadAll();
  Log expected;
  for (const wchar_t* name : {L"\\vd1", L"\\vd2", L"\\vd3"}) {
    const std::wstring compressed = kFolder + name + L".kl_";
    const std::wstring expanded = kFolder + name + L".bin";
    for (const std::wstring& step :
         {L"open " + compressed, L"create " + expanded, std::wstring(L"copy"), std::wstring(L"close"),
          std::wstring(L"close"), L"read " + expanded, L"delete " + expanded}) {
      expected.push_back(step);
    }
  }
  EXPECT_EQ(machine.log, expected);
}

TEST_F(Loading, AnOldExpandedFileIsOverwritten) {
  DeliverAll();
  machine.disk.files[kFolder + L"\\vd1.bin"] = {1, 2, 3};
  database.pscNacti(window);
  EXPECT_EQ(database.pscCelkem(), 2);
  EXPECT_EQ(machine.disk.files.count(kFolder + L"\\vd1.bin"), 0U);
}

TEST_F(Loading, MissingFileIsNotOpenedAndItsMessageComesLast) {
  database.pscNacti(window);
  EXPECT_EQ(machine.log, (Log{L"open C:\\Kvez\\vd1.kl_", L"create C:\\Kvez\\vd1.bin", L"copy", L"close", L"close",
                              L"delete C:\\Kvez\\vd1.bin", L"message"}));
  EXPECT_EQ(machine.disk.files.size(), 0U);
  EXPECT_EQ(database.pscCelkem(), 0);
}

TEST_F(Loading, EachFileHasItsOwnMessage) {
  LoadAll();
  EXPECT_EQ(machine.messages.messages,
            (std::vector<Message>{kMunicipalitiesDamaged, kPostOfficesDamaged, kDistrictsDamaged}));
}

TEST_F(Loading, EmptyFileFails) {
  DeliverAll();
  Deliver(1, {});
  database.pscNacti(window);
  EXPECT_EQ(database.pscCelkem(), 0);
  EXPECT_EQ(machine.messages.messages, std::vector<Message>{kMunicipalitiesDamaged});
  EXPECT_EQ(machine.disk.files.count(kFolder + L"\\vd1.bin"), 0U);
}

TEST_F(Loading, ErrorOfTheExpansionFails) {
  DeliverAll();
  machine.lz.copyResult = -3;
  database.pscoNacti(window);
  EXPECT_EQ(database.pscoCelkem(), 0);
  EXPECT_EQ(machine.messages.messages, std::vector<Message>{kDistrictsDamaged});
  EXPECT_EQ(machine.lz.OpenHandles(), 0U);
}

TEST_F(Loading, FolderThatTakesNoFilesFails) {
  DeliverAll();
  machine.disk.refusesNewFiles = true;
  database.pscpNacti(window);
  EXPECT_EQ(machine.messages.messages, std::vector<Message>{kPostOfficesDamaged});
  EXPECT_EQ(machine.lz.OpenHandles(), 0U);
}

TEST_F(Loading, ExpandedFileThatCannotBeReadFails) {
  DeliverAll();
  machine.disk.refusesReading = true;
  database.pscNacti(window);
  EXPECT_EQ(database.pscCelkem(), 0);
  EXPECT_EQ(machine.messages.messages, std::vector<Message>{kMunicipalitiesDamaged});
  EXPECT_EQ(machine.disk.files.count(kFolder + L"\\vd1.bin"), 0U);
}

TEST_F(Loading, OneStrayByteRejectsTheWholeList) {
  DeliverAll();
  for (const int file : {1, 2, 3}) machine.disk.files[kFolder + L"\\vd" + std::to_wstring(file) + L".kl_"].push_back(0);
  LoadAll();
  EXPECT_EQ(database.pscCelkem(), 0);
  EXPECT_EQ(database.pscoCelkem(), 0);
  EXPECT_EQ(machine.messages.messages,
            (std::vector<Message>{kMunicipalitiesDamaged, kPostOfficesDamaged, kDistrictsDamaged}));
  EXPECT_EQ(machine.disk.files.size(), 3U);
}

TEST_F(Loading, FailedMunicipalitiesEmptyAllFourLists) {
  DeliverAll();
  LoadAll();
  fakes::ListBoxFake list;
  std::wstring description;
  database.pscVyberPostu(L"S*", list, description);
  ASSERT_EQ(database.pCelkem(), 1);
  database.pscoDetail(2);

  machine.disk.files.erase(kFolder + L"\\vd1.kl_");
  database.pscNacti(window);
  EXPECT_EQ(database.pscCelkem(), 0);
  EXPECT_EQ(database.pscoCelkem(), 0);
  EXPECT_EQ(database.pCelkem(), 0);
  EXPECT_EQ(database.pscPozice(), 0);

  // The post offices are gone too.
  Deliver(1, TwoMunicipalities());
  database.pscNacti(window);
  database.pscDetail(1);
  EXPECT_EQ(database.pscDodavaci(), L"");
}

TEST_F(Loading, FailedPostOfficesEmptyOnlyTheirOwnList) {
  DeliverAll();
  LoadAll();
  machine.disk.files.erase(kFolder + L"\\vd2.kl_");
  database.pscpNacti(window);
  EXPECT_EQ(database.pscCelkem(), 2);
  EXPECT_EQ(database.pscoCelkem(), 3);
  database.pscDetail(1);
  EXPECT_EQ(database.pscDodavaci(), L"");
}

TEST_F(Loading, FailedDistrictsEmptyOnlyTheirOwnList) {
  DeliverAll();
  LoadAll();
  machine.disk.files.erase(kFolder + L"\\vd3.kl_");
  database.pscoNacti(window);
  EXPECT_EQ(database.pscCelkem(), 2);
  EXPECT_EQ(database.pscoCelkem(), 0);
  database.pscDetail(1);
  EXPECT_EQ(database.pscDodavaci(), L"Praha 1");
}

TEST_F(Loading, MessageIsShownWhenTheListsAreReleased) {
  DeliverAll();
  LoadAll();
  database.pscDetail(2);
  machine.disk.files.erase(kFolder + L"\\vd1.kl_");
  std::int32_t count = -1;
  std::int32_t districts = -1;
  std::wstring name = L"?";
  machine.messages.onShow = [&] {
    count = database.pscCelkem();
    districts = database.pscoCelkem();
    name = database.pscObec();
  };
  database.pscNacti(window);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(districts, 0);
  EXPECT_EQ(name, L"");
}

TEST_F(Loading, CountIsSetWhenTheLoadingIsOver) {
  DeliverAll();
  std::vector<std::int32_t> counts;
  window.onProgress = [&] {
    counts.push_back(database.pscCelkem());
    database.pscDetail(1);  // selects nothing yet
    EXPECT_EQ(database.pscPozice(), 0);
  };
  database.pscNacti(window);
  EXPECT_EQ(counts, std::vector<std::int32_t>{0});
  EXPECT_EQ(database.pscCelkem(), 2);
}

TEST_F(Loading, ExpandedFileOfLengthZeroIsAFailedExpansion) {
  DeliverAll();
  machine.lz.copyResult = 5;  // and nothing is written
  LoadAll();
  EXPECT_EQ(database.pscCelkem(), 0);
  EXPECT_EQ(machine.messages.messages,
            (std::vector<Message>{kMunicipalitiesDamaged, kPostOfficesDamaged, kDistrictsDamaged}));
}

TEST_F(Loading, LoadedListIsThereUntilTheNewOneIsWholeAndIsReplacedByIt) {
  DeliverAll();
  LoadAll();
  Bytes three = TwoMunicipalities();
  fakes::AppendMunicipality(three, 35002, L"Cheb", L"Cheb");
  Deliver(1, three);
  std::vector<std::size_t> sizes;
  window.onProgress = [&] { sizes.push_back(database.Municipalities().size()); };
  database.pscNacti(window);
  EXPECT_EQ(sizes, std::vector<std::size_t>{2});
  EXPECT_EQ(database.pscCelkem(), 3);
}

TEST_F(Loading, WindowThatCannotShowTheProgressEndsTheLoading) {
  DeliverAll();
  window.onProgress = [] { throw std::bad_alloc(); };
  LoadAll();
  EXPECT_EQ(database.pscCelkem(), 0);
  EXPECT_EQ(database.pscoCelkem(), 0);
  // The post offices are a single record, which shows no progress.
  EXPECT_EQ(machine.messages.messages, (std::vector<Message>{kMunicipalitiesDamaged, kDistrictsDamaged}));
  EXPECT_EQ(machine.disk.files.size(), 3U);
}

// Two programs in one folder.

TEST_F(Loading, ExpandedFileThatAnotherProgramHasBegunAnewIsNotTakenForData) {
  DeliverAll();
  int readings = 0;
  machine.files.onRead = [&](const std::wstring& path) {
    // Two whole records are there, and the third would come.
    if (++readings == 1) machine.disk.files[path].resize(machine.disk.files[path].size() - 4);
  };
  database.pscoNacti(window);
  EXPECT_EQ(readings, 2);
  EXPECT_EQ(database.pscoCelkem(), 3);
  EXPECT_TRUE(machine.messages.messages.empty());
}

TEST_F(Loading, ExpandedFileThatAnotherProgramHasDeletedIsExpandedAgain) {
  DeliverAll();
  int readings = 0;
  machine.files.onRead = [&](const std::wstring& path) {
    if (++readings <= 3) machine.disk.files.erase(path);
  };
  database.pscNacti(window);
  EXPECT_EQ(readings, 4);
  EXPECT_EQ(database.pscCelkem(), 2);
  EXPECT_TRUE(machine.messages.messages.empty());
  EXPECT_EQ(machine.lz.OpenHandles(), 0U);
}

TEST_F(Loading, ExpandedFileThatIsNeverWholeCountsAsDamagedAfterEightExpansions) {
  DeliverAll();
  int readings = 0;
  machine.files.onRead = [&](const std::wstring& path) {
    ++readings;
    machine.disk.files.erase(path);
  };
  database.pscNacti(window);
  EXPECT_EQ(readings, 8);
  EXPECT_EQ(machine.messages.messages, std::vector<Message>{kMunicipalitiesDamaged});
}

// Foreign data.

TEST_F(Loading, ControlCharactersInNamesAreBlanks) {
  const std::wstring strange = std::wstring(L"Nov\0Ves", 7) + L"\tnad\r\nÚpou\x7F\x81";
  const std::wstring shown = L"Nov Ves nad  Úpou  ";
  Bytes municipalities;
  fakes::AppendMunicipality(municipalities, 11000, strange, strange);
  fakes::AppendMunicipality(municipalities, 11000, L"Ves", shown);
  Deliver(1, municipalities);
  Bytes offices;
  fakes::AppendPostOffice(offices, 11000, strange);
  Deliver(2, offices);
  Bytes districts;
  fakes::AppendDistrict(districts, 1, strange);
  Deliver(3, districts);
  LoadAll();
  database.pscDetail(1);
  EXPECT_EQ(database.pscObec(), shown);
  EXPECT_EQ(database.pscOkres(), shown);
  EXPECT_EQ(database.pscDodavaci(), shown);

  fakes::ListBoxFake list;
  std::wstring description;
  database.pscVyberPostu(L"Nov Ves nad*", list, description);
  EXPECT_EQ(list.Texts(), std::vector<std::wstring>{shown});
  database.pscoDetail(1);
  database.pscoVyberPostu(list, description);
  EXPECT_EQ(description, L"Obce v okrese \"" + shown + L"\".");
  EXPECT_EQ(list.Texts(), (std::vector<std::wstring>{shown, L"Ves"}));
}

TEST_F(Loading, DuplicateCodesAndStrangeValuesAreTakenAsTheyStand) {
  Bytes bytes;
  fakes::AppendMunicipality(bytes, -5, L"", L"");
  fakes::AppendMunicipality(bytes, 2147483647, std::wstring(65535, L'x'), L"Praha");
  fakes::AppendMunicipality(bytes, -5, L"", L"");
  Deliver(1, bytes);
  database.pscNacti(window);
  EXPECT_EQ(database.pscCelkem(), 3);
  database.pscDetail(2);
  EXPECT_EQ(database.pscObec().size(), 65535U);
  EXPECT_EQ(database.pscPSC(), L"21474836 47");
  database.pscDetail(3);
  EXPECT_EQ(database.pscPSC(), L"-000 05");
  EXPECT_EQ(database.pscObec(), L"");
}

TEST_F(Loading, BytesAreWindows1250) {
  Deliver(1, {0xF8, 0x2A, 0, 0, 3, 0, 0x8E, 0xEF, 0xE1, 0, 0});
  database.pscNacti(window);
  database.pscDetail(1);
  EXPECT_EQ(database.pscObec(), L"Žďá");
}

// Progress. Post office records of 10 bytes: 4 of code, 2 of length, 4 of text.

Bytes PostOfficesOf(std::size_t length) {
  Bytes bytes;
  while (length - bytes.size() >= 20) fakes::AppendPostOffice(bytes, 11000, L"abcd");
  const std::size_t rest = length - bytes.size() - 6;
  fakes::AppendPostOffice(bytes, 11000, std::wstring(rest, L'x'));
  return bytes;
}

TEST_F(Loading, FileOf2000BytesShowsEverySecondRecord) {
  Deliver(2, PostOfficesOf(2000));
  database.pscpNacti(window);
  ASSERT_EQ(window.growing.size(), 100U);  // of 200 records
  EXPECT_EQ(window.growing.front(), 20.0F * (1.0F / 2000.0F));
  EXPECT_EQ(window.growing[1], 40.0F * (1.0F / 2000.0F));
  EXPECT_EQ(window.growing.back(), 2000.0F * (1.0F / 2000.0F));
}

TEST_F(Loading, FileOf2001BytesShowsEvery21stRecord) {
  Deliver(2, PostOfficesOf(2001));
  database.pscpNacti(window);
  Fractions expected;
  for (int record = 21; record <= 200; record += 21) {
    expected.push_back(static_cast<float>(10 * record) * (1.0F / 2001.0F));
  }
  EXPECT_EQ(expected.size(), 9U);
  EXPECT_EQ(window.growing, expected);
}

TEST_F(Loading, EveryListShowsItsProgress) {
  Deliver(1, TwoMunicipalities());
  Deliver(3, ThreeDistricts());
  database.pscNacti(window);
  EXPECT_EQ(window.growing, Fractions{1.0F});
  window.growing.clear();
  database.pscoNacti(window);
  EXPECT_EQ(window.growing, Fractions{23.0F * (1.0F / 27.0F)});
  EXPECT_TRUE(window.shrinking.empty());
}

TEST_F(Loading, RecordPastTheEndShowsNoMoreThanAll) {
  Bytes bytes = OnePostOffice();
  bytes.insert(bytes.end(), {0xF8, 0x2A, 0, 0, 0xFF, 0xFF});
  Deliver(2, bytes);
  database.pscpNacti(window);
  EXPECT_EQ(window.growing, Fractions{1.0F});
  EXPECT_EQ(machine.messages.messages, std::vector<Message>{kPostOfficesDamaged});
}

}  // namespace
}  // namespace kvez
