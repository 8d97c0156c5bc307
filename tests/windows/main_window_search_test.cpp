// The search panel: modes, typing, searches.

#include "tests/windows/main_window_test.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using Strings = std::vector<std::wstring>;

class SearchPanel : public MainWindowTest {};

TEST_F(SearchPanel, PostalModeLimitsBothFieldsToSixCharacters) {
  frmhlavni& window = Open();
  window.optMPSC[0].SetValue(true);
  for (const forms::TextBox& box : window.txtMPSC) EXPECT_EQ(box.MaxLength(), 6);
  window.optMPSC[1].SetValue(true);
  for (const forms::TextBox& box : window.txtMPSC) EXPECT_EQ(box.MaxLength(), 0);
}

TEST_F(SearchPanel, ChangingTheModeEmptiesTheFieldsAndTheCaptions) {
  frmhlavni& window = Open();
  window.txtMPSC[0].SetText(L"a");
  window.txtMPSC[1].SetText(L"b");
  window.lblNPSCHT[0].SetCaption(L"c");
  window.lblNPSCHT[1].SetCaption(L"d");
  window.optMPSC[2].SetValue(true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"");
  EXPECT_EQ(window.txtMPSC[1].Text(), L"");
  EXPECT_EQ(window.lblNPSCHT[0].Caption(), L"");
  EXPECT_EQ(window.lblNPSCHT[1].Caption(), L"");
}

TEST_F(SearchPanel, DistrictModeShowsTheDistrictsAndTakesNoText) {
  frmhlavni& window = Open();
  window.optMPSC[2].SetValue(true);
  EXPECT_FALSE(window.txtMPSC[0].Enabled());
  EXPECT_TRUE(window.lstMPSC[2].Visible());
  EXPECT_FALSE(window.lstMPSC[0].Visible());
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"V seznamu jsou 2 okresy.");
  window.optMPSC[1].SetValue(true);
  EXPECT_TRUE(window.txtMPSC[0].Enabled());
  EXPECT_FALSE(window.lstMPSC[2].Visible());
  EXPECT_TRUE(window.lstMPSC[0].Visible());
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"V seznamu je 6 obcí.");
  EXPECT_EQ(window.FocusedControl(), &window.txtMPSC[0]);
}

TEST_F(SearchPanel, PostalModeSwallowsThePeriodTheCommaAndLetters) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[0].SetValue(true);
  TypeText(L"6.9,2a 01");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"692 01");
}

TEST_F(SearchPanel, PastedTextThatIsNoPostalCodeIsEmptiedAtOnce) {
  frmhlavni& window = Open();
  window.optMPSC[0].SetValue(true);
  window.txtMPSC[0].SetText(L"69a");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"");
  window.txtMPSC[0].SetText(L"692-01");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"692-01");
}

TEST_F(SearchPanel, EveryBeginningOfATypedPostalCodeSurvives) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[0].SetValue(true);
  const std::wstring code = L"692 01";
  for (std::size_t length = 1; length <= code.size(); ++length) {
    TypeText(code.substr(length - 1, 1));
    EXPECT_EQ(window.txtMPSC[0].Text(), code.substr(0, length));
  }
}

TEST_F(SearchPanel, ClipboardKeysWorkInPostalMode) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[0].SetValue(true);
  TypeText(L"69201");
  window.txtMPSC[0].SelectAll();
  PressKey('C', true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"69201");
  window.txtMPSC[1].SetFocus();
  PressKey('V', true);
  EXPECT_EQ(window.txtMPSC[1].Text(), L"69201");
  window.txtMPSC[0].SetFocus();
  window.txtMPSC[0].SelectAll();
  PressKey('X', true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"");
  PressKey('Z', true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"69201");
}

TEST_F(SearchPanel, NameModeTakesEverything) {
  frmhlavni& window = OpenInFront();
  TypeText(L"Č.,*?ř1");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"Č.,*?ř1");
}

