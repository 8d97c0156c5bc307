// Where a window, a menu or another start of the program comes between two things that a person does.

#include "tests/program/download_base.h"
#include "tests/program/keyboard_path.h"
#include "tests/support/folder_dialog.h"
#include "tests/support/temporary_folder.h"

namespace kvez::test {
namespace {

class WindowCrossings : public KeyboardPath {
 protected:
  static HWND Settings() { return FindWindowW(L"KvezNastaveni", nullptr); }
  bool OpenSettings() {
    Alt('S');
    return WaitUntil([] { return Settings() != nullptr && GetForegroundWindow() == Settings(); });
  }
  bool WaitInFront() {
    return WaitUntil([&] { return GetForegroundWindow() == program->MainWindow(); });
  }
  std::wstring Status() const { return StatusText(program->StatusBar(), 2); }
  void StartAgain() {
    program.reset();
    program.emplace(Exe());
    ASSERT_TRUE(program->WaitReady());
    program->Focus(kText);
  }
  static void WaitAWhile(ULONGLONG milliseconds) {
    const ULONGLONG start = GetTickCount64();
    EXPECT_TRUE(WaitUntil([&] { return GetTickCount64() - start > milliseconds; }));
  }
  static void PutOnTheClipboard(const std::wstring& text) {
    ASSERT_TRUE(WaitUntil([] { return OpenClipboard(nullptr) != FALSE; }));
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    lstrcpyW(static_cast<wchar_t*>(GlobalLock(memory)), text.c_str());
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
  }
};

TEST_F(WindowCrossings, AFiveSecondTextThatAboutTookAwayTakesNothingAfterwards) {
  program.reset();
  ASSERT_TRUE(ReplaceDownloadBase(Exe(), L"http://127.0.0.1:9/"));
  StartAgain();
  Alt('A');
  const Dialog failure = program->WaitDialog(60);
  ASSERT_EQ(failure.text, L"Aktualizace databáze nebyla úspěšná.");
  ASSERT_TRUE(program->Answer(failure, IDOK));
  ASSERT_TRUE(WaitUntil([&] { return Status() == L"Byla zachována původní databáze."; }));
  const ULONGLONG start = GetTickCount64();
  Alt('O');
  ASSERT_TRUE(WaitFocus(kText1));
  PressKey(VK_ESCAPE);
  ASSERT_TRUE(WaitUntil([&] { return !program->IsShown(kFraMPSCO); }));
  EXPECT_TRUE(WaitUntil([&] { return Status().empty(); }));
  PressKey('M', true);
  PressKey('P', true);
  ASSERT_TRUE(WaitUntil([&] { return Status() == L"Vyhledá obce se společným PSČ."; }));
  EXPECT_LT(GetTickCount64() - start, 4500U) << "too late to say anything";
  WaitAWhile(6000);
  EXPECT_EQ(Status(), L"Vyhledá obce se společným PSČ.");
}

TEST_F(WindowCrossings, ADeferredSearchOfAMinimisedWindowIsThereWhenItComesBack) {
  SaveSetting(L"nastavení2", L"1");
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  TypeText(L"lednice");
  ASSERT_TRUE(WaitText(kLightBlue, L"lednice"));
  ShowWindow(program->MainWindow(), SW_MINIMIZE);
  ASSERT_TRUE(WaitUntil([&] { return IsIconic(program->MainWindow()) != FALSE; }));
  ASSERT_EQ(program->ListIndex(kAll), -1) << "it was searched for before";
  EXPECT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) >= 0; }));
  PostMessageW(program->MainWindow(), WM_SYSCOMMAND, SC_RESTORE, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsIconic(program->MainWindow()); }));
  EXPECT_TRUE(WaitFocus(kLightBlue));
  EXPECT_EQ(program->ListText(kAll, program->ListIndex(kAll)), L"Lednice");
  TypeText(L"x");
  EXPECT_EQ(program->FocusedId(), kLightBlue);
}

