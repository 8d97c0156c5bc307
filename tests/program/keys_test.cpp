// The keyboard's ways through the real program: what a person types, holds and lets go of between two clicks.

#include <windows.h>
// Stays below windows.h.
#include <oleacc.h>

#include <algorithm>
#include <set>
#include <utility>

#include "tests/program/keyboard_path.h"

namespace kvez::test {
namespace {

class Keys : public KeyboardPath {
 protected:
  /// What a screen reader has in its hands.
  IAccessible* Accessible(int id) const {
    void* object = nullptr;
    EXPECT_EQ(AccessibleObjectFromWindow(program->Control(id), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                         &object),
              S_OK);
    return static_cast<IAccessible*>(object);
  }
  static VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
  }
  LONG State(int id) const {
    IAccessible* const accessible = Accessible(id);
    VARIANT state{};
    if (accessible != nullptr) accessible->get_accState(Self(), &state);
    if (accessible != nullptr) accessible->Release();
    return state.lVal;
  }
};

const std::wstring kExitQuestion = L"Přejete si program ukončit ?";

TEST_F(Keys, ObcePscHandsTheFocusToTheListThatItHasFilled) {
  SearchFor(L"klentnice");
  ASSERT_TRUE(SelectFirstResult());
  for (const bool byKeyboard : {true, false}) {
    if (byKeyboard) {
      Alt('B');
    } else {
      program->Click(kTlHObcePSC);
    }
    ASSERT_TRUE(WaitUntil([&] { return !program->IsShown(kTlHObcePSC); }));
    EXPECT_TRUE(WaitFocus(kResult));
    // It has the focus before it is filled.
    EXPECT_TRUE(WaitUntil([&] { return program->ListCount(kResult) > 1; }));
    // Where Enter starts nothing: it leads back to the search.
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitFocus(kText));
    PressKey('M', true);
    SearchFor(L"klentnice");
    ASSERT_TRUE(SelectFirstResult());
  }
}

TEST_F(Keys, SelectingWithTheFocusOnTheSearchButtonHandsItToTheList) {
  SaveSetting(L"nastavení0", L"1");
  SearchFor(L"lednice");
  ASSERT_TRUE(TabTo(kTlHVyhledej));
  HoverRow(kResult, 0);
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kResult) == 0; }));
  EXPECT_TRUE(WaitFocus(kResult));
}

TEST_F(Keys, AboutKeepsTheKeyboardToItself) {
  SearchFor(L"klentnice");
  ASSERT_TRUE(SelectFirstResult());
  ASSERT_TRUE(WaitUntil([&] { return program->IsShown(kTlHObcePSC); }));
  const auto before = program->ListTexts(kResult);
  Alt('O');
  ASSERT_TRUE(WaitFocus(kText1));
  const std::set<int> panel = {kText1, kTlHMeil, kTlHWWW, kTlHPCInfo, kTlHStorno};
  for (const bool backwards : {false, true}) {
    const std::vector<int> order = TabOrder(kText1, backwards);
    EXPECT_EQ(std::set<int>(order.begin(), order.end()), panel) << (backwards ? "backwards" : "forwards");
  }
  for (const WORD key : {WORD{'B'}, WORD{'V'}, WORD{'A'}, WORD{'K'}, WORD{'N'}}) Alt(key);
  EXPECT_FALSE(program->OpenDialog().has_value());
  program->Click(kTlHObcePSC);
  Alt('S');
  ASSERT_TRUE(WaitUntil([&] { return !program->IsShown(kFraMPSCO); }));
  EXPECT_EQ(program->ListTexts(kResult), before);
  EXPECT_FALSE(program->OpenDialog().has_value());
}

