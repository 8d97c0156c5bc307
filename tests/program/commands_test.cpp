// Hints under the real pointer, the About panel and the access keys under the real keyboard.

#include <algorithm>
#include <array>

#include "tests/program/program_test.h"

namespace kvez::test {
namespace {

class Commands : public ProgramTest {
 protected:
  static std::wstring Status(const Program& program) { return StatusText(program.StatusBar(), 2); }
  static bool WaitStatus(const Program& program, const std::wstring& text) {
    return WaitUntil([&] { return Status(program) == text; });
  }
  /// A place of the window without a control that gives hints.
  static POINT Aside(const Program& program) { return CentreOf(program.Control(kLblMPSCN)); }
  static void Alt(WORD key) { PressKey(key, false, false, true); }

  static void ExpectHint(const Program& program, int button, const std::wstring& hint) {
    MovePointer(CentreOf(program.Control(button)));
    EXPECT_TRUE(WaitStatus(program, hint)) << "wrong hint of control " << button;
    MovePointer(Aside(program));
    EXPECT_TRUE(WaitStatus(program, L"")) << "hint of control " << button << " stays";
  }
};

TEST_F(Commands, EveryButtonGivesItsHintWhileThePointerIsOverIt) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  SetForegroundWindow(program.MainWindow());
  // A movement over a window in the background gives no hint, and another one does not come.
  ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == program.MainWindow(); }));
  // Where a test before this one has left the pointer the window may have come up under it: that is no entering.
  MovePointer(Aside(program));
  MovePointer(CentreOf(program.Control(kTlHAktualizace)));
  // The files that are given to users carry the day of the list that they hold.
  ASSERT_TRUE(WaitStatus(program, LastUpdateOf(DayOfTheList())));
  MovePointer(Aside(program));
  ASSERT_TRUE(WaitStatus(program, L""));
  ExpectHint(program, kTlHVyhledej, L"Najde v databázi požadované informace a zobrazí seznam.");
  ExpectHint(program, kTlHNapoveda, L"Nápověda na ovládání programu.");
  ExpectHint(program, kTlHOaplikaci, L"Kontakt na autora.");
  ExpectHint(program, kTlHNastaveni, L"Uživatelské nastavení.");
  ExpectHint(program, kTlHKonec, L"Ukončení programu");

  program.Click(kTlHOaplikaci);
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kFraMPSCO); }));
  MovePointer(CentreOf(program.Control(kText1)));
  ExpectHint(program, kTlHMeil, L"Vaše přání nebo připomínky.");
  ExpectHint(program, kTlHWWW, L"Stránky programu.");
  ExpectHint(program, kTlHPCInfo, L"Systémové informace Vašeho počítače.");
  ExpectHint(program, kTlHStorno, L"Návrat na vyhledávání.");
}

TEST_F(Commands, ADisabledButtonGivesNoHint) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Click(kTlHOaplikaci);
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kFraMPSCO); }));
  MovePointer(CentreOf(program.Control(kTlHStorno)));
  ASSERT_TRUE(WaitStatus(program, L"Návrat na vyhledávání."));
  MovePointer(CentreOf(program.Control(kTlHNastaveni)));
  EXPECT_TRUE(WaitStatus(program, L""));
}

TEST_F(Commands, ObcePscSaysWhichCodeItWouldList) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  TypeText(L"klentnice");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) == 1; }));
  RECT list{};
  GetWindowRect(program.Control(kLstMPSC + 1), &list);
  ClickAt({list.left + 20, list.top + 8});
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kTlHObcePSC); }));
  ExpectHint(program, kTlHObcePSC, L"Vytvoří seznam obcí pro PSČ \"692 01  Mikulov na Moravě\".");
}

TEST_F(Commands, AboutShowsTheVersionOfTheFile) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Click(kTlHOaplikaci);
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kFraMPSCO); }));
  EXPECT_EQ(program.Text(kLabel1), L"Název: Kvez");
  EXPECT_EQ(program.Text(kLabel1 + 1),
            L"Verze: "
            L"" KVEZ_VERSION);
  EXPECT_EQ(program.Text(kLabel1 + 2), L"VDKVEZ");
  EXPECT_FALSE(program.IsEnabled(kTlHAktualizace));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !program.IsShown(kFraMPSCO); }));
  EXPECT_TRUE(program.IsEnabled(kTlHAktualizace));
  EXPECT_TRUE(program.IsShown(kTlHVyhledej));
}

TEST_F(Commands, ControlKeysChooseTheMode) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  PressKey('P', true);
  EXPECT_TRUE(WaitUntil([&] { return program.IsChecked(kOptMPSC); }));
  PressKey('O', true);
  EXPECT_TRUE(WaitUntil([&] { return program.IsChecked(kOptMPSC + 2); }));
  PressKey('M', true);
  EXPECT_TRUE(WaitUntil([&] { return program.IsChecked(kOptMPSC + 1); }));
  PressKey('P', true, true);
  // The next key is handled after the ones before it.
  PressKey('X');
  EXPECT_TRUE(WaitUntil([&] { return program.Text(kTxtMPSC) == L"x"; }));
  EXPECT_TRUE(program.IsChecked(kOptMPSC + 1));
}

TEST_F(Commands, AccessKeysPressTheirButtons) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  TypeText(L"klentnice");
  Alt('V');
  ASSERT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) == 1; }));
  // The first row is selected by an arrow key; then its code can be listed.
  PostMessageW(program.Control(kLstMPSC + 1), WM_KEYDOWN, VK_DOWN, 1);
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kTlHObcePSC); }));
  Alt('B');
  const auto municipalities = ReadTable("obce.csv");
  const auto ofTheCode = std::count_if(municipalities.begin(), municipalities.end(),
                                       [](const TableRow& row) { return row[0] == L"69201"; });
  ASSERT_GT(ofTheCode, 1);
  EXPECT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) == ofTheCode; }));
  EXPECT_FALSE(program.IsShown(kTlHObcePSC));

  Alt('O');
  EXPECT_TRUE(WaitUntil([&] { return program.IsShown(kFraMPSCO); }));
  Alt('S');
  EXPECT_TRUE(WaitUntil([&] { return !program.IsShown(kFraMPSCO); }));
  Alt('S');
  HWND settings = nullptr;
  EXPECT_TRUE(WaitUntil([&] {
    settings = FindWindowW(L"KvezNastaveni", nullptr);
    return settings != nullptr && GetForegroundWindow() == settings;
  }));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindow(settings) && GetForegroundWindow() == program.MainWindow(); }));
  Alt('N');
  const Dialog help = program.WaitDialog();
  EXPECT_EQ(help.text, L"Přejete si z internetu stáhnout nápovědu ?");
  EXPECT_TRUE(program.Answer(help, IDNO));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == program.MainWindow(); }));
  // It is in front before the command has ended, which takes no other; one that answers has ended it.
  program.Text(kLblPSCV);
  Alt('K');
  const Dialog exit = program.WaitDialog();
  EXPECT_EQ(exit.text, L"Přejete si program ukončit ?");
  EXPECT_TRUE(program.Answer(exit, IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

}  // namespace
}  // namespace kvez::test
