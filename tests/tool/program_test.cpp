// The data tool as a program: its arguments, its two outputs, its exit status.

#include "tests/tool/process.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

class ProgramTest : public ToolTest {
 protected:
  ProcessRun RunTool(const std::wstring& arguments) { return RunProcess(Argument(KVEZ_DATA_TOOL) + L" " + arguments); }
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

TEST_F(ProgramTest, FullDiskIsAnError) {
  const ProcessRun run = RunTool(L"help 2>&1 >/dev/full");
  EXPECT_EQ(run.output, "kvezdata: the output cannot be written\n");
  EXPECT_EQ(run.status, 1);
}
#endif

}  // namespace
}  // namespace kvez
