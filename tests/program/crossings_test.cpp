// Where two things that a person does meet: a key that is held and a window that opens, a focus that was moved and a
// click, what was copied and what is listed.

#include "tests/program/keyboard_path.h"

namespace kvez::test {
namespace {

class Crossings : public KeyboardPath {};

TEST_F(Crossings, EnterWithShiftSearchesWhereItWasPressedAndItsMessageComesOnce) {
  TypeText(L"*");
  ASSERT_TRUE(WaitText(kText, L"*"));
  ExpectOneRefusal([] {
    KeyDown(VK_SHIFT);
    HoldKey(VK_RETURN, 3);
    KeyUp(VK_SHIFT);
  });
  EXPECT_EQ(program->Text(kLightBlue), L"");
}

TEST_F(Crossings, AClickWhileShiftIsHeldIsTheLastWord) {
  KeyDown(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  // By messages: with the pointer's movement the display, which knows of no held key, would let go of Shift.
  POINT row = Row(kAll, 2);
  ScreenToClient(program->Control(kAll), &row);
  PostMessageW(program->Control(kAll), WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(row.x, row.y));
  PostMessageW(program->Control(kAll), WM_LBUTTONUP, MK_SHIFT, MAKELPARAM(row.x, row.y));
  ASSERT_TRUE(WaitFocus(kAll));
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) == 2; }));
  PressKey('L');  // the first that begins with it
  KeyUp(VK_SHIFT);
  ASSERT_TRUE(WaitUntil([&] { return program->ListText(kAll, program->ListIndex(kAll)).starts_with(L"L"); }));
  EXPECT_EQ(program->FocusedId(), kAll);
}

TEST_F(Crossings, ASearchTypedInOneGoFindsWhatWasTyped) {
  // Faster than the program: all of it waits when the first key is handled.
  TypeText(L"Lednice*");
  PressKey(VK_RETURN);
  TypeText(L"MIKULOV");
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return program->Text(kLblMPSCN) == L"Název obce \"MIKULOV\"."; }));
  EXPECT_EQ(program->Text(kText), L"MIKULOV");
}

TEST_F(Crossings, AboutIsStillOpenAndHasTheKeyboardAfterMinimising) {
  Alt('O');
  ASSERT_TRUE(WaitFocus(kText1));
  ASSERT_TRUE(TabTo(kTlHWWW));
  ChooseFromSystemMenu(L"Minimalizuje okno na hlavní panel.");
  ASSERT_TRUE(WaitUntil([&] { return IsIconic(program->MainWindow()) != FALSE; }));
  PostMessageW(program->MainWindow(), WM_SYSCOMMAND, SC_RESTORE, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsIconic(program->MainWindow()); }));
  EXPECT_TRUE(WaitFocus(kTlHWWW));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !program->IsShown(kFraMPSCO); }));
  EXPECT_TRUE(WaitFocus(kText));
}

TEST_F(Crossings, EnterHeldInAListOnlyLeadsBackToTheField) {
  SearchFor(L"lednice");
  const std::wstring heading = program->Text(kLblMPSCN);
  TypeText(L"*");
  ASSERT_TRUE(WaitText(kText, L"*"));
  ASSERT_TRUE(TabTo(kResult));
  HoldKey(VK_RETURN, 5);
  ASSERT_TRUE(WaitFocus(kText));
  TypeText(L"x");
  EXPECT_TRUE(WaitText(kText, L"x"));
  EXPECT_EQ(program->Text(kLblMPSCN), heading);
  EXPECT_FALSE(program->OpenDialog().has_value());
}

