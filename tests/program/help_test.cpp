// The help in the real program: the system's viewer opens it, or it is downloaded first.

#include <gmock/gmock.h>

#include "tests/program/download_base.h"
#include "tests/program/program_test.h"
#include "tests/support/http_server.h"

namespace kvez::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Help : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    content = ReadBytes(Native(KVEZ_PROGRAM_FOLDER) / "kvez.chm");
    ASSERT_FALSE(content.empty()) << "kvez.chm is not built: is fp-utils-3.2.2 installed?";
    ASSERT_TRUE(ReplaceDownloadBase(Exe(), server.Base()));
  }

  std::filesystem::path HelpFile() const { return Folder() / "kvez.chm"; }
  static HWND HelpWindow() { return FindWindowW(L"HH Parent", nullptr); }
  static bool WaitHelpWindow() {
    return WaitUntil([] { return HelpWindow() != nullptr && IsWindowVisible(HelpWindow()); });
  }
  static std::wstring Status(const Program& program) { return StatusText(program.StatusBar(), 2); }
  /// Presses the help button by its access key, so that no hint of a hovered button writes into the status bar.
  static void PressHelp(const Program& program) {
    ASSERT_TRUE(program.WaitReady());
    program.Focus(kTxtMPSC);
    PressKey('N', false, false, true);
  }
  static void Close(Program& program) {
    PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
    EXPECT_EQ(program.WaitForEnd(), DWORD{0});
  }

  HttpServer server;
  std::string content;
};

TEST_F(Help, OpensWhenItIsThereAndClosesWithTheProgram) {
  WriteBytes(HelpFile(), content);
  Program program(Exe());
  PressHelp(program);
  ASSERT_TRUE(WaitHelpWindow());
  EXPECT_EQ(WindowText(HelpWindow()), L"Kvez – nápověda");
  EXPECT_TRUE(WaitUntil([&] { return Status(program).empty(); }));
  EXPECT_THAT(server.Requests(), IsEmpty());
  Close(program);
  EXPECT_TRUE(WaitUntil([] { return HelpWindow() == nullptr; }));
}

TEST_F(Help, F1OpensIt) {
  WriteBytes(HelpFile(), content);
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  PressKey(VK_F1);
  EXPECT_TRUE(WaitHelpWindow());
  Close(program);
}

TEST_F(Help, MissingAndDeclinedChangesNothing) {
  Program program(Exe());
  PressHelp(program);
  const Dialog question = program.WaitDialog();
  EXPECT_EQ(question.text, L"Přejete si z internetu stáhnout nápovědu ?");
  EXPECT_EQ(question.caption, L"Kvez");
  const std::wstring before = Status(program);
  EXPECT_NE(before, L"");
  EXPECT_TRUE(program.Answer(question, IDNO));
  // Answered by the program: it is done with the command.
  SendMessageW(program.MainWindow(), WM_NULL, 0, 0);
  EXPECT_EQ(Status(program), before);
  EXPECT_THAT(server.Requests(), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(HelpFile()));
}

TEST_F(Help, MissingIsDownloadedAndOpened) {
  server.Serve("kvez.chm", {.body = content});
  Program program(Exe());
  PressHelp(program);
  ASSERT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  ASSERT_TRUE(WaitHelpWindow());
  EXPECT_TRUE(ReadBytes(HelpFile()) == content);
  EXPECT_THAT(server.Requests(), ElementsAre("kvez.chm"));
  EXPECT_TRUE(WaitUntil([&] { return Status(program).empty(); }));
  Close(program);
}

TEST_F(Help, FailedDownloadIsSaidAndLeavesNoFile) {
  server.Stop();
  Program program(Exe());
  PressHelp(program);
  ASSERT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  const Dialog message = program.WaitDialog();
  EXPECT_EQ(message.text, L"Stažení souboru nápovědy nebylo úspěšné.");
  EXPECT_EQ(message.caption, L"Kvez");
  EXPECT_TRUE(program.Answer(message, IDOK));
  EXPECT_TRUE(WaitUntil([&] { return Status(program).empty(); }));
  EXPECT_FALSE(std::filesystem::exists(HelpFile()));
  EXPECT_EQ(HelpWindow(), nullptr);
}

TEST_F(Help, HiddenCountsAsMissing) {
  WriteBytes(HelpFile(), content);
  SetFileAttributesW(HelpFile().c_str(), FILE_ATTRIBUTE_HIDDEN);
  Program program(Exe());
  PressHelp(program);
  const Dialog question = program.WaitDialog();
  EXPECT_EQ(question.text, L"Přejete si z internetu stáhnout nápovědu ?");
  EXPECT_TRUE(program.Answer(question, IDNO));
  EXPECT_EQ(HelpWindow(), nullptr);
}

}  // namespace
}  // namespace kvez::test