TEST_F(Keys, AboutIsAllThatAScreenReaderReaches) {
  CoInitialize(nullptr);
  EXPECT_EQ(State(kTlHKonec) & STATE_SYSTEM_UNAVAILABLE, 0);
  IAccessible* const exit = Accessible(kTlHKonec);
  ASSERT_NE(exit, nullptr);
  Alt('O');
  ASSERT_TRUE(WaitFocus(kText1));
  for (const int id : {int{kTlHKonec}, int{kTlHNapoveda}, kText, kLightBlue, kAll, kResult, int{kOptMPSC}}) {
    EXPECT_NE(State(id) & STATE_SYSTEM_UNAVAILABLE, 0) << id;
  }
  EXPECT_NE(exit->accDoDefaultAction(Self()), S_OK);
  SendMessageW(program->Control(kOptMPSC), BM_CLICK, 0, 0);
  EXPECT_TRUE(program->IsChecked(kOptMPSC + 1));
  EXPECT_EQ(State(kTlHStorno) & STATE_SYSTEM_UNAVAILABLE, 0);
  IAccessible* const back = Accessible(kTlHStorno);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->accDoDefaultAction(Self()), S_OK);
  EXPECT_TRUE(WaitUntil([&] { return !program->IsShown(kFraMPSCO); }));
  EXPECT_EQ(exit->accDoDefaultAction(Self()), S_OK);
  EXPECT_EQ(program->WaitDialog().text, kExitQuestion);
  back->Release();
  exit->Release();
  CoUninitialize();
}

TEST_F(Keys, AltSpaceLeavesNoButtonPressed) {
  CoInitialize(nullptr);
  ASSERT_TRUE(TabTo(kTlHKonec));
  PressKey(VK_SPACE, false, false, true);
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; }));
  ASSERT_TRUE(LeaveMenus());
  EXPECT_EQ(State(kTlHKonec) & (STATE_SYSTEM_PRESSED | STATE_SYSTEM_HOTTRACKED), 0);
  EXPECT_FALSE(program->OpenDialog().has_value());
  CoUninitialize();
}

TEST_F(Keys, ShiftHandsOverOnceHoweverLongItIsHeld) {
  program->Focus(kText);
  KeyDown(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  for (int i = 0; i < 5; ++i) KeyDown(VK_SHIFT);
  KeyUp(VK_SHIFT);
  TypeText(L"a");
  EXPECT_TRUE(WaitText(kLightBlue, L"a"));
  EXPECT_EQ(program->Text(kText), L"");
  PressKey(VK_SHIFT);
  EXPECT_TRUE(WaitFocus(kText));
}

TEST_F(Keys, WhatIsTypedWithShiftGoesWhereShiftWentDown) {
  program->Focus(kText);
  TypeText(L"Praha*");
  EXPECT_TRUE(WaitText(kText, L"Praha*"));
  EXPECT_EQ(program->Text(kLightBlue), L"");
  EXPECT_TRUE(WaitFocus(kText));
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  TypeText(L"MikUL");
  EXPECT_TRUE(WaitText(kLightBlue, L"MikUL"));
  EXPECT_EQ(program->Text(kText), L"Praha*");
  // Shift that is held for several letters, too.
  KeyDown(VK_SHIFT);
  PressKey('O');
  PressKey('V');
  KeyUp(VK_SHIFT);
  EXPECT_TRUE(WaitText(kLightBlue, L"MikULOV"));
  EXPECT_TRUE(WaitFocus(kLightBlue));
}

TEST_F(Keys, ShiftTabGoesBackThroughEveryControl) {
  program->Focus(kText);
  const std::vector<int> forwards = TabOrder(kText, false);
  EXPECT_GE(forwards.size(), 10U);
  std::vector<int> backwards = TabOrder(kText, true);
  std::reverse(backwards.begin(), backwards.end() - 1);
  EXPECT_EQ(backwards, forwards);
  // With Shift held all the way, too.
  KeyDown(VK_SHIFT);
  for (std::size_t i = 0; i < forwards.size(); ++i) PressKey(VK_TAB);
  KeyUp(VK_SHIFT);
  EXPECT_TRUE(WaitFocus(kText));
}

TEST_F(Keys, AModeKeyOfTheChosenModeGoesToTheField) {
  program->Focus(kAll);
  PressKey('M', true);  // the click into the list has left the mode
  ASSERT_TRUE(WaitFocus(kText));
  for (const auto& [key, field] : {std::pair{WORD{'M'}, kText}, {WORD{'P'}, kText}, {WORD{'O'}, kLightBlue}}) {
    PressKey(key, true);
    ASSERT_TRUE(TabTo(kTlHKonec));
    PressKey(key, true);
    EXPECT_TRUE(WaitFocus(field)) << static_cast<char>(key);
  }
}

TEST_F(Keys, AHeldAccessKeyActsOnce) {
  program->Focus(kText);
  TypeText(L"*");
  ASSERT_TRUE(WaitText(kText, L"*"));
  ExpectOneRefusal([] { HoldKey('V', 5, true); });
}

TEST_F(Keys, EnterHeldOnARefusedSearchGivesOneMessage) {
  program->Focus(kText);
  TypeText(L"*");
  ASSERT_TRUE(WaitText(kText, L"*"));
  ExpectOneRefusal([] { HoldKey(VK_RETURN, 5); });
}

TEST_F(Keys, EnterHeldOnKonecDoesNotAnswerItsQuestion) {
  program->Focus(kText);
  ASSERT_TRUE(TabTo(kTlHKonec));
  // In one go: the display's server, which knows of no held key, lets go of it when the question takes the keyboard.
  HoldKey(VK_RETURN, 5);
  const Dialog question = program->WaitDialog();
  ASSERT_EQ(question.text, kExitQuestion);
  // A key of the question's own comes after these.
  PressKey(VK_RIGHT);
  EXPECT_TRUE(WaitUntil(
      [&] { return IsWindow(question.window) && FocusIn(question.window) == GetDlgItem(question.window, IDNO); }));
  // And pressed anew it answers.
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return !program->OpenDialog().has_value(); }));
  EXPECT_TRUE(TabTo(kText));
  EXPECT_FALSE(program->HasEnded());
}

