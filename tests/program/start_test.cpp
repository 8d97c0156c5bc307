// The program from its start to its end, in a process of its own.

#include <future>

#include "tests/program/program_test.h"

namespace kvez::test {
namespace {

class Start : public ProgramTest {};

TEST_F(Start, LoadsTheListsAndWaitsInNameMode) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  EXPECT_EQ(WindowText(program.MainWindow()), L"Kvez");
  EXPECT_EQ(program.ListCount(kLstMPSC), static_cast<int>(ReadTable("obce.csv").size()));
  EXPECT_EQ(program.ListCount(kLstMPSC + 2), static_cast<int>(ReadTable("okresy.csv").size()));
  EXPECT_EQ(program.ListCount(kLstMPSC + 1), 0);
  EXPECT_TRUE(program.IsChecked(kOptMPSC + 1));
  EXPECT_FALSE(program.IsChecked(kOptMPSC));
  EXPECT_TRUE(program.IsShown(kOptMPSC + 2));
  EXPECT_TRUE(program.IsEnabled(kTlHVyhledej));
  EXPECT_FALSE(program.IsShown(kTlHObcePSC));
  EXPECT_EQ(StatusText(program.StatusBar(), 2), L"Vyhledá obce odpovídající zadanému textu.");
  EXPECT_TRUE(HasNoExpandedFiles());
}

TEST_F(Start, SecondInstanceSaysSoAndEnds) {
  Program first(Exe());
  ASSERT_TRUE(first.WaitReady());
  Program second(Exe());
  const Dialog dialog = second.WaitDialog();
  EXPECT_EQ(dialog.caption, L"Kvez");
  EXPECT_EQ(dialog.text, L"Aplikace \"Kvez\" je již spuštěna nebo probíhá její ukončování !");
  EXPECT_EQ(second.MainWindow(), nullptr);
  EXPECT_TRUE(second.Answer(dialog, IDOK));
  EXPECT_EQ(second.WaitForEnd(), DWORD{0});
  EXPECT_FALSE(first.HasEnded());
}

TEST_F(Start, InstanceThatStillAsksAboutTheExitCountsAsRunning) {
  Program first(Exe());
  ASSERT_TRUE(first.WaitReady());
  PostMessageW(first.MainWindow(), WM_CLOSE, 0, 0);
  const Dialog question = first.WaitDialog();
  Program second(Exe());
  const Dialog dialog = second.WaitDialog();
  EXPECT_EQ(dialog.text, L"Aplikace \"Kvez\" je již spuštěna nebo probíhá její ukončování !");
  EXPECT_TRUE(second.Answer(dialog, IDOK));
  EXPECT_TRUE(first.Answer(question, IDNO));
}

TEST_F(Start, NoAtTheExitQuestionKeepsEverything) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  const int rows = program.ListCount(kLstMPSC);
  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  const Dialog dialog = program.WaitDialog();
  EXPECT_EQ(dialog.caption, L"Kvez");
  EXPECT_EQ(dialog.text, L"Přejete si program ukončit ?");
  EXPECT_TRUE(program.Answer(dialog, IDNO));
  EXPECT_FALSE(program.HasEnded());
  EXPECT_EQ(program.ListCount(kLstMPSC), rows);
  program.Focus(kTxtMPSC);
  TypeText(L"aš");
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) > 0; }));
}

TEST_F(Start, YesAtTheExitQuestionEndsTheProcess) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
  Program next(Exe());
  EXPECT_TRUE(next.WaitReady());
}

// A sent message does not wake the loop that waits for the window's end.
TEST_F(Start, AMessageThatIsSentEndsTheProcessToo) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  auto closing =
      std::async(std::launch::async, [window = program.MainWindow()] { SendMessageW(window, WM_CLOSE, 0, 0); });
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

TEST_F(Start, AnEndOfTheSessionThatIsAgreedToEndsTheProcess) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  const HWND window = program.MainWindow();
  auto answer = std::async(std::launch::async, [window] { return SendMessageW(window, WM_QUERYENDSESSION, 0, 0); });
  const Dialog question = program.WaitDialog();
  EXPECT_EQ(question.text, L"Přejete si program ukončit ?");
  EXPECT_TRUE(program.Answer(question, IDYES));
  EXPECT_EQ(answer.get(), TRUE);
  EXPECT_FALSE(program.HasEnded());
  SendMessageW(window, WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

TEST_F(Start, LoadsFromAFolderBeyondTheOldPathLimit) {
  std::wstring name(60, L'a');
  MoveFolder(Folder() / name / name / L"žluťoučký");
  ASSERT_GT(Exe().size(), 128U);
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  EXPECT_EQ(program.ListCount(kLstMPSC), static_cast<int>(ReadTable("obce.csv").size()));
  EXPECT_TRUE(HasNoExpandedFiles());
}

TEST_F(Start, LoadsFromAFolderOutsideTheCodePage) {
  MoveFolder(Folder() / L"Ωmega-日本");
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  EXPECT_EQ(program.ListCount(kLstMPSC), static_cast<int>(ReadTable("obce.csv").size()));
}

}  // namespace
}  // namespace kvez::test
