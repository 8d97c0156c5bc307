#include <algorithm>
#include <cstdlib>

#include "tests/tool/import_test.h"
#include "text/utf8.h"

namespace kvez {
namespace {

TEST_F(ImportTest, ListBecomesThreeSortedTables) {
  const ToolRun run = ImportRows(
      L"Žabovřesky;60200;Brno 2;3702;Brno-město;Žabovřesky\r\n"
      L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n"
      L"Čejč;69614;Čejč;3706;Hodonín;Čejč\r\n"
      L"Cheb;35001;Cheb 1;3402;Cheb;Cheb\r\n"
      L"Hora;36001;Karlovy Vary 1;3403;Karlovy Vary;Hora\r\n"
      L"Cizice;33201;Tymákov;3405;Plzeň-jih;Cizice\r\n");
  ExpectSuccess(run,
                "rows of the list: 6\n"
                "alias marks \" x)\" removed: 0\n"
                "aliases written with \" (část)\" behind them: 0\n"
                "municipalities: 5\n"
                "municipalities that no row of theirs carries by name: 0\n"
                "rows municipality-part added for them: 0\n"
                "rows municipality added for them: 0\n"
                "exact duplicates removed: 0\n"
                "obce.csv: 6 rows\n"
                "posty.csv: 6 rows\n"
                "okresy.csv: 5 rows\n");
  // Č is a letter behind c, and ch one behind h.
  EXPECT_EQ(folder.Read("data/obce.csv"),
            "psc;obec;okres\n"
            "33201;Cizice;Plzeň-jih\n"
            "69614;Čejč;Hodonín\n"
            "36001;Hora;Karlovy Vary\n"
            "35001;Cheb;Cheb\n"
            "35002;Cheb;Cheb\n"
            "60200;Žabovřesky;Brno-město\n");
  EXPECT_EQ(folder.Read("data/posty.csv"),
            "psc;posta\n"
            "60200;Brno 2\n"
            "69614;Čejč\n"
            "35001;Cheb 1\n"
            "35002;Cheb 2\n"
            "36001;Karlovy Vary 1\n"
            "33201;Tymákov\n");
  EXPECT_EQ(folder.Read("data/okresy.csv"),
            "kod;okres\n3702;Brno-město\n3706;Hodonín\n3402;Cheb\n3403;Karlovy Vary\n3405;Plzeň-jih\n");
}

TEST_F(ImportTest, AliasMarkIsRemoved) {
  const ToolRun run = ImportRows(
      L"Líšeň (část);62800;Brno 28;3702;Brno-město;Brno\r\n"
      L"Brno-Líšeň (část) x);62800;Brno 28;3702;Brno-město;Brno\r\n");
  EXPECT_EQ(Names(), "Brno-Líšeň (část) | Líšeň (část)");
  EXPECT_NE(run.out.find("alias marks \" x)\" removed: 1\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("that no row of theirs carries by name: 0\n"), std::string::npos) << run.out;
}

TEST_F(ImportTest, ExactDuplicatesAreRemoved) {
  // The rows differ in the municipality only, which the table does not have.
  const ToolRun run = ImportRows(
      L"Březí;39901;Milevsko;3305;Písek;Březí\r\n"
      L"Březí;39901;Milevsko;3305;Písek;Březí nad Řekou\r\n"
      L"Březí;39902;Milevsko 2;3305;Písek;Březí\r\n"
      L"Březí nad Řekou;39901;Milevsko;3305;Písek;Březí nad Řekou\r\n");
  EXPECT_EQ(folder.Read("data/obce.csv"),
            "psc;obec;okres\n39901;Březí;Písek\n39902;Březí;Písek\n39901;Březí nad Řekou;Písek\n");
  EXPECT_NE(run.out.find("exact duplicates removed: 1\n"), std::string::npos) << run.out;
}

TEST_F(ImportTest, MunicipalityListedByPartsOnlyGetsRowsOfItsName) {
  const ToolRun run = ImportRows(
      L"Bohnice (část);18100;Praha 81;3100;Hlavní město Praha;Praha\r\n"
      L"Benice;10300;Praha 113;3100;Hlavní město Praha;Praha\r\n");
  EXPECT_EQ(folder.Read("data/obce.csv"),
            "psc;obec;okres\n"
            "10300;Benice;Hlavní město Praha\n"
            "18100;Bohnice (část);Hlavní město Praha\n"
            "10300;Praha-Benice;Hlavní město Praha\n"
            "18100;Praha-Bohnice (část);Hlavní město Praha\n");
  EXPECT_NE(run.out.find("municipalities that no row of theirs carries by name: 1\n"
                         "rows municipality-part added for them: 2\n"),
            std::string::npos)
      << run.out;
}

TEST_F(ImportTest, HyphenInAPartAloneDoesNotNameTheMunicipality) {
  ImportRows(L"Horka-Domky;67401;Třebíč 1;3710;Třebíč;Třebíč\r\n");
  ExpectNames({"Horka-Domky", "Třebíč-Horka-Domky"});
}

TEST_F(ImportTest, RowThatIsThereTwiceGetsOneRowOfTheMunicipality) {
  const std::wstring rest = L";18100;Praha 81;3100;Hlavní město Praha;Praha\r\n";
  std::wstring rows;
  for (const wchar_t letter : std::wstring_view(L"ABCDEFGHIJ")) rows += std::wstring(1, letter) + rest;
  const ToolRun run = ImportRows(rows + L"C" + rest);
  EXPECT_NE(run.out.find("rows municipality-part added for them: 10\n"
                         "rows municipality added for them: 0\n"
                         "exact duplicates removed: 1\n"),
            std::string::npos)
      << run.out << run.error;
}

TEST_F(ImportTest, OneRowOfTheOwnNameIsEnough) {
  const std::wstring rest = L";46001;Liberec 1;3505;Liberec;Liberec\r\n";
  for (const wchar_t* own :
       {L"Liberec", L"Liberec (část)", L"Liberec II-Nové Město", L"Liberec 10", L"Liberec-Machnín x)"}) {
    const ToolRun run = ImportRows(std::wstring(own) + rest + L"Machnín" + rest);
    EXPECT_NE(run.out.find("rows municipality-part added for them: 0\n"), std::string::npos) << run.out;
  }
}

TEST_F(ImportTest, LongerNameIsNotTheOwnName) {
  ImportRows(L"Boryně;59461;Bory;3714;Žďár nad Sázavou;Bory\r\n");
  EXPECT_EQ(Names(), "Bory-Boryně | Boryně");
}

TEST_F(ImportTest, MunicipalityWithAHyphenGetsItsPlainNameOnceForEachCode) {
  const ToolRun run = ImportRows(
      L"Chlebovice;73942;Frýdek-Místek 8;3802;Frýdek-Místek;Frýdek-Místek\r\n"
      L"Frýdek;73801;Frýdek-Místek 1;3802;Frýdek-Místek;Frýdek-Místek\r\n"
      L"Místek;73801;Frýdek-Místek 1;3802;Frýdek-Místek;Frýdek-Místek\r\n");
  EXPECT_EQ(folder.Read("data/obce.csv"),
            "psc;obec;okres\n"
            "73801;Frýdek;Frýdek-Místek\n"
            "73801;Frýdek-Místek;Frýdek-Místek\n"
            "73942;Frýdek-Místek;Frýdek-Místek\n"
            "73942;Chlebovice;Frýdek-Místek\n"
            "73801;Místek;Frýdek-Místek\n");
  EXPECT_NE(run.out.find("rows municipality-part added for them: 0\n"
                         "rows municipality added for them: 2\n"
                         "exact duplicates removed: 0\n"),
            std::string::npos)
      << run.out;
}

TEST_F(ImportTest, MunicipalityThatTheListHasByItsNameGetsNothing) {
  // The search finds these by "Hutisko", "Lipová" and "Horka", and the whole name is read in them.
  const ToolRun run = ImportRows(
      L"Hutisko;75662;Hutisko-Solanec;3810;Vsetín;Hutisko-Solanec\r\n"
      L"Hutisko-Solanec x);75662;Hutisko-Solanec;3810;Vsetín;Hutisko-Solanec\r\n"
      L"Horní Lipová;79063;Horní Lipová;3811;Jeseník;Lipová-lázně\r\n"
      L"Lipová-lázně;79061;Lipová-lázně;3811;Jeseník;Lipová-lázně\r\n"
      L"Borek;28601;Čáslav;3205;Kutná Hora;Horka I\r\n"
      L"Horka I;28601;Čáslav;3205;Kutná Hora;Horka I\r\n");
  EXPECT_NE(run.out.find("municipalities that no row of theirs carries by name: 0\n"), std::string::npos) << run.out;
  EXPECT_EQ(Names(), "Borek | Horka I | Horní Lipová | Hutisko | Hutisko-Solanec | Lipová-lázně");
}

TEST_F(ImportTest, PartThatTheSearchDoesNotFindByTheMunicipalityIsNotItsOwn) {
  ImportRows(
      L"Olbramovice Ves;25901;Votice;3201;Benešov;Olbramovice\r\n"
      L"Tomice II (část);25753;Vrchotovy Janovice;3201;Benešov;Olbramovice\r\n");
  // The order of blanks and hyphens differs from machine to machine.
  ExpectNames({"Olbramovice Ves", "Olbramovice-Olbramovice Ves", "Olbramovice-Tomice II (část)", "Tomice II (část)"});
}

TEST_F(ImportTest, PartsThatAreWrittenWithTheMunicipalityDoNotGetItTwice) {
  const std::wstring rest = L";74260;Petřvald u Nového Jičína;3804;Nový Jičín;Petřvald\r\n";
  ImportRows(L"Petřvald 1-Petřvald" + rest + L"Petřvald 2-Petřvaldík" + rest + L"Petřvaldík-Petřvald 2 x)" + rest);
  ExpectNames({"Petřvald", "Petřvald 1-Petřvald", "Petřvald 2-Petřvaldík", "Petřvaldík-Petřvald 2"});
}

TEST_F(ImportTest, NumberAtTheEndKeepsNoAddedRowFromBeingFound) {
  // By "Heřmanova Huť-Vlkýš I" the search would leave "Heřmanova Huť-Vlkýš".
  ImportRows(L"Vlkýš I;33024;Heřmanova Huť;3407;Plzeň-sever;Heřmanova Huť\r\n");
  EXPECT_EQ(Names(), "Heřmanova Huť-Vlkýš I (část) | Vlkýš I");
}

TEST_F(ImportTest, AliasIsFoundByItsPart) {
  const ToolRun run = ImportRows(
      L"Děčín IX-Bynov;40505;Děčín 5;3502;Děčín;Děčín\r\n"
      L"Bynov-Děčín IX x);40505;Děčín 5;3502;Děčín;Děčín\r\n"
      L"Růžodol I-Liberec XI x);46001;Liberec 1;3505;Liberec;Liberec\r\n"
      L"Plzeň 1-Bolevec x);30100;Plzeň 1;3405;Plzeň-město;Plzeň\r\n"
      L"Zdejcina-Beroun x);26601;Beroun 1;3202;Beroun;Beroun\r\n");
  EXPECT_NE(run.out.find("aliases written with \" (část)\" behind them: 2\n"), std::string::npos) << run.out;
  ExpectNames({"Děčín IX-Bynov", "Bynov-Děčín IX (část)", "Růžodol I-Liberec XI (část)", "Plzeň 1-Bolevec",
               "Zdejcina-Beroun", "Liberec", "Plzeň", "Beroun"});
}

TEST_F(ImportTest, MunicipalitiesOfOneNameInTwoDistrictsAreTwo) {
  const ToolRun run = ImportRows(
      L"Vráž;26711;Vráž;3202;Beroun;Vráž\r\n"
      L"Stará Vráž;39833;Čížová;3305;Písek;Vráž\r\n");
  EXPECT_EQ(Names(), "Stará Vráž | Vráž | Vráž-Stará Vráž");
  EXPECT_NE(run.out.find("municipalities: 2\n"), std::string::npos) << run.out;
}

TEST_F(ImportTest, LineEndsMayBePlainAndTheLastMayBeMissing) {
  std::string list = ToWindows1250(std::wstring(kListHeading) + L"Cheb;35002;Cheb 2;3402;Cheb;Cheb");
  list.erase(list.find('\r'), 1);
  EXPECT_EQ(ImportBytes(list).status, 0);
  EXPECT_EQ(folder.Read("data/obce.csv"), "psc;obec;okres\n35002;Cheb;Cheb\n");
}

TEST_F(ImportTest, OldTablesAreReplaced) {
  WriteTables();
  EXPECT_EQ(ImportRows(L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n").status, 0);
  EXPECT_EQ(folder.Read("data/okresy.csv"), "kod;okres\n3402;Cheb\n");
  EXPECT_EQ(NamesIn("data"), "obce.csv okresy.csv posty.csv");
}

TEST_F(ImportTest, RefusedListLeavesOldTablesAlone) {
  WriteTables();
  const std::string before = folder.Read("data/obce.csv");
  EXPECT_EQ(ImportRows(L"Cheb;3500;Cheb 2;3402;Cheb;Cheb\r\n").status, 1);
  EXPECT_EQ(folder.Read("data/obce.csv"), before);
}

TEST_F(ImportTest, MissingListIsAnError) {
  ExpectFailure(RunCommand({L"import", Path(L"missing.csv"), Path(L"data")}),
                Shown(L"missing.csv") + " cannot be read");
}

TEST_F(ImportTest, FileInTheWayOfTheFolderIsAnError) {
  folder.Write("data", std::string("file"));
  ExpectFailure(ImportRows(L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n"),
                "the folder " + Shown(L"data") + " cannot be made");
}

/// The lines of a file, sorted by their bytes.
std::string SortedLines(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  std::sort(lines.begin(), lines.end());
  std::string sorted;
  for (const std::string& line : lines) sorted.append(line).append("\n");
  return sorted;
}

TEST_F(ImportTest, OfficialListGivesTheCommittedTables) {
  const char* list = std::getenv("KVEZ_OFFICIAL_LIST");
  if (list == nullptr) GTEST_SKIP() << "KVEZ_OFFICIAL_LIST does not name the official list.";
  const auto path = FromUtf8(list);
  ASSERT_TRUE(path.has_value());
  ASSERT_EQ(RunCommand({L"import", *path, Path(L"data")}).error, "");
  for (const std::string name : {"obce.csv", "posty.csv", "okresy.csv"}) {
    std::ifstream stream(KVEZ_SOURCE_DIR "/data/" + name, std::ios::binary);
    const std::string committed((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    ASSERT_GT(committed.size(), 1000U);
#ifdef _WIN32
    // The tables are made with ICU; the system's collation puts blanks and hyphens in another order.
    EXPECT_EQ(SortedLines(folder.Read("data/" + name)), SortedLines(committed)) << name;
#else
    EXPECT_EQ(folder.Read("data/" + name) == committed, true) << name << " differs from the committed one";
    EXPECT_NE(SortedLines(committed), committed);
#endif
  }
}

}  // namespace
}  // namespace kvez