TEST_F(Keys, AfterASearchTypingReplacesTheText) {
  SearchFor(L"lednice");
  TypeText(L"mikulov");
  EXPECT_TRUE(WaitText(kText, L"mikulov"));
  PressKey('P', true);
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  TypeText(L"691");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program->Text(kLblMPSCN) == L"Obce s PSČ začínající na  \"691\"."; }));
  TypeText(L"602");
  EXPECT_TRUE(WaitText(kLightBlue, L"602"));
}

TEST_F(Keys, BulkWorkWithoutThePointer) {
  const std::pair<const wchar_t*, const wchar_t*> work[] = {{L"klentnice", L"692 01  Mikulov na Moravě"},
                                                            {L"valtice", L"691 42  Valtice"}};
  for (const auto& [name, address] : work) {
    PressKey('M', true);
    SearchFor(name);
    ASSERT_TRUE(TabTo(kResult));
    PressKey(VK_DOWN);
    PressKey('C', true);
    EXPECT_TRUE(WaitUntil([a = address] { return ClipboardText() == a; })) << "the address is not on the clipboard";
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitFocus(kText));
    TypeText(L"x");
    EXPECT_TRUE(WaitText(kText, L"x"));
  }
}

TEST_F(Keys, ControlCCopiesFromTheOtherLists) {
  program->Focus(kText);
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitFocus(kLightBlue));
  TypeText(L"klentnice");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) >= 0; }));
  ASSERT_TRUE(TabTo(kAll));
  PressKey('C', true);
  EXPECT_TRUE(WaitUntil([] { return ClipboardText() == L"692 01  Mikulov na Moravě"; }));
  PressKey('O', true);
  ASSERT_TRUE(WaitUntil([&] { return program->IsShown(kDistricts); }));
  EXPECT_TRUE(WaitFocus(kDistricts));
  PressKey(VK_DOWN);
  PressKey('C', true);
  EXPECT_TRUE(WaitUntil([&] { return ClipboardText() == program->ListText(kDistricts, 0); }));
}