TEST_F(SearchPanel, EnterSearchesAndEmptiesTheLightBlueField) {
  frmhlavni& window = OpenInFront();
  window.txtMPSC[1].SetText(L"x");
  TypeText(L"  Praha  ");
  PressKey(VK_RETURN);
  EXPECT_EQ(Rows(window.lstMPSC[1]), Strings{L"Praha 1"});
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Název obce \"Praha\".");
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"Zadání vyhovuje 1 obec.");
  EXPECT_EQ(window.txtMPSC[1].Text(), L"");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"  Praha  ");
}

TEST_F(SearchPanel, HitOfTheLightBlueFieldSaysThatAModeIsNeededNext) {
  frmhlavni& window = OpenInFront();
  window.txtMPSC[1].SetFocus();
  TypeText(L"mik");
  PressKey(VK_RETURN);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 2);
  EXPECT_EQ(test::StatusBarView(window.Handle()).Text(), L"K dalšímu hledání zvolte PSČ, Obec nebo Okres.");
  EXPECT_EQ(window.txtMPSC[1].ToolTipText(), L"Nejdříve zvolte PSČ, Obec nebo Okres.");
  TypeText(L"val");
  PressKey(VK_RETURN);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 2);
  EXPECT_EQ(test::StatusBarView(window.Handle()).Text(), L"Nejdříve zvolte PSČ, Obec nebo Okres.");
}

TEST_F(SearchPanel, PostalSearchTakesTheNumberOfTheText) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[0].SetValue(true);
  TypeText(L"692 01");
  PressKey(VK_RETURN);
  EXPECT_EQ(Rows(window.lstMPSC[1]), (Strings{L"Bavory", L"Mikulov"}));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Hledané obce s PSČ \"692 01\".");
}

TEST_F(SearchPanel, SearchWithoutAResultGoesBackToTheText) {
  frmhlavni& window = Open();
  window.txtMPSC[0].SetText(L"Nikde");
  window.lstMPSC[0].SetFocus();
  window.VyhledejSeznam();
  EXPECT_EQ(window.lstMPSC[1].ListCount(), 0);
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"Seznam je prázdný.");
  EXPECT_EQ(window.FocusedControl(), &window.txtMPSC[0]);
}

TEST_F(SearchPanel, DistrictSearchListsTheSelectedDistrict) {
  frmhlavni& window = Open();
  window.optMPSC[2].SetValue(true);
  window.lstMPSC[2].SetListIndex(0);
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"1. záznam z 2");
  window.VyhledejSeznam();
  EXPECT_EQ(Rows(window.lstMPSC[1]), (Strings{L"Bavory", L"Lednice", L"Mikulov", L"Valtice"}));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Obce v okrese \"Břeclav\".");
  EXPECT_EQ(window.lblNPSCHT[0].Caption(), L"všechny obce okresu");
  EXPECT_EQ(window.lblNPSCHT[1].Caption(), L"Břeclav");
}

TEST_F(SearchPanel, DisabledSearchButtonSearchesNothing) {
  frmhlavni& window = OpenInFront();
  window.tlHVyhledej.SetEnabled(false);
  TypeText(L"lednice");
  PressKey(VK_RETURN);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"lednice");
  EXPECT_EQ(window.lstMPSC[1].ListCount(), 0);
}

TEST_F(SearchPanel, WildcardsOnlyAreRefusedWithTheMessage) {
  frmhlavni& window = Open();
  window.txtMPSC[0].SetText(L"*");
  window.VyhledejSeznam();
  ASSERT_EQ(m_machine.messages.messages.size(), 1U);
  EXPECT_EQ(m_machine.messages.messages[0].text, L"Zadejte minimálně 1 znak pro vyhledání !");
}

TEST_F(SearchPanel, ShiftMovesBetweenTheFieldsInTypingModes) {
  frmhlavni& window = OpenInFront();
  PressKey(VK_SHIFT);
  EXPECT_EQ(window.FocusedControl(), &window.txtMPSC[1]);
  PressKey(VK_SHIFT);
  EXPECT_EQ(window.FocusedControl(), &window.txtMPSC[0]);
}

TEST_F(SearchPanel, ShiftStaysInDistrictMode) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[2].SetValue(true);
  window.txtMPSC[1].SetFocus();
  PressKey(VK_SHIFT);
  EXPECT_EQ(window.FocusedControl(), &window.txtMPSC[1]);
}