TEST_F(WindowCrossings, AnExportIntoAFolderThatVanishesLeavesAProgramThatWorks) {
  const TemporaryFolder around;
  const auto folder = around.Path() / L"zmizí";
  std::filesystem::create_directory(folder);
  SearchFor(L"lednice");
  ASSERT_TRUE(ChooseFromListMenu(*program, MenuCommand::Export));
  ASSERT_TRUE(program->Answer(program->WaitDialog(), IDYES));
  const HWND dialog = WaitFolderDialog(program->ProcessId());
  ASSERT_NE(dialog, nullptr);
  ASSERT_TRUE(SelectFolder(dialog, folder.wstring()));
  std::filesystem::remove(folder);
  ASSERT_TRUE(CloseFolderDialog(dialog, IDOK));
  const Dialog missing = program->WaitDialog();
  EXPECT_EQ(missing.text, L"Vložte prosím disketu.");
  ASSERT_TRUE(program->Answer(missing, IDOK));
  const HWND again = WaitFolderDialog(program->ProcessId());
  ASSERT_NE(again, nullptr);
  ASSERT_TRUE(CloseFolderDialog(again, IDCANCEL));
  const Dialog done = program->WaitDialog();
  EXPECT_EQ(done.text, L"Export do souboru \"vdkvez.txt\" je dokončen.");
  ASSERT_TRUE(program->Answer(done, IDOK));
  EXPECT_FALSE(std::filesystem::exists(folder));
  ASSERT_TRUE(WaitInFront());
  program->Focus(kText);
  SearchFor(L"klentnice");
  EXPECT_EQ(program->ListCount(kResult), 1);
}

TEST_F(WindowCrossings, TheSecondStartBringsTheSettingsBackWithTheMinimisedProgram) {
  ASSERT_TRUE(OpenSettings());
  ShowWindow(program->MainWindow(), SW_MINIMIZE);
  ASSERT_TRUE(WaitUntil([&] { return IsIconic(program->MainWindow()) != FALSE; }));
  Program second(Exe());
  EXPECT_TRUE(second.Answer(second.WaitDialog(), IDOK));
  EXPECT_EQ(second.WaitForEnd(), DWORD{0});
  EXPECT_TRUE(WaitUntil([&] { return !IsIconic(program->MainWindow()) && IsWindowVisible(Settings()); }));
  ASSERT_TRUE(WaitUntil([] { return GetForegroundWindow() == Settings(); }));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([] { return Settings() == nullptr; }));
  EXPECT_TRUE(WaitInFront());
  EXPECT_FALSE(program->OpenDialog().has_value());
}

TEST_F(WindowCrossings, AltF4ClosesTheSettingsAndGivesTheFocusBack) {
  SearchFor(L"lednice");
  ASSERT_TRUE(TabTo(kResult));
  ASSERT_TRUE(OpenSettings());
  PressKey(VK_F4, false, false, true);
  ASSERT_TRUE(WaitUntil([] { return Settings() == nullptr; }));
  ASSERT_TRUE(WaitInFront());
  // The access key has taken it there.
  EXPECT_TRUE(WaitFocus(kTlHNastaveni));
  EXPECT_FALSE(program->OpenDialog().has_value());
  TypeText(L"x");
  EXPECT_EQ(program->Text(kText), L"lednice");
}

