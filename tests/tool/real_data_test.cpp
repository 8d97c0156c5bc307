// The data files that the build makes, as the program finds them.

#include <algorithm>
#include <fstream>
#include <iterator>

#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

class RealDataTest : public ToolTest {
 protected:
  const std::wstring m_folder = TextFromPath(std::filesystem::path(KVEZ_DATA_FOLDER));

  std::string Search(const std::wstring& kind, const std::wstring& text) {
    const ToolRun run = RunCommand({L"search", m_folder, kind, text});
    EXPECT_EQ(run.error, "");
    return run.out;
  }
};

/// How many rows a table of data/ has below its heading.
std::string RowsOf(const char* table) {
  std::ifstream stream(std::string(KVEZ_SOURCE_DIR "/data/") + table, std::ios::binary);
  const auto lines = std::count(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>(), '\n');
  return std::to_string(lines - 1);
}

TEST_F(RealDataTest, IsSoundAndComplete) {
  ExpectSuccess(RunCommand({L"check", m_folder, L"--strict"}),
                "municipalities: " + RowsOf("obce.csv") + "\npost offices: " + RowsOf("posty.csv") +
                    "\ndistricts: " + RowsOf("okresy.csv") +
                    "\n"
                    "municipalities without a post office: 0\nmunicipalities in no listed district: 0\n"
                    "post offices without a municipality: 0\ndistricts without a municipality: 0\n");
}

TEST_F(RealDataTest, ListsAreTheTables) {
  for (const auto& [list, table] : {std::pair(L"municipalities", "obce.csv"), std::pair(L"offices", "posty.csv"),
                                    std::pair(L"districts", "okresy.csv")}) {
    std::ifstream stream(std::string(KVEZ_SOURCE_DIR "/data/") + table, std::ios::binary);
    std::string heading;
    std::getline(stream, heading);
    const std::string rows((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    const ToolRun run = RunCommand({L"list", m_folder, list});
    EXPECT_EQ(run.out == rows, true) << table;
    EXPECT_EQ(run.error, "");
  }
}

TEST_F(RealDataTest, PrahaIsFoundThoughTheListHasItsPartsOnly) {
  const std::string found = Search(L"name", L"Praha*");
  EXPECT_EQ(found.substr(0, found.find("190")), "Název začíná \"Praha\".\nZadání vyhovuje 191 obcí.\n");
  EXPECT_NE(found.find("181 00 ; Praha 81 ; Praha-Bohnice (část) ; Hlavní město Praha\n"), std::string::npos);
}

TEST_F(RealDataTest, BrnoIsFoundUnderTheNamesOfTheList) {
  const std::string found = Search(L"name", L"Brno");
  // 68 other names of its parts, and Brno-město.
  EXPECT_EQ(found.substr(0, found.find("619")), "Název obce \"Brno\".\nZadání vyhovuje 69 obcí.\n");
  EXPECT_NE(found.find("628 00 ; Brno 28 ; Brno-Líšeň (část) ; Brno-město\n"), std::string::npos);
}

TEST_F(RealDataTest, DistrictIsFoundWhole) {
  const std::string found = Search(L"district", L"Jeseník");
  EXPECT_EQ(found.substr(0, found.find("790")), "Obce v okrese \"Jeseník\".\nZadání vyhovuje 70 obcí.\n");
}

}  // namespace
}  // namespace kvez
