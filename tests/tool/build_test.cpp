#include <chrono>

#include "platform/portable/szdd.h"
#include "tests/core/data_bytes.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

using fakes::Bytes;

class BuildTest : public ToolTest {
 protected:
  ToolRun Build() { return RunCommand({L"build", Path(L"data"), Path(L"out")}); }

  Bytes Expanded(const std::string& name) {
    const std::string file = folder.Read("out/" + name);
    const SzddResult result = ExpandSzdd(Bytes(file.begin(), file.end()));
    EXPECT_EQ(result.error, "");
    return result.bytes;
  }

  /// That one table is refused with a message about it, and the old data files stay.
  void ExpectRefused(const std::string& table, const std::string& content, const std::string& message) {
    BuildFiles();
    const std::string before = folder.Read("out/vd1.kl_");
    folder.Write("data/" + table, content);
    ExpectFailure(Build(), Shown(L"data/" + FromWindows1250(table)) + ": " + message);
    EXPECT_EQ(folder.Read("out/vd1.kl_"), before);
    EXPECT_EQ(NamesIn("out"), "vd1.kl_ vd2.kl_ vd3.kl_");
  }
};

TEST_F(BuildTest, TablesBecomeCompressedRecordsInTheirOrder) {
  WriteTables();
  const ToolRun run = Build();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.error, "");
  Bytes municipalities;
  fakes::AppendMunicipality(municipalities, 35002, L"Cheb", L"Cheb");
  fakes::AppendMunicipality(municipalities, 11000, L"Staré Město", L"Hlavní město Praha");
  fakes::AppendMunicipality(municipalities, 60200, L"Žabovřesky", L"Brno-město");
  EXPECT_EQ(Expanded("vd1.kl_"), municipalities);
  Bytes offices;
  fakes::AppendPostOffice(offices, 60200, L"Brno 2");
  fakes::AppendPostOffice(offices, 35002, L"Cheb 2");
  fakes::AppendPostOffice(offices, 11000, L"Praha 1");
  EXPECT_EQ(Expanded("vd2.kl_"), offices);
  Bytes districts;
  fakes::AppendDistrict(districts, 3702, L"Brno-město");
  fakes::AppendDistrict(districts, 3100, L"Hlavní město Praha");
  fakes::AppendDistrict(districts, 3402, L"Cheb");
  EXPECT_EQ(Expanded("vd3.kl_"), districts);
  EXPECT_EQ(NamesIn("out"), "vd1.kl_ vd2.kl_ vd3.kl_");
}

TEST_F(BuildTest, FiguresAndLooseEndsArePrinted) {
  WriteTables();
  folder.Write("data/obce.csv", std::string("psc;obec;okres\n35002;Cheb;Cheb\n35003;Cheb;Cheb\n35002;Aš;Ašsko\n"));
  const ToolRun run = Build();
  const auto size = [&](const char* name) {
    return std::to_string(std::filesystem::file_size(folder.Path() / "out" / name));
  };
  ExpectSuccess(run, "vd1.kl_: 3 municipalities, " + size("vd1.kl_") + " bytes\nvd2.kl_: 3 post offices, " +
                         size("vd2.kl_") + " bytes\nvd3.kl_: 3 districts, " + size("vd3.kl_") +
                         " bytes\nmunicipalities without a post office: 1\nmunicipalities in no listed district: 1\n");
}

TEST_F(BuildTest, FilesCarryTheDayOfTheList) {
  using namespace std::chrono;
  WriteTables();
  folder.Write("data/stav.txt", std::string("listopad 2024\n2024-11-01\n"));
  for (int run = 0; run < 2; ++run) {
    EXPECT_NE(Build().out.find("\nstate of the list: 2024-11-01\n"), std::string::npos);
    const auto noon = file_clock::from_sys(sys_seconds(sys_days(November / 1 / 2024)) + hours(12));
    for (const char* name : {"vd1.kl_", "vd2.kl_", "vd3.kl_"}) {
      EXPECT_EQ(std::filesystem::last_write_time(folder.Path() / "out" / name), noon) << name;
    }
  }
}