TEST_F(SearchPanel, LightBlueFieldHidesTheSearchButtonWhileItHasTheFocus) {
  frmhlavni& window = Open();
  window.txtMPSC[1].SetFocus();
  EXPECT_FALSE(window.tlHVyhledej.Visible());
  window.txtMPSC[0].SetFocus();
  EXPECT_TRUE(window.tlHVyhledej.Visible());
}

TEST_F(SearchPanel, LightBlueFieldSelectsTheFirstThatBeginsSoOnEnter) {
  frmhlavni& window = OpenInFront();
  window.txtMPSC[1].SetFocus();
  TypeText(L"mi");
  EXPECT_FALSE(window.tmrMPSC.Enabled());
  PressKey(VK_RETURN);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 2);
  EXPECT_EQ(window.lblNPSCHT[0].Caption(), L"Mikulov");
}

TEST_F(SearchPanel, LightBlueFieldWithoutAMatchSelectsNothing) {
  frmhlavni& window = OpenInFront();
  window.txtMPSC[1].SetFocus();
  TypeText(L"xyz");
  PressKey(VK_RETURN);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), -1);
}

TEST_F(SearchPanel, LightBlueFieldSearchesPostalCodesByTheirBeginning) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[0].SetValue(true);
  window.txtMPSC[1].SetFocus();
  TypeText(L"691");
  PressKey(VK_RETURN);
  EXPECT_EQ(Rows(window.lstMPSC[1]), (Strings{L"Lednice", L"Valtice"}));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Obce s PSČ začínající na  \"691\".");
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"Zadání vyhovují 2 obce.");
}

TEST_F(SearchPanel, LightBlueFieldIgnoresTheBlankOfAPostalCode) {
  frmhlavni& window = Open();
  window.optMPSC[0].SetValue(true);
  window.txtMPSC[1].SetText(L"692 01");
  window.VyhledejPSC();
  EXPECT_EQ(Rows(window.lstMPSC[1]), (Strings{L"Bavory", L"Mikulov"}));
}

TEST_F(SearchPanel, LightBlueFieldSelectsDistricts) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[2].SetValue(true);
  window.txtMPSC[1].SetFocus();
  TypeText(L"HLAV");
  PressKey(VK_RETURN);
  EXPECT_EQ(window.lstMPSC[2].ListIndex(), 1);
}

TEST_F(SearchPanel, SearchWhileTypingWaitsForTheLastKey) {
  SetSetting(2, L"1");
  frmhlavni& window = Open();
  window.txtMPSC[1].SetFocus();
  int selections = 0;
  const auto original = window.lstMPSC[0].Click;
  window.lstMPSC[0].Click = [&] {
    ++selections;
    original();
  };
  // As messages: a real timer runs, and nobody knows how long real keys are on their way.
  for (const wchar_t character : std::wstring(L"pra")) {
    SendMessageW(window.txtMPSC[1].Handle(), WM_KEYDOWN, 0xE8, 0);
    EXPECT_FALSE(window.tmrMPSC.Enabled());
    SendMessageW(window.txtMPSC[1].Handle(), WM_CHAR, character, 0);
    SendMessageW(window.txtMPSC[1].Handle(), WM_KEYUP, 0xE8, 0);
    EXPECT_TRUE(window.tmrMPSC.Enabled());
  }
  EXPECT_EQ(selections, 0);
  window.tmrMPSC.Elapsed();
  EXPECT_EQ(selections, 1);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 3);
  EXPECT_FALSE(window.tmrMPSC.Enabled());
}

TEST_F(SearchPanel, SearchWhileTypingLeavesEnterToTheTimer) {
  SetSetting(2, L"1");
  frmhlavni& window = Open();
  window.txtMPSC[1].SetText(L"pra");
  SendMessageW(window.txtMPSC[1].Handle(), WM_KEYDOWN, VK_RETURN, 0);
  SendMessageW(window.txtMPSC[1].Handle(), WM_KEYUP, VK_RETURN, 0);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), -1);
  EXPECT_TRUE(window.tmrMPSC.Enabled());
}

}  // namespace
}  // namespace kvez