TEST_F(Crossings, CopyingFromOneListLeavesTheOtherOnesPostalCodeAlone) {
  // A row of each list is selected, the result's last.
  SearchFor(L"klentnice");
  ASSERT_TRUE(TabTo(kAll));
  PressKey(VK_HOME);
  PressKey(VK_DOWN);
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) == 1; }));
  ASSERT_TRUE(SelectFirstResult());
  ASSERT_EQ(program->ListIndex(kAll), 1);
  ASSERT_TRUE(TabTo(kAll));
  PressKey('C', true);
  ASSERT_TRUE(WaitUntil([] { return ClipboardText().size() > 8 && !ClipboardText().starts_with(L"692 01"); }));
  Alt('B');
  EXPECT_TRUE(WaitUntil([&] { return program->Text(kLblMPSCN) == L"Hledané obce s PSČ \"692 01\"."; }));
}

TEST_F(Crossings, ACapitalInTheLightBlueFieldIsSearchedForByItself) {
  SaveSetting(L"nastavení2", L"1");
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  TypeText(L"Lednice");
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) >= 0; }));
  EXPECT_EQ(program->ListText(kAll, program->ListIndex(kAll)), L"Lednice");
  EXPECT_EQ(program->FocusedId(), kLightBlue);
}

TEST_F(Crossings, InDistrictModeAllShiftBelongsToTheLightBlueField) {
  PressKey('O', true);
  ASSERT_TRUE(WaitFocus(kDistricts));
  PressKey('O', true);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  TypeText(L"BR");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kDistricts) >= 0; }));
  EXPECT_TRUE(program->ListText(kDistricts, program->ListIndex(kDistricts)).starts_with(L"Br"));
  // The selection has given the other field back; Shift still stays here.
  PressKey(VK_SHIFT);
  TypeText(L"x");
  EXPECT_TRUE(WaitText(kLightBlue, L"x"));
}

TEST_F(Crossings, EnterHeldInTheMenuDoesNotAnswerItsQuestion) {
  SearchFor(L"lednice");
  ASSERT_TRUE(TabTo(kResult));
  PressKey(VK_DOWN);
  PressKey(VK_F10, false, true);
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; }));
  EXPECT_EQ(program->FocusedId(), kResult);
  PressKey(VK_DOWN);
  HoldKey(VK_RETURN, 5);
  const Dialog question = program->WaitDialog();
  ASSERT_EQ(question.text, L"Přejete si seznam vybraných obcí vytisknout ?");
  PressKey(VK_RIGHT);
  EXPECT_TRUE(WaitUntil(
      [&] { return IsWindow(question.window) && FocusIn(question.window) == GetDlgItem(question.window, IDNO); }));
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindow(question.window); }));
  EXPECT_TRUE(WaitFocus(kResult));
}

TEST_F(Crossings, BackFromTheLightBlueFieldTheSearchButtonIsThereAgain) {
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  ASSERT_TRUE(WaitUntil([&] { return !program->IsShown(kTlHVyhledej); }));
  ASSERT_TRUE(PressTab(true));
  EXPECT_EQ(program->FocusedId(), kTlHKonec);
  EXPECT_TRUE(program->IsShown(kTlHVyhledej));
}

TEST_F(Crossings, F1HeldAsksOnceForTheMissingHelp) {
  HoldKey(VK_F1, 5);
  const Dialog question = program->WaitDialog();
  EXPECT_EQ(question.text, L"Přejete si z internetu stáhnout nápovědu ?");
  EXPECT_TRUE(program->Answer(question, IDNO));
  ASSERT_TRUE(WaitFocus(kText));
  TypeText(L"x");
  EXPECT_TRUE(WaitText(kText, L"x"));
  EXPECT_FALSE(program->OpenDialog().has_value());
}

TEST_F(Crossings, TheWindowsMenuOverTheLightBlueFieldChangesNothing) {
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  TypeText(L"a");
  PressKey(VK_SPACE, false, false, true);
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; }));
  ASSERT_TRUE(LeaveMenus());
  TypeText(L"b");
  EXPECT_TRUE(WaitText(kLightBlue, L"ab"));
  EXPECT_FALSE(program->IsShown(kTlHVyhledej));
}

}  // namespace
}  // namespace kvez::test