TEST_F(WindowCrossings, PastingAfterTheCommonCodeStaysATextUntilAModeIsChosen) {
  SearchFor(L"klentnice");
  ASSERT_TRUE(SelectFirstResult());
  Alt('B');
  ASSERT_TRUE(WaitUntil([&] { return program->Text(kLblMPSCN) == L"Hledané obce s PSČ \"692 01\"."; }));
  ASSERT_TRUE(WaitFocus(kResult));
  const int rows = program->ListCount(kResult);
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitFocus(kText));
  const std::wstring pasted = L"Praha\u00A0*";
  PutOnTheClipboard(pasted);
  PressKey('A', true);
  PressKey('V', true);
  ASSERT_TRUE(WaitText(kText, pasted));
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return Status() == L"Nejdříve zvolte PSČ, Obec nebo Okres."; }));
  EXPECT_EQ(program->ListCount(kResult), rows);
  EXPECT_EQ(program->Text(kLblMPSCN), L"Hledané obce s PSČ \"692 01\".");
  // The three modes, each with what stands on the clipboard for it.
  PressKey('P', true);
  PutOnTheClipboard(L"691-44");
  PressKey('A', true);
  PressKey('V', true);
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return program->Text(kLblMPSCN) == L"Hledané obce s PSČ \"691 44\"."; }));
  PressKey('M', true);
  PutOnTheClipboard(L"\tLednice\r\n");
  PressKey('V', true);
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return program->Text(kLblMPSCN) == L"Název obce \"Lednice\"."; }));
  PressKey('O', true);
  PressKey('O', true);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  PutOnTheClipboard(L"\u00A0Břeclav\t");
  PressKey('A', true);
  PressKey('V', true);
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return program->ListText(kDistricts, program->ListIndex(kDistricts)) == L"Břeclav"; }));
}

TEST_F(WindowCrossings, ShiftInsertPastesAPostalCodeWhereShiftWentDown) {
  PressKey('P', true);
  PutOnTheClipboard(L"692\u00A001");
  for (const int field : {kText, kLightBlue}) {
    if (field == kLightBlue) {
      PressKey(VK_SHIFT);
      ASSERT_TRUE(WaitFocus(kLightBlue));
    }
    PressKey(VK_INSERT, false, true);
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitUntil([&] {
      return program->Text(kLblMPSCN) ==
             (field == kText ? L"Hledané obce s PSČ \"692 01\"." : L"Obce s PSČ začínající na  \"69201\".");
    })) << field;
    EXPECT_EQ(program->FocusedId(), field);
  }
}

TEST_F(WindowCrossings, TheEndOfALongListIsHoveredRowByRow) {
  SaveSetting(L"nastavení0", L"1");
  PressKey('A', true);
  TypeText(L"*a*");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program->ListCount(kResult) > 5000; }));
  const int rows = program->ListCount(kResult);
  ASSERT_TRUE(TabTo(kResult));
  // Where nothing is selected yet, some systems select the first row whatever the key is.
  PressKey(VK_DOWN);
  PressKey(VK_END);
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kResult) == rows - 1; }));
  const auto top = static_cast<int>(SendMessageW(program->Control(kResult), LB_GETTOPINDEX, 0, 0));
  ASSERT_GT(top, 5000);
  HoverRow(kResult, 4);
  EXPECT_TRUE(WaitUntil([&] { return program->ListIndex(kResult) == top + 4; }));
  EXPECT_EQ(SendMessageW(program->Control(kResult), LB_GETTOPINDEX, 0, 0), top);
  PressKey(VK_HOME);
  EXPECT_TRUE(WaitUntil([&] { return program->ListIndex(kResult) == 0; }));
  // The pointer rests on another row now, which asks for nothing.
  EXPECT_EQ(SendMessageW(program->Control(kResult), LB_GETTOPINDEX, 0, 0), 0);
  MovePointer({Row(kResult, 4).x + 3, Row(kResult, 4).y});
  EXPECT_TRUE(WaitUntil([&] { return program->ListIndex(kResult) == 4; }));
}

TEST_F(WindowCrossings, F1InAboutAsksAndTheAnswerLeavesAboutAsItWas) {
  Alt('O');
  ASSERT_TRUE(WaitFocus(kText1));
  ASSERT_TRUE(TabTo(kTlHMeil));
  PressKey(VK_F1);
  const Dialog question = program->WaitDialog();
  ASSERT_EQ(question.text, L"Přejete si z internetu stáhnout nápovědu ?");
  // Escape of the question is none of the panel's.
  PressKey(VK_RIGHT);
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(question.window); }));
  EXPECT_TRUE(WaitFocus(kTlHMeil));
  EXPECT_TRUE(program->IsShown(kFraMPSCO));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !program->IsShown(kFraMPSCO); }));
}

}  // namespace
}  // namespace kvez::test