TEST_F(Keys, LettersChooseInTheListsMenu) {
  SearchFor(L"lednice");
  const std::pair<WORD, const wchar_t*> rows[] = {{'T', L"Přejete si seznam vybraných obcí vytisknout ?"},
                                                  {'E', L"Přejete si seznam vybraných obcí exportovat do souboru ?"},
                                                  {'U', L"Přejete si seznam vybraných obcí vložit do schránky ?"},
                                                  {'P', L"Přejete si seznam vybraných obcí zaslat e-mailem ?"}};
  for (const auto& [key, question] : rows) {
    ASSERT_TRUE(OpenListMenu(*program));
    PressKey(key);
    const Dialog dialog = program->WaitDialog();
    EXPECT_EQ(dialog.text, question);
    EXPECT_TRUE(program->Answer(dialog, IDNO));
  }
}

TEST_F(Keys, ShiftWithAnEditingKeyEditsAndHandsNothingOver) {
  program->Focus(kText);
  const auto edit = [&](WORD key, const wchar_t* typed, const wchar_t* text) {
    PressKey(key, false, true);
    TypeText(typed);
    EXPECT_TRUE(WaitText(kText, text)) << "key " << key;
    EXPECT_EQ(program->FocusedId(), kText) << "key " << key;
  };
  TypeText(L"praha");
  edit(VK_LEFT, L"o", L"praho");
  PressKey(VK_HOME);
  edit(VK_RIGHT, L"b", L"braho");
  edit(VK_END, L"no", L"bno");
  edit(VK_HOME, L"brno", L"brno");
  PressKey(VK_HOME, false, true);
  edit(VK_DELETE, L"", L"");
  edit(VK_INSERT, L"", L"brno");
  EXPECT_EQ(program->Text(kLightBlue), L"");
}

TEST_F(Keys, ShiftWithF10AltOrControlHandsNothingOver) {
  program->Focus(kText);
  std::wstring text = L"brno";
  TypeText(text);
  PressKey(VK_F10, false, true);
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; })) << "no menu of the text box";
  PressKey(VK_ESCAPE);
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() == nullptr; }));
  EXPECT_TRUE(WaitFocus(kText));
  const std::vector<std::vector<WORD>> chords = {{VK_SHIFT, VK_CONTROL, 'P'}, {VK_CONTROL, VK_SHIFT, 'P'},
                                                 {VK_SHIFT, VK_CONTROL},      {VK_CONTROL, VK_SHIFT},
                                                 {VK_SHIFT, VK_MENU, VK_F24}, {VK_MENU, VK_SHIFT, VK_F24}};
  for (const auto& chord : chords) {
    for (const WORD key : chord) KeyDown(key);
    for (auto key = chord.rbegin(); key != chord.rend(); ++key) KeyUp(*key);
    TypeText(L"o");
    text += L"o";
    EXPECT_TRUE(WaitText(kText, text)) << "after " << chord[0] << " and " << chord[1];
    EXPECT_EQ(program->FocusedId(), kText);
  }
  EXPECT_TRUE(program->IsChecked(kOptMPSC + 1));
}

TEST_F(Keys, MinimisingAndRestoringGivesTheFocusBack) {
  SearchFor(L"lednice");
  ASSERT_TRUE(TabTo(kResult));
  ChooseFromSystemMenu(L"Minimalizuje okno na hlavní panel.");
  ASSERT_TRUE(WaitUntil([&] { return IsIconic(program->MainWindow()) != FALSE; }));
  PostMessageW(program->MainWindow(), WM_SYSCOMMAND, SC_RESTORE, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsIconic(program->MainWindow()); }));
  EXPECT_TRUE(WaitFocus(kResult));
}

}  // namespace
}  // namespace kvez::test
