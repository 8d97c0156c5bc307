#include <algorithm>
#include <cstdlib>

#include "tests/tool/tool_test.h"
#include "text/utf8.h"

namespace kvez {
namespace {

constexpr std::wstring_view kHeading = L"NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE\r\n";

class ImportTest : public ToolTest {
 protected:
  /// Imports a list of these bytes into the folder "data".
  ToolRun ImportBytes(const std::string& list) {
    folder.Write("list.csv", list);
    return RunCommand({L"import", Path(L"list.csv"), Path(L"data")});
  }
  ToolRun ImportRows(std::wstring_view rows) { return ImportBytes(ToWindows1250(std::wstring(kHeading).append(rows))); }

  /// That a list is refused with a message about a line, and nothing is made of it.
  void ExpectRefused(std::wstring_view rows, const std::string& message) {
    ExpectFailure(ImportRows(rows), Shown(L"list.csv") + ": " + message);
    EXPECT_EQ(std::filesystem::exists(folder.Path() / "data"), false);
  }

  /// The names of obce.csv without their codes and districts, joined by " | ".
  std::string Names() const {
    std::istringstream lines(folder.Read("data/obce.csv"));
    std::string names;
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
      const std::size_t begin = line.find(';') + 1;
      names.append(names.empty() ? "" : " | ").append(line.substr(begin, line.rfind(';') - begin));
    }
    return names;
  }
};

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
                "municipalities: 5\n"
                "municipalities without a row of their own name: 0\n"
                "rows municipality-part added for them: 0\n"
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
  EXPECT_NE(run.out.find("without a row of their own name: 0\n"), std::string::npos) << run.out;
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
  EXPECT_NE(run.out.find("municipalities without a row of their own name: 1\n"
                         "rows municipality-part added for them: 2\n"),
            std::string::npos)
      << run.out;
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

TEST_F(ImportTest, MunicipalityOfTwoNamesIsOneName) {
  ImportRows(
      L"Frýdek;73801;Frýdek-Místek 1;3802;Frýdek-Místek;Frýdek-Místek\r\n"
      L"Místek;73801;Frýdek-Místek 1;3802;Frýdek-Místek;Frýdek-Místek\r\n");
  EXPECT_EQ(Names(), "Frýdek | Frýdek-Místek-Frýdek | Frýdek-Místek-Místek | Místek");
}

TEST_F(ImportTest, MunicipalitiesOfOneNameInTwoDistrictsAreTwo) {
  const ToolRun run = ImportRows(
      L"Vráž;26711;Vráž;3202;Beroun;Vráž\r\n"
      L"Stará Vráž;39833;Čížová;3305;Písek;Vráž\r\n");
  EXPECT_EQ(Names(), "Stará Vráž | Vráž | Vráž-Stará Vráž");
  EXPECT_NE(run.out.find("municipalities: 2\n"), std::string::npos) << run.out;
}

TEST_F(ImportTest, LineEndsMayBePlainAndTheLastMayBeMissing) {
  std::string list = ToWindows1250(std::wstring(kHeading) + L"Cheb;35002;Cheb 2;3402;Cheb;Cheb");
  list.erase(list.find('\r'), 1);
  EXPECT_EQ(ImportBytes(list).status, 0);
  EXPECT_EQ(folder.Read("data/obce.csv"), "psc;obec;okres\n35002;Cheb;Cheb\n");
}

TEST_F(ImportTest, PostalCodeKeepsItsLeadingZero) {
  EXPECT_EQ(ImportRows(L"Cheb;01234;Cheb 2;3402;Cheb;Cheb\r\n").status, 0);
  EXPECT_EQ(folder.Read("data/posty.csv"), "psc;posta\n01234;Cheb 2\n");
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

TEST_F(ImportTest, HeadingMustBeTheList) {
  const std::string message =
      Shown(L"list.csv") + ": line 1: the heading 'NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE' was expected";
  ExpectFailure(ImportBytes(""), message);
  ExpectFailure(ImportBytes("PSC;NAZCOBCE\r\n35002;Cheb\r\n"), message);
}

TEST_F(ImportTest, ListWithoutRowsIsRefused) { ExpectRefused(L"", "line 2: at least one row was expected"); }

TEST_F(ImportTest, WrongColumnsAreRefused) {
  const std::wstring good = L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n";
  ExpectRefused(good + L"Cheb;35002;Cheb 2;3402;Cheb\r\n", "line 3: 6 columns were expected, not 5");
  ExpectRefused(good + L"Cheb;35002;Cheb 2;3402;Cheb;Cheb;\r\n", "line 3: 6 columns were expected, not 7");
  ExpectRefused(L"\r\n" + good, "line 2: 6 columns were expected, not 1");
}

TEST_F(ImportTest, FieldsThatAreNoCodeAreRefused) {
  for (const std::wstring code : {L"", L"3500", L"350021", L"350 02", L"3500x", L"-3500"}) {
    ExpectRefused(L"Cheb;" + code + L";Cheb 2;3402;Cheb;Cheb\r\n",
                  "line 2: PSC '" + ToUtf8(code) + "' is no postal code of five digits");
  }
  for (const std::wstring code : {L"", L"CZ0411", L"-1", L"32768", L"3402 "}) {
    ExpectRefused(L"Cheb;35002;Cheb 2;" + code + L";Cheb;Cheb\r\n",
                  "line 2: KODOKRESU '" + ToUtf8(code) + "' is no district code from 0 to 32767");
  }
  EXPECT_EQ(ImportRows(L"Cheb;35002;Cheb 2;32767;Cheb;Cheb\r\n").status, 0);
}

TEST_F(ImportTest, DistrictCodesBeginAtZero) {
  EXPECT_EQ(ImportRows(L"Cheb;35002;Cheb 2;0;Cheb;Cheb\r\n").error, "");
  EXPECT_EQ(folder.Read("data/okresy.csv"), "kod;okres\n0;Cheb\n");
}

TEST_F(ImportTest, EmptyNamesAndBlanksAtTheirEndsAreRefused) {
  ExpectRefused(L";35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE is empty");
  ExpectRefused(L" x);35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE is empty");
  ExpectRefused(L"Cheb;35002;;3402;Cheb;Cheb\r\n", "line 2: NAZPOST is empty");
  ExpectRefused(L"Cheb;35002;Cheb 2;3402;;Cheb\r\n", "line 2: NAZOKRESU is empty");
  ExpectRefused(L"Cheb;35002;Cheb 2;3402;Cheb;\r\n", "line 2: NAZOBCE is empty");
  ExpectRefused(L"Cheb;35002;Cheb 2;3402;Cheb;  \r\n", "line 2: NAZOBCE is blank");
  ExpectRefused(L"Ch?b;35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE has the wildcard '?'");
  ExpectRefused(L" Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE has a blank at its end");
  ExpectRefused(L"Cheb;35002;Cheb 2 ;3402;Cheb;Cheb\r\n", "line 2: NAZPOST has a blank at its end");
}

TEST_F(ImportTest, UnknownEncodingIsRefusedWithTheLine) {
  const std::wstring rows =
      std::wstring(kHeading) + L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n" + L"Žďár;26401;Sedlčany;3211;Příbram;Žďár\r\n";
  const std::string file = Shown(L"list.csv");
  ExpectFailure(ImportBytes(ToUtf8(rows)),
                file +
                    ": line 3: byte 0xC5 at position 1 is no character of a Czech list in Windows-1250; the file "
                    "looks like UTF-8");
  // The first byte of the mark is a letter, ď.
  ExpectFailure(ImportBytes("\xEF\xBB\xBF" + ToUtf8(rows)),
                file +
                    ": line 1: byte 0xBB at position 2 is no character of a Czech list in Windows-1250; the file "
                    "looks like UTF-8");
  // ISO 8859-2 and CP852 have their Ž elsewhere.
  for (const auto& [letter, shown] : {std::pair("\xAE", "0xAE"), std::pair("\xA6", "0xA6")}) {
    std::string list = ToWindows1250(rows);
    list.replace(list.find(ToWindows1250(L"Ž")), 1, letter);
    ExpectFailure(ImportBytes(list),
                  file + ": line 3: byte " + shown + " at position 1 is no character of a Czech list in Windows-1250");
  }
}

TEST_F(ImportTest, LettersThatLookLikeUtf8AreNoProblem) {
  // In Windows-1250 "Úž" are two bytes that would be one letter of UTF-8.
  EXPECT_EQ(ImportRows(L"Úžice;28506;Sázava;3205;Kutná Hora;Úžice\r\n").status, 0);
  EXPECT_EQ(folder.Read("data/obce.csv"), "psc;obec;okres\n28506;Úžice;Kutná Hora\n");
}

TEST_F(ImportTest, ControlCharactersAndQuotedFieldsAreRefused) {
  ExpectRefused(L"Cheb\t;35002;Cheb 2;3402;Cheb;Cheb\r\n",
                "line 2: byte 0x09 at position 5 is no character of a Czech list in Windows-1250");
  ExpectRefused(L"Žár;35002;\"Cheb; 2\";3402;Cheb;Cheb\r\n",
                "line 2: byte 0x22 at position 11 is no character of a Czech list in Windows-1250");
}

TEST_F(ImportTest, ContradictionsAreRefusedWithBothLines) {
  const std::wstring good = L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n";
  ExpectRefused(good + L"Cheb;35002;Cheb 3;3402;Cheb;Cheb\r\n",
                "line 3: PSC 35002 has another post office than in line 2");
  ExpectRefused(good + L"Cheb;35003;Cheb 3;3402;Chebsko;Cheb\r\n",
                "line 3: KODOKRESU 3402 has another name than in line 2");
  ExpectRefused(good + good + L"Cheb;35003;Cheb 3;3403;Cheb;Cheb\r\n",
                "line 4: the district Cheb has another code than in line 2");
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