TEST_F(BuildTest, FilesOfTablesWithoutAStateAreOfNow) {
  WriteTables();
  const auto before = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(2);
  EXPECT_EQ(Build().error, "");
  EXPECT_GE(std::filesystem::last_write_time(folder.Path() / "out" / "vd1.kl_"), before);
}

TEST_F(BuildTest, StateThatIsNoDayIsRefused) {
  for (const char* state :
       {"", "listopad 2024\n", "listopad 2024\n2024-11\n", "listopad 2024\n2024-11-31\n", "listopad 2024\n2024-11-1x\n",
        "listopad 2024\n2024/11/01\n", "\n2024-11-01\n", "listopad 2024\n2024-11-01\nmore\n",
        "listopad 2024\n-024-11-01\n", "listopad 2024\nxx24-11-01\n", "listopad 2024\n2024-x1-01\n",
        "listopad 2024\n2024-11/01\n", "listopad 2024\n2024-11--1\n"}) {
    BuildFiles();
    folder.Write("data/stav.txt", std::string(state));
    ExpectFailure(Build(), Shown(L"data/stav.txt") + " is not two lines, a state in words and its day as YYYY-MM-DD");
    std::filesystem::remove(folder.Path() / "data" / "stav.txt");
  }
}

TEST_F(BuildTest, DistrictCodesGoUpTo16BitsWithoutTheirSign) {
  WriteTables();
  folder.Write("data/okresy.csv", std::string("kod;okres\n0;A\n256;B\n32767;C\n"));
  EXPECT_EQ(Build().status, 0);
  EXPECT_EQ(Expanded("vd3.kl_"), (Bytes{0, 0, 1, 0, 'A', 0, 1, 1, 0, 'B', 0xFF, 0x7F, 1, 0, 'C'}));
}

TEST_F(BuildTest, TablesMayComeFromAnEditorForWindows) {
  WriteTables();
  folder.Write("data/posty.csv", std::string("\xEF\xBB\xBFpsc;posta\r\n35002;Cheb 2"));
  EXPECT_EQ(Build().status, 0);
  Bytes offices;
  fakes::AppendPostOffice(offices, 35002, L"Cheb 2");
  EXPECT_EQ(Expanded("vd2.kl_"), offices);
}

TEST_F(BuildTest, DamagedTablesAreRefusedWithTheLine) {
  const std::string obce = "psc;obec;okres\n35002;Cheb;Cheb\n";
  ExpectRefused("obce.csv", "psc;okres\n", "line 1: the heading 'psc;obec;okres' was expected");
  ExpectRefused("obce.csv", "", "line 1: the heading 'psc;obec;okres' was expected");
  ExpectRefused("obce.csv", "psc;obec;okres\n", "line 2: at least one row was expected");
  ExpectRefused("obce.csv", obce + "35002;Cheb\n", "line 3: 3 columns were expected, not 2");
  ExpectRefused("obce.csv", obce + "3500;Cheb;Cheb\n", "line 3: '3500' is no postal code of five digits");
  ExpectRefused("obce.csv", obce + "35-02;Cheb;Cheb\n", "line 3: '35-02' is no postal code of five digits");
  ExpectRefused("obce.csv", obce + "35002;;Cheb\n", "line 3: a name is empty");
  ExpectRefused("obce.csv",
                obce +
                    "35002;\xC8"
                    "ern\xE1;Cheb\n",
                "line 3: it is not UTF-8");
  ExpectRefused("obce.csv", obce + "35002;\xC0\xAF;Cheb\n", "line 3: it is not UTF-8");
  ExpectRefused("obce.csv", obce + "35002;Cheb Ω;Cheb\n", "line 3: 'Ω' is no letter of Windows-1250");
  ExpectRefused("obce.csv", obce + "35002;Che\tb;Cheb\n", "line 3: a name has the control character 0x09");
  ExpectRefused("obce.csv", obce + "35002;Che\xC2\x81;Cheb\n", "line 3: a name has the control character 0x81");
  ExpectRefused("obce.csv", obce + "35002;   ;Cheb\n", "line 3: a name is blank");
  ExpectRefused("obce.csv", obce + "35002;Cheb; \xC2\xA0\n", "line 3: a name is blank");
  ExpectRefused("obce.csv", obce + "35002;Ch*b;Cheb\n", "line 3: a name has the wildcard '*'");
  ExpectRefused("posty.csv", "psc;posta\n35002;Cheb?\n", "line 2: a name has the wildcard '?'");
  ExpectRefused("obce.csv", obce + "35002;" + std::string(65536, 'x') + ";Cheb\n",
                "line 3: a name is longer than 65535 letters");
  ExpectRefused("posty.csv", "psc;posta\n35002;Cheb 2\n35001;Cheb 1\n35002;Cheb 3\n",
                "line 4: the code has a row already, in line 2");
  ExpectRefused("okresy.csv", "kod;okres\n32768;Cheb\n", "line 2: '32768' is no district code from 0 to 32767");
  ExpectRefused("okresy.csv", "kod;okres\n-1;Cheb\n", "line 2: '-1' is no district code from 0 to 32767");
  ExpectRefused("okresy.csv", "kod;okres\n3402;Cheb\n3403;CHEB\n", "line 3: the name has a row already, in line 2");
  ExpectRefused("okresy.csv", "kod;okres\n3402;Cheb\n3402;Aš\n", "line 3: the code has a row already, in line 2");
}

