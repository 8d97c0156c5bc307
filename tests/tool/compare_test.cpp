// What the data tool says of two states of the tables, and which of them it takes for a loss.

#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

class CompareTest : public ToolTest {
 protected:
  /// Tables of so many municipalities, the first of them left out, in a folder.
  void WriteRows(const std::string& name, int count, int without = 0, const std::string& more = "") const {
    std::filesystem::create_directories(folder.Path() / name);
    std::string rows = "psc;obec;okres\n";
    for (int i = without; i < count; ++i) rows += "35002;Obec " + std::to_string(i) + ";Cheb\n";
    folder.Write(name + "/obce.csv", rows + more);
    folder.Write(name + "/posty.csv", std::string("psc;posta\n35002;Cheb 2\n"));
    folder.Write(name + "/okresy.csv", std::string("kod;okres\n3402;Cheb\n"));
  }
  ToolRun Compare(const std::vector<std::wstring>& more = {}) const {
    std::vector<std::wstring> arguments = {L"compare", Path(L"old"), Path(L"new")};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunCommand(arguments);
  }
};

TEST_F(CompareTest, FiguresAndSamplesTellWhatCameAndWent) {
  WriteRows("old", 100, 0, "35002;Aš (část);Cheb\n35002;Hora;Cheb\n");
  WriteRows("new", 100, 0, "35002;Aš;Cheb\n35002;Hora;Tachov\n35003;Hora;Cheb\n");
  folder.Write("new/posty.csv", std::string("psc;posta\n35002;Cheb\n35003;Hora\n"));
  folder.Write("old/posty.csv", std::string("psc;posta\n35002;Cheb 2\n35001;Cheb 1\n"));
  folder.Write("new/okresy.csv", std::string("kod;okres\n3402;Cheb\n3410;Tachov\n"));
  ExpectSuccess(Compare(),
                "rows: 102 before, 103 now\n"
                "post offices: 2 before, 2 now\n"
                "districts: 1 before, 2 now\n"
                "rows gone: 1\n  35002;Hora;Cheb\n"
                "rows new: 2\n  35002;Hora;Tachov\n  35003;Hora;Cheb\n"
                "codes gone: 1\n  35001;Cheb 1\n"
                "codes new: 1\n  35003;Hora\n"
                "post offices with another name: 1\n  35002;Cheb 2 is now Cheb\n"
                "districts gone: 0\n");
}

TEST_F(CompareTest, SamplesAreFromAllOver) {
  WriteRows("old", 1);
  WriteRows("new", 11);
  const std::string out = Compare().out;
  const std::string expected =
      "rows new: 10\n  35002;Obec 1;Cheb\n  35002;Obec 2;Cheb\n  35002;Obec 4;Cheb\n  35002;Obec 6;Cheb\n"
      "  35002;Obec 8;Cheb\ncodes gone";
  EXPECT_NE(out.find(expected), std::string::npos) << out;
}

TEST_F(CompareTest, MoreThanThreePercentAreALoss) {
  WriteRows("old", 100);
  WriteRows("new", 100, 3);
  EXPECT_EQ(Compare().error, "");
  // As many new ones make no good of it: a list with damaged letters has them.
  WriteRows("new", 110, 4);
  const ToolRun run = Compare();
  EXPECT_EQ(run.error, "kvezdata: 4 of 100 rows are lost, more than 3 %; with --anyway that is taken\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find("rows gone: 4\n"), std::string::npos) << run.out;
  EXPECT_EQ(Compare({L"--anyway"}).error, "");
}

TEST_F(CompareTest, LostDistrictIsALoss) {
  WriteRows("old", 100);
  WriteRows("new", 100);
  folder.Write("old/okresy.csv", std::string("kod;okres\n3402;Cheb\n3410;Tachov\n"));
  const ToolRun run = Compare();
  EXPECT_EQ(run.error, "kvezdata: the district Tachov is lost; with --anyway that is taken\n");
  EXPECT_NE(run.out.find("districts gone: 1\n  Tachov\n"), std::string::npos) << run.out;
  EXPECT_EQ(Compare({L"--anyway"}).status, 0);
}

TEST_F(CompareTest, OtherOptionIsRefused) {
  WriteRows("old", 1);
  WriteRows("new", 1);
  ExpectFailure(Compare({L"--strict"}), "'--strict' is not understood; compare takes --anyway");
}

}  // namespace
}  // namespace kvez
