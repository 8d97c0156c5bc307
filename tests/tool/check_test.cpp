#include "platform/portable/szdd.h"
#include "tests/core/data_bytes.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

using fakes::Bytes;

class CheckTest : public ToolTest {
 protected:
  CheckTest() { BuildFiles(); }

  ToolRun Check() { return RunCommand({L"check", Path(L"out")}); }

  /// That the tool finds exactly this in one file, besides counting what is sound.
  void ExpectDamage(const std::wstring& file, const std::string& message) {
    const ToolRun run = Check();
    EXPECT_EQ(run.error, "kvezdata: " + Shown(L"out/" + file) + message + "\n");
    EXPECT_EQ(run.status, 1);
  }
};

TEST_F(CheckTest, SoundFilesAreCounted) {
  ExpectSuccess(Check(),
                "municipalities: 3\npost offices: 3\ndistricts: 3\n"
                "municipalities without a post office: 0\nmunicipalities in no listed district: 0\n"
                "post offices without a municipality: 0\ndistricts without a municipality: 0\n");
}

TEST_F(CheckTest, PlainFilesAreReadAsTheyAre) {
  Bytes districts;
  fakes::AppendDistrict(districts, 3402, L"Cheb");
  folder.Write("out/vd3.kl_", districts);
  ExpectSuccess(Check(),
                "municipalities: 3\npost offices: 3\ndistricts: 1\n"
                "municipalities without a post office: 0\nmunicipalities in no listed district: 2\n"
                "post offices without a municipality: 0\ndistricts without a municipality: 0\n");
}

TEST_F(CheckTest, MunicipalitiesWithoutAPostOfficeAreCounted) {
  Bytes offices;
  fakes::AppendPostOffice(offices, 35002, L"Cheb 2");
  folder.Write("out/vd2.kl_", offices);
  EXPECT_NE(Check().out.find("municipalities without a post office: 2\n"), std::string::npos);
}

// Loose ends count when they are asked for.

TEST_F(CheckTest, StrictCheckOfSoundFilesSucceeds) {
  EXPECT_EQ(RunCommand({L"check", Path(L"out"), L"--strict"}).error, "");
}

TEST_F(CheckTest, StrictCheckRefusesFilesThatDoNotBelongTogether) {
  Bytes offices;
  fakes::AppendPostOffice(offices, 35002, L"Cheb 2");
  Bytes moreOffices;
  for (const std::int32_t code : {35002, 11000, 60200, 60201}) fakes::AppendPostOffice(moreOffices, code, L"Pošta");
  Bytes districts;
  fakes::AppendDistrict(districts, 3402, L"Cheb");
  Bytes moreDistricts;
  for (const wchar_t* name : {L"Cheb", L"Hlavní město Praha", L"Brno-město", L"Aš"}) {
    fakes::AppendDistrict(moreDistricts, 3402, name);
  }
  struct Loose {
    const char* file;
    Bytes bytes;
    const char* figure;
  };
  for (const Loose& loose : {Loose{"vd2.kl_", offices, "municipalities without a post office: 2\n"},
                             Loose{"vd2.kl_", moreOffices, "post offices without a municipality: 1\n"},
                             Loose{"vd3.kl_", districts, "municipalities in no listed district: 2\n"},
                             Loose{"vd3.kl_", moreDistricts, "districts without a municipality: 1\n"}}) {
    BuildFiles();
    folder.Write(std::string("out/") + loose.file, loose.bytes);
    EXPECT_EQ(Check().status, 0);
    const ToolRun run = RunCommand({L"check", Path(L"out"), L"--strict"});
    EXPECT_NE(run.out.find(loose.figure), std::string::npos) << run.out;
    EXPECT_EQ(run.error, "kvezdata: the files in " + Shown(L"out") + " do not belong together\n");
    EXPECT_EQ(run.status, 1);
  }
}

TEST_F(CheckTest, OtherWordThanStrictIsRefused) {
  ExpectFailure(RunCommand({L"check", Path(L"out"), L"strict"}), "'strict' is not understood; check takes --strict");
}

// What the program would take but nobody could have meant

TEST_F(CheckTest, CodesOutOfRangeAreRefused) {
  Bytes offices;
  fakes::AppendPostOffice(offices, 0, L"A");
  fakes::AppendPostOffice(offices, 99999, L"B");
  folder.Write("out/vd2.kl_", offices);
  EXPECT_EQ(Check().status, 0);
  fakes::AppendPostOffice(offices, 100000, L"C");
  folder.Write("out/vd2.kl_", offices);
  ExpectDamage(L"vd2.kl_", ": offset 14: record 3: the code 100000 is not from 0 to 99999");
  BuildFiles();
  Bytes districts;
  fakes::AppendDistrict(districts, -1, L"A");
  folder.Write("out/vd3.kl_", districts);
  ExpectDamage(L"vd3.kl_", ": offset 0: record 1: the code -1 is not from 0 to 99999");
}