// The code page has bytes for them, and still they are no letters.
TEST_F(BuildTest, ControlCharactersOfTheCodePageAreRefused) {
  for (const std::string character : {"\x7F", "\xC2\x81", "\xC2\x83", "\xC2\x88", "\xC2\x90", "\xC2\x98"}) {
    WriteTables();
    folder.Write("data/okresy.csv", "kod;okres\n1;Cheb\n2;Che" + character + "\n");
    const ToolRun run = Build();
    EXPECT_EQ(run.status, 1) << testing::PrintToString(character);
    EXPECT_EQ(run.error.starts_with("kvezdata: " + Shown(L"data/okresy.csv") + ": line 3: "), true) << run.error;
  }
}

TEST_F(BuildTest, SpaceAtWhichNoLineBreaksIsALetter) {
  WriteTables();
  folder.Write("data/okresy.csv", std::string("kod;okres\n1;a\xC2\xA0z ~\n"));
  EXPECT_EQ(Build().error, "");
  EXPECT_EQ(Expanded("vd3.kl_"), (Bytes{1, 0, 5, 0, 'a', 0xA0, 'z', ' ', '~'}));
}

TEST_F(BuildTest, LongestNameFits) {
  WriteTables();
  folder.Write("data/okresy.csv", "kod;okres\n1;" + std::string(65535, 'x') + "\n");
  EXPECT_EQ(Build().status, 0);
  EXPECT_EQ(Expanded("vd3.kl_").size(), 2U + 2U + 65535U);
}

TEST_F(BuildTest, MissingTableIsAnError) {
  WriteTables();
  std::filesystem::remove(folder.Path() / "data" / "okresy.csv");
  const ToolRun run = Build();
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.error.find("okresy.csv cannot be read\n"), std::string::npos) << run.error;
  EXPECT_EQ(std::filesystem::exists(folder.Path() / "out"), false);
}

TEST_F(BuildTest, FolderInTheWayOfAFileIsFoundBeforeTheFirstIsReplaced) {
  BuildFiles();
  std::filesystem::remove(folder.Path() / "out" / "vd3.kl_");
  std::filesystem::create_directories(folder.Path() / "out" / "vd3.kl_" / "folder");
  const std::string before = folder.Read("out/vd1.kl_");
  folder.Write("data/obce.csv", std::string("psc;obec;okres\n35002;Aš;Cheb\n"));
  ExpectFailure(Build(), Shown(L"out/vd3.kl_") + " is there already and is no file");
  EXPECT_EQ(folder.Read("out/vd1.kl_"), before);
  EXPECT_EQ(NamesIn("out"), "vd1.kl_ vd2.kl_ vd3.kl_");
}

TEST_F(BuildTest, FileInTheWayOfTheFolderIsAnError) {
  WriteTables();
  folder.Write("out", std::string("file"));
  ExpectFailure(Build(), "the folder " + Shown(L"out") + " cannot be made");
}

}  // namespace
}  // namespace kvez
