// The data tool as a program: its arguments, its two outputs, its exit status.

#include "tests/tool/process.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

class ProgramTest : public ToolTest {
 protected:
  ProcessRun RunTool(const std::wstring& arguments) { return RunProcess(Argument(KVEZ_DATA_TOOL) + L" " + arguments); }

  /// The same in a shell in which output 4 is a pipe whose reader has gone. What goes to output 3 comes back.
  ProcessRun RunInBash(const std::wstring& arguments) {
    folder.Write("script", "exec 4> >(true)\nwait $!\n" + ToUtf8(Argument(KVEZ_DATA_TOOL) + L" " + arguments + L"\n"));
    return RunProcess(L"bash " + Argument(folder.Path() / "script") + L" 3>&1 >/dev/null");
  }
};

TEST_F(ProgramTest, CzechArgumentsAndOutput) {
  BuildFiles();
  const ProcessRun run = RunTool(L"search " + Argument(folder.Path() / "out") + L" name \"Žab*\"");
  EXPECT_EQ(run.output, "Název začíná \"Žab\".\nZadání vyhovuje 1 obec.\n602 00 ; Brno 2 ; Žabovřesky ; Brno-město\n");
  EXPECT_EQ(run.status, 0);
}

TEST_F(ProgramTest, FailureGoesToTheErrorOutputAndTheStatus) {
  const ProcessRun quiet =
      RunTool(L"search " + Argument(folder.Path()) + L" district \"Česká\" 2>" + Argument(folder.Path() / "error"));
  EXPECT_EQ(quiet.output, "");
  EXPECT_EQ(quiet.status, 1);
  EXPECT_EQ(folder.Read("error"),
            "kvezdata: Soubor se seznamem PSČ je poškozen nebo neexistuje !\n"
            "Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !\n"
            "Soubor se seznamem okresů je poškozen nebo neexistuje !\n");
}

#ifndef _WIN32
TEST_F(ProgramTest, ArgumentThatIsNoUtf8IsRefused) {
  const ProcessRun run = RunTool(L"check \"$(printf 'a\\351')\" 2>&1");
  EXPECT_EQ(run.output, "kvezdata: argument 2 is not UTF-8\n");
  EXPECT_EQ(run.status, 1);
}

// Outputs that cannot be written: a full disk, a reader that has gone, one that the caller has closed.
const wchar_t* const kBadOutputs[] = {L">/dev/full", L">&4", L">&-"};

TEST_F(ProgramTest, OutputThatCannotBeWrittenIsAnError) {
  BuildFiles();
  for (const wchar_t* output : kBadOutputs) {
    const ProcessRun run = RunInBash(L"list " + Argument(folder.Path() / "out") + L" offices 2>&3 " + output);
    EXPECT_EQ(run.output, "kvezdata: the output cannot be written\n") << ToUtf8(output);
    EXPECT_EQ(run.status, 1) << ToUtf8(output);
  }
}

TEST_F(ProgramTest, FinishedWorkStaysWhenTheOutputCannotBeWritten) {
  BuildFiles();
  for (const wchar_t* output : kBadOutputs) {
    folder.Write("out/vd1.kl_", std::string("old"));
    const ProcessRun run = RunInBash(L"build " + Argument(folder.Path() / "data") + L" " +
                                     Argument(folder.Path() / "out") + L" 2>&3 " + output);
    EXPECT_EQ(run.output, "kvezdata: the output cannot be written; the files are written\n") << ToUtf8(output);
    EXPECT_EQ(run.status, 1) << ToUtf8(output);
    EXPECT_EQ(NamesIn("out"), "vd1.kl_ vd2.kl_ vd3.kl_");
    ExpectSuccess(RunCommand({L"list", Path(L"out"), L"municipalities"}),
                  "35002;Cheb;Cheb\n11000;Staré Město;Hlavní město Praha\n60200;Žabovřesky;Brno-město\n");
  }
}

TEST_F(ProgramTest, FilesAreNotWrittenIntoInsteadOfClosedOutputs) {
  BuildFiles();
  const std::string asItMustBe = folder.Read("out/vd1.kl_");
  folder.Write("out/vd1.kl_", std::string("old"));
  const ProcessRun run = RunInBash(L"build " + Argument(folder.Path() / "data") + L" " +
                                   Argument(folder.Path() / "out") + L" <&- >&- 2>&-");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(folder.Read("out/vd1.kl_"), asItMustBe);
  EXPECT_EQ(NamesIn("out"), "vd1.kl_ vd2.kl_ vd3.kl_");
}

TEST_F(ProgramTest, ManyAtOnceFindTheSame) {
  BuildFiles();
  std::wstring searches;
  for (int i = 0; i < 50; ++i) {
    searches += Argument(KVEZ_DATA_TOOL) + L" search " + Argument(folder.Path() / "out") + L" name \"Ž*\" & ";
  }
  const ProcessRun run = RunProcess(searches + L"wait");
  std::string expected;
  for (int i = 0; i < 50; ++i) {
    expected += "Název začíná \"Ž\".\nZadání vyhovuje 1 obec.\n602 00 ; Brno 2 ; Žabovřesky ; Brno-město\n";
  }
  EXPECT_EQ(run.output, expected);
}
#endif

}  // namespace
}  // namespace kvez