TEST_F(CheckTest, NamesThatNobodyCouldFindAreRefused) {
  const auto expect = [&](std::wstring_view name, const std::string& message) {
    Bytes offices;
    fakes::AppendPostOffice(offices, 1, name);
    folder.Write("out/vd2.kl_", offices);
    ExpectDamage(L"vd2.kl_", ": offset 4: record 1: the name " + message);
  };
  expect(L"", "is empty");
  expect(L" ", "is blank");
  expect(std::wstring_view(L"A\0B", 3), "has the control character 0x00");
  expect(L"A\nB", "has the control character 0x0A");
  expect(L"A\x98", "has the control character 0x98");
  expect(L"A*", "has the wildcard '*'");
  expect(L"?", "has the wildcard '?'");
  BuildFiles();
  Bytes municipalities;
  fakes::AppendMunicipality(municipalities, 1, L"A", L"");
  folder.Write("out/vd1.kl_", municipalities);
  ExpectDamage(L"vd1.kl_", ": offset 7: record 1: the district name is empty");
}

TEST_F(CheckTest, DistrictWithTwoCodesIsRefused) {
  Bytes districts;
  fakes::AppendDistrict(districts, 1, L"Cheb");
  fakes::AppendDistrict(districts, 2, L"Praha");
  fakes::AppendDistrict(districts, 1, L"Cheb");
  folder.Write("out/vd3.kl_", districts);
  EXPECT_EQ(Check().status, 0);
  fakes::AppendDistrict(districts, 3, L"CHEB");
  folder.Write("out/vd3.kl_", districts);
  ExpectDamage(L"vd3.kl_", ": record 4: the district 'CHEB' has another code than in record 1");
}

TEST_F(CheckTest, MissingFileIsNamed) {
  std::filesystem::remove(folder.Path() / "out" / "vd2.kl_");
  ExpectDamage(L"vd2.kl_", " cannot be read");
}

TEST_F(CheckTest, EveryDamagedFileIsNamed) {
  for (const char* name : {"out/vd1.kl_", "out/vd2.kl_", "out/vd3.kl_"}) folder.Write(name, Bytes());
  const ToolRun run = Check();
  const std::string empty = ": offset 0: the file is empty; at least one record was expected\n";
  EXPECT_EQ(run.error, "kvezdata: " + Shown(L"out/vd1.kl_") + empty + Shown(L"out/vd2.kl_") + empty +
                           Shown(L"out/vd3.kl_") + empty);
  EXPECT_EQ(run.status, 1);
}

TEST_F(CheckTest, SoundFilesAreCountedBesideADamagedOne) {
  folder.Write("out/vd2.kl_", Bytes());
  EXPECT_EQ(Check().out, "municipalities: 3\ndistricts: 3\n");
}

TEST_F(CheckTest, DamageOfTheCompressedFormHasItsOffsetInTheFile) {
  std::string file = folder.Read("out/vd1.kl_");
  folder.Write("out/vd1.kl_", file + "x");
  ExpectDamage(L"vd1.kl_", ": offset " + std::to_string(file.size()) +
                               ": the end of the file was expected after the declared " +
                               std::to_string(static_cast<unsigned char>(file[10])) + " bytes");
  file[8] = 'B';
  folder.Write("out/vd1.kl_", file);
  ExpectDamage(L"vd1.kl_", ": offset 8: the compression mode 'A' was expected");
}

TEST_F(CheckTest, FileThatExpandsToNothingIsDamaged) {
  folder.Write("out/vd1.kl_", CompressSzdd({}, 'n'));
  ExpectDamage(L"vd1.kl_", ": offset 10: it declares 0 bytes; at least one record was expected");
}

TEST_F(CheckTest, CutRecordHasItsOffsetInTheData) {
  Bytes data;
  fakes::AppendMunicipality(data, 35002, L"Cheb", L"Okres");
  const auto expect = [&](std::size_t length, const std::string& message) {
    const Bytes cut(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(length));
    folder.Write("out/vd1.kl_", cut);
    ExpectDamage(L"vd1.kl_", ": " + message);
  };
  expect(3, "offset 0: record 1: the code of 4 bytes was expected where 3 bytes are left");
  expect(5, "offset 4: record 1: the length of the name of 2 bytes was expected where 1 bytes are left");
  expect(9, "offset 4: record 1: the name of 2 + 4 bytes was expected where 5 bytes are left");
  expect(10, "offset 10: record 1: the length of the district name of 2 bytes was expected where 0 bytes are left");
  expect(16, "offset 10: record 1: the district name of 2 + 5 bytes was expected where 6 bytes are left");
  data.push_back(0);
  expect(18, "offset 17: record 2: the code of 4 bytes was expected where 1 bytes are left");
  folder.Write("out/vd1.kl_", CompressSzdd(data, 'n'));
  ExpectDamage(L"vd1.kl_",
               ": offset 17 of the expanded data: record 2: the code of 4 bytes was expected where 1 bytes are left");
}

TEST_F(CheckTest, RecordsOfTheOtherFilesHaveTheirOwnFields) {
  folder.Write("out/vd2.kl_", Bytes{1, 0, 0, 0, 9, 0, 'x'});
  ExpectDamage(L"vd2.kl_", ": offset 4: record 1: the name of 2 + 9 bytes was expected where 3 bytes are left");
  BuildFiles();
  folder.Write("out/vd3.kl_", Bytes{1});
  ExpectDamage(L"vd3.kl_", ": offset 0: record 1: the code of 2 bytes was expected where 1 bytes are left");
}

}  // namespace
}  // namespace kvez
