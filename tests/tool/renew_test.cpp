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
    for (const char* name : {"tests/tool", "bin", "tmp"}) std::filesystem::create_directories(folder.Path() / name);
    folder.Write("data/stav.txt", std::string("říjen 2024\n2024-10-01\n"));
    folder.Write("data/README.md",
                 std::string("# The list\n\n<!-- renew: begin -->\nold\n<!-- renew: end -->\nrest\n"));
    WriteList(m_rows);
  }

  void WriteList(const std::wstring& rows) {
    folder.Write("list.csv", ToWindows1250(L"NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE\r\n" + rows));
  }

  /// A program that is called instead of the system's one of that name.
  void WriteProgram(const std::string& name, const std::string& script) {
    folder.Write("bin/" + name, "#!/bin/sh\n" + script);
    std::filesystem::permissions(folder.Path() / "bin" / name, std::filesystem::perms::owner_all);
  }

  ProcessRun Renew(const std::wstring& state, const std::wstring& more = L"", const std::wstring& variable = L"") {
    const ProcessRun run = RunProcess(L"env PATH=" + Argument(folder.Path() / "bin") + L":\"$PATH\" TMPDIR=" +
                                      Argument(folder.Path() / "tmp") + L" " + variable + L" " +
                                      Argument(std::filesystem::path(KVEZ_SOURCE_DIR) / "tools" / "renew") + L" " +
                                      Argument(KVEZ_DATA_TOOL) + L" " + Argument(folder.Path()) + L" " +
                                      Argument(folder.Path() / "list.csv") + L" '" + state + L"' " + more + L" 2>&1");
    EXPECT_EQ(NamesIn("tmp"), "");
    return run;
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
  EXPECT_NE(folder.Read("data/posty.csv").find("61200;Brno 12\n"), std::string::npos);
  // The figures, and against what.
  EXPECT_NE(run.output.find("rows of the list: 5\n"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find("Against the tables of 2024-10-01:\nrows: 3 before, 6 now\n"), std::string::npos)
      << run.output;
  EXPECT_TRUE(run.output.ends_with("\nThe tables are of listopad 2024 (2024-11-01).\n")) << run.output;
}

TEST_F(RenewTest, OrderOfTheMunicipalitiesIsTheSameForAll) {
  // In Czech Ch comes after H.
  WriteList(m_rows + L"Hora;36001;Karlovy Vary 1;3403;Karlovy Vary;Hora\r\n");
  EXPECT_EQ(Renew(L"2024-11", L"", L"LC_ALL=cs_CZ.UTF-8").status, 0);
  EXPECT_EQ(folder.Read("tests/tool/municipalities.csv"),
            "obec;okres;psc\nBrno;Brno-město;60200 61200\nCheb;Cheb;35002\nHora;Karlovy Vary;36001\n"
            "Praha;Hlavní město Praha;11000\n");
}

TEST_F(RenewTest, DayOfTheListIsToldAsCzechTellsIt) {
  EXPECT_EQ(Renew(L"2024-11-05").status, 0);
  EXPECT_EQ(folder.Read("data/stav.txt"), "5. listopadu 2024\n2024-11-05\n");
  // Once more, the same.
  const std::string readme = folder.Read("data/README.md");
  EXPECT_EQ(Renew(L"2024-11-05").status, 0);
  EXPECT_EQ(folder.Read("data/README.md"), readme);
}

TEST_F(RenewTest, EachMonthHasItsName) {
  struct Month {
    const char* name;
    const char* ofDay;
  };
  const Month months[] = {{"leden", "ledna"},       {"únor", "února"},         {"březen", "března"},
                          {"duben", "dubna"},       {"květen", "května"},      {"červen", "června"},
                          {"červenec", "července"}, {"srpen", "srpna"},        {"září", "září"},
                          {"říjen", "října"},       {"listopad", "listopadu"}, {"prosinec", "prosince"}};
  std::wstring number = L"01";
  for (const Month& month : months) {
    const std::wstring state = L"2023-" + number;
    EXPECT_EQ(Renew(state, L"--anyway").status, 0);
    EXPECT_EQ(folder.Read("data/stav.txt"), std::string(month.name) + " 2023\n" + ToUtf8(state) + "-01\n");
    EXPECT_EQ(Renew(state + L"-08", L"--anyway").status, 0);
    EXPECT_EQ(folder.Read("data/stav.txt"), "8. " + std::string(month.ofDay) + " 2023\n" + ToUtf8(state) + "-08\n");
    number = number == L"09" ? L"10" : std::wstring{number[0], static_cast<wchar_t>(number[1] + 1)};
  }
}

TEST_F(RenewTest, StateThatIsNoneIsRefused) {
  ExpectRefused(Renew(L"listopad"), "renew: 'listopad' is no state; it is a month, 2024-11, or a day, 2024-11-05.");
  ExpectRefused(Renew(L"2024-13"), "is no state");
  for (const wchar_t* more : {L"02024-11", L"x2024-11", L"2024-11x"}) ExpectRefused(Renew(more), "is no state");
  ExpectRefused(Renew(L"2024-11-31"), "renew: there is no day 2024-11-31.");
  EXPECT_EQ(Renew(L"2024-11-31").output, "renew: there is no day 2024-11-31.\n");
  ExpectRefused(Renew(L"2999-01"), "renew: 2999-01-01 is still to come.");
}

TEST_F(RenewTest, TomorrowIsTodayForSomebody) {
  WriteProgram("date", "[ \"$3\" != tomorrow ] || set -- -u -d 2024-11-23 +%F\nexec /bin/date \"$@\"\n");
  ExpectRefused(Renew(L"2024-11-24"), "renew: 2024-11-24 is still to come.");
  EXPECT_EQ(Renew(L"2024-11-23").status, 0);
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

TEST_F(RenewTest, AProgramThatFailsLeavesAllAsItWas) {
  WriteProgram("iconv", "echo 'iconv: no memory' >&2\nexit 1\n");
  ExpectRefused(Renew(L"2024-11"), "iconv: no memory");
}

TEST_F(RenewTest, StateComesLast) {
  std::filesystem::create_directory(folder.Path() / "tests" / "tool" / "municipalities.csv");
  const std::string names = NamesIn("data");
  const ProcessRun run = Renew(L"2024-11");
  EXPECT_NE(run.status, 0);
  EXPECT_NE(run.output.find("municipalities.csv"), std::string::npos) << run.output;
  EXPECT_EQ(NamesIn("tests/tool/municipalities.csv"), "");
  EXPECT_EQ(NamesIn("tests/tool"), "municipalities.csv");
  EXPECT_EQ(folder.Read("data/stav.txt"), "říjen 2024\n2024-10-01\n");
  EXPECT_EQ(NamesIn("data"), names);
}

TEST_F(RenewTest, WhoReadsATableMeanwhileReadsTheOldOne) {
  const std::string before = folder.Read("data/obce.csv");
  std::filesystem::create_hard_link(folder.Path() / "data" / "obce.csv", folder.Path() / "held");
  EXPECT_EQ(Renew(L"2024-11").status, 0);
  EXPECT_NE(folder.Read("data/obce.csv"), before);
  EXPECT_EQ(folder.Read("held"), before);
}

TEST_F(RenewTest, ReadmeWithoutItsMarksIsSaid) {
  folder.Write("data/README.md", std::string("old\n"));
  ExpectRefused(Renew(L"2024-11"), "has lost its marks");
}

}  // namespace
}  // namespace kvez

#endif
