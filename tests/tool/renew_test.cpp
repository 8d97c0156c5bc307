// tools/renew: a newer list in one step, in a root of the test's own. It is a shell script, so natively only.

#ifndef _WIN32

#include "tests/tool/process.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

class RenewTest : public ToolTest {
 protected:
  void SetUp() override {
    WriteTables();
    std::filesystem::create_directories(folder.Path() / "tests" / "tool");
    folder.Write("data/stav.txt", std::string("říjen 2024\n2024-10-01\n"));
    folder.Write("data/README.md",
                 std::string("# The list\n\n<!-- renew: begin -->\nold\n<!-- renew: end -->\nrest\n"));
    WriteList(m_rows);
  }

  void WriteList(const std::wstring& rows) {
    folder.Write("list.csv", ToWindows1250(L"NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE\r\n" + rows));
  }

  ProcessRun Renew(const std::wstring& state, const std::wstring& more = L"") {
    return RunProcess(Argument(std::filesystem::path(KVEZ_SOURCE_DIR) / "tools" / "renew") + L" " +
                      Argument(KVEZ_DATA_TOOL) + L" " + Argument(folder.Path()) + L" " +
                      Argument(folder.Path() / "list.csv") + L" '" + state + L"' " + more + L" 2>&1");
  }

  void ExpectRefused(const ProcessRun& run, const std::string& message) {
    EXPECT_NE(run.status, 0);
    EXPECT_NE(run.output.find(message), std::string::npos) << run.output;
    EXPECT_EQ(folder.Read("data/stav.txt"), "říjen 2024\n2024-10-01\n");
    EXPECT_EQ(folder.Read("data/README.md").find("old") != std::string::npos, true);
    EXPECT_EQ(NamesIn("tests/tool"), "");
    EXPECT_NE(folder.Read("data/obce.csv").find("35002;Cheb;Cheb"), std::string::npos);
  }

  const std::wstring m_rows =
      L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n"
      L"Staré Město;11000;Praha 1;3100;Hlavní město Praha;Praha\r\n"
      L"Žabovřesky;60200;Brno 2;3702;Brno-město;Brno\r\n"
      L"Brno;60200;Brno 2;3702;Brno-město;Brno\r\n"
      L"Brno;61200;Brno 12;3702;Brno-město;Brno\r\n";
};

TEST_F(RenewTest, BringsAllUpToDateThatNamesTheState) {
  const ProcessRun run = Renew(L"2024-11");
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_EQ(folder.Read("data/stav.txt"), "listopad 2024\n2024-11-01\n");
  EXPECT_EQ(folder.Read("tests/tool/municipalities.csv"),
            "obec;okres;psc\nBrno;Brno-město;60200 61200\nCheb;Cheb;35002\nPraha;Hlavní město Praha;11000\n");
  const std::string readme = folder.Read("data/README.md");
  const std::string begin =
      "# The list\n\n<!-- renew: begin -->\nState of the list: listopad 2024 (2024-11-01). The import printed:\n\n"
      "    rows of the list: 5\n    alias marks \" x)\" removed: 0\n";
  EXPECT_EQ(readme.substr(0, begin.size()), begin);
  EXPECT_TRUE(readme.ends_with("    okresy.csv: 3 rows\n<!-- renew: end -->\nrest\n")) << readme;
  EXPECT_NE(folder.Read("data/obce.csv").find("61200;Brno;Brno-město\n"), std::string::npos);
  // The figures, and against what.
  EXPECT_NE(run.output.find("rows of the list: 5\n"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find("Against the tables of 2024-10-01:\nrows: 3 before, 6 now\n"), std::string::npos)
      << run.output;
}

TEST_F(RenewTest, DayOfTheListIsToldAsCzechTellsIt) {
  EXPECT_EQ(Renew(L"2024-11-05").status, 0);
  EXPECT_EQ(folder.Read("data/stav.txt"), "5. listopadu 2024\n2024-11-05\n");
  // Once more, the same.
  const std::string readme = folder.Read("data/README.md");
  EXPECT_EQ(Renew(L"2024-11-05").status, 0);
  EXPECT_EQ(folder.Read("data/README.md"), readme);
}

TEST_F(RenewTest, StateThatIsNoneIsRefused) {
  ExpectRefused(Renew(L"listopad"), "renew: 'listopad' is no state; it is a month, 2024-11, or a day, 2024-11-05.");
  ExpectRefused(Renew(L"2024-13"), "is no state");
  ExpectRefused(Renew(L"2024-11-31"), "renew: there is no day 2024-11-31.");
  ExpectRefused(Renew(L"2999-01"), "renew: 2999-01-01 is still to come.");
}

TEST_F(RenewTest, OlderListIsTakenOnlyWhenItIsSaid) {
  ExpectRefused(Renew(L"2024-09"), "renew: 2024-09-01 is before 2024-10-01, the state of the tables; with --anyway");
  EXPECT_EQ(Renew(L"2024-09", L"--anyway").status, 0);
  EXPECT_EQ(folder.Read("data/stav.txt"), "září 2024\n2024-09-01\n");
}

TEST_F(RenewTest, LossIsTakenOnlyWhenItIsSaid) {
  WriteList(m_rows.substr(m_rows.find(L"Staré")));
  ExpectRefused(Renew(L"2024-11"), "kvezdata: the district Cheb is lost; with --anyway that is taken");
  EXPECT_EQ(Renew(L"2024-11", L"--anyway").status, 0);
  EXPECT_EQ(folder.Read("data/okresy.csv").find("Cheb"), std::string::npos);
}

TEST_F(RenewTest, DamagedListIsRefused) {
  WriteList(L"Cheb;3500;Cheb 2;3402;Cheb;Cheb\r\n");
  ExpectRefused(Renew(L"2024-11"), "line 2: PSC '3500' is no postal code of five digits");
}

TEST_F(RenewTest, AFileThatCannotBeWrittenLeavesAllAsItWas) {
  std::filesystem::remove(folder.Path() / "tests" / "tool");
  const std::string names = NamesIn("data");
  const ProcessRun run = Renew(L"2024-11");
  std::filesystem::create_directories(folder.Path() / "tests" / "tool");
  ExpectRefused(run, "municipalities.csv");
  EXPECT_EQ(NamesIn("data"), names);
}

TEST_F(RenewTest, ReadmeWithoutItsMarksIsSaid) {
  folder.Write("data/README.md", std::string("old\n"));
  ExpectRefused(Renew(L"2024-11"), "has lost its marks");
}

}  // namespace
}  // namespace kvez

#endif
