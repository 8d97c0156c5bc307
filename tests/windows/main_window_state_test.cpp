// What the search panel offers after one step of the user's and before the next.

#include <gmock/gmock.h>

#include "forms/input_gate.h"
#include "tests/windows/main_window_test.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Strings = std::vector<std::wstring>;

class PanelState : public MainWindowTest {
 protected:
  static void ClickRow(const forms::ListBox& list, int row) {
    const auto height = static_cast<int>(SendMessageW(list.Handle(), LB_GETITEMHEIGHT, 0, 0));
    ClickAt(list, row * height + height / 2);
  }
  static void ClickOn(const forms::Control& control) {
    test::PointAt(test::CenterOf(control.Handle()));
    test::PressButton();
    test::ReleaseButton();
  }
  void Search(const std::wstring& text) {
    ClickOn(m_window->txtMPSC[0]);
    m_window->txtMPSC[0].SelectAll();
    TypeText(text);
    PressKey(VK_RETURN);
  }
  std::wstring Status() const { return test::StatusBarView(m_window->Handle()).Text(); }
  /// The pointer leaves the buttons, which would say what they do.
  static void PointAside() { test::PointAt(test::FarAway()); }

  /// Puts a text on the clipboard, as another program does.
  static void Copy(const std::wstring& text) {
    ASSERT_TRUE(test::PumpUntil([] { return OpenClipboard(nullptr) != FALSE; }));
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    lstrcpyW(static_cast<wchar_t*>(GlobalLock(memory)), text.c_str());
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
  }

  /// With a deferred search that comes only when it is hurried.
  frmhlavni& OpenSearchingWhileTyping() {
    SetSetting(2, L"1");
    frmhlavni& window = OpenInFront();
    window.tmrMPSC.SetInterval(600'000);
    return window;
  }
  /// The deferred search comes this soon, and is over when its timer is off.
  void HurryDeferredSearch() { m_window->tmrMPSC.SetInterval(1); }
  void WaitForDeferredSearch() {
    EXPECT_TRUE(test::PumpUntil([this] { return !m_window->tmrMPSC.Enabled(); }));
  }

 private:
  static void ClickAt(const forms::ListBox& list, int y) {
    test::PointAt(test::OnScreen(list.Handle(), 20, y));
    test::PressButton();
    test::ReleaseButton();
  }
};

TEST_F(PanelState, ANewSearchTakesTheOfferOfAnOldRowAway) {
  frmhlavni& window = OpenInFront();
  ClickOn(window.optMPSC[2]);
  ClickRow(window.lstMPSC[kListDistricts], 0);
  PressKey('V', false, false, true);
  ClickRow(window.lstMPSC[kListResult], 0);
  ASSERT_TRUE(window.tlHObcePSC.Visible());
  PressKey('O', false, false, true);
  PressKey(VK_ESCAPE);
  PressKey('V', false, false, true);
  ASSERT_EQ(window.lstMPSC[kListResult].ListCount(), 4);
  EXPECT_EQ(window.lstMPSC[kListResult].ListIndex(), -1);
  EXPECT_FALSE(window.tlHObcePSC.Visible()) << "of a row that is gone";
}

TEST_F(PanelState, ListingThePostalCodeLetsTheDistrictBeSearchedAgain) {
  frmhlavni& window = OpenInFront();
  ClickOn(window.optMPSC[2]);
  ClickRow(window.lstMPSC[kListDistricts], 0);
  PressKey('V', false, false, true);
  ClickRow(window.lstMPSC[kListResult], 0);
  EXPECT_FALSE(window.tlHVyhledej.Enabled());
  PressKey('B', false, false, true);
  ASSERT_EQ(Rows(window.lstMPSC[kListResult]), (Strings{L"Bavory", L"Mikulov"}));
  EXPECT_TRUE(window.tlHVyhledej.Enabled());
  PressKey('V', false, false, true);
  EXPECT_EQ(window.lstMPSC[kListResult].ListCount(), 4);
}

TEST_F(PanelState, TheDistrictModeChosenAgainSearchesAgain) {
  frmhlavni& window = OpenInFront();
  ClickOn(window.optMPSC[2]);
  ClickRow(window.lstMPSC[kListDistricts], 0);
  PressKey('V', false, false, true);
  ClickRow(window.lstMPSC[kListResult], 0);
  ASSERT_FALSE(window.tlHVyhledej.Enabled());
  ClickOn(window.optMPSC[2]);
  EXPECT_TRUE(window.tlHVyhledej.Enabled());
  EXPECT_FALSE(window.tlHObcePSC.Visible());
  EXPECT_EQ(window.lstMPSC[kListDistricts].ListIndex(), 0) << "the district stays chosen";
  ClickRow(window.lstMPSC[kListResult], 1);
  ASSERT_FALSE(window.tlHVyhledej.Enabled());
  PressKey('O', true);
  EXPECT_TRUE(window.tlHVyhledej.Enabled());
  ClickRow(window.lstMPSC[kListResult], 2);
  ASSERT_FALSE(window.tlHVyhledej.Enabled());
  ClickOn(window.txtMPSC[1]);
  TypeText(L"b");
  PressKey(VK_RETURN);
  EXPECT_TRUE(window.tlHVyhledej.Enabled()) << "the district that was chosen already";
}

TEST_F(PanelState, TheHintOfAModeGoesWithTheMode) {
  frmhlavni& window = OpenInFront();
  ASSERT_EQ(Status(), L"Vyhledá obce odpovídající zadanému textu.");
  ClickRow(window.lstMPSC[kListAll], 1);
  EXPECT_FALSE(window.optMPSC[1].Value());
  EXPECT_EQ(Status(), L"");
  EXPECT_FALSE(test::StatusBarView(window.Handle()).HasIcon());
}

TEST_F(PanelState, WhatElseTheStatusBarSaysOutlastsTheMode) {
  frmhlavni& window = OpenInFront();
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  PressKey('A', false, false, true);
  ASSERT_EQ(Status(), L"Byla zachována původní databáze.");
  ClickRow(window.lstMPSC[kListAll], 1);
  EXPECT_EQ(Status(), L"Byla zachována původní databáze.");
}

TEST_F(PanelState, APointerThatRestsOnAButtonLeavesWhatHasJustBeenSaid) {
  frmhlavni& window = OpenInFront();
  const HWND button = window.tlHAktualizace.Handle();
  test::PointAt(test::CenterOf(button));
  // A question takes the pointer, and gives the window back when it is answered.
  ReleaseCapture();
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  PressKey('A', false, false, true);
  SendMessageW(window.Handle(), WM_ACTIVATE, WA_ACTIVE, 0);
  POINT place = test::CenterOf(button);
  ScreenToClient(button, &place);
  SendMessageW(button, WM_MOUSEMOVE, 0, MAKELPARAM(place.x, place.y));
  EXPECT_EQ(Status(), L"Byla zachována původní databáze.");
  PointAside();
  test::PointAt(test::CenterOf(button));
  EXPECT_EQ(Status(), window.tlHAktualizace.ToolTipText());
}

TEST_F(PanelState, ASearchEndsTheDeferredOne) {
  frmhlavni& window = OpenSearchingWhileTyping();
  ClickOn(window.optMPSC[0]);
  ClickOn(window.txtMPSC[1]);
  TypeText(L"691");
  ASSERT_TRUE(window.tmrMPSC.Enabled());
  ClickOn(window.txtMPSC[0]);
  TypeText(L"692 01");
  PressKey('V', false, false, true);
  ASSERT_EQ(Rows(window.lstMPSC[kListResult]), (Strings{L"Bavory", L"Mikulov"}));
  EXPECT_FALSE(window.tmrMPSC.Enabled());
  // Shift alone hands the focus over; what stands in the field was typed for another search.
  window.txtMPSC[0].SetFocus();
  // No other key comes behind it: its release would ask for a search.
  test::PressKey(VK_SHIFT);
  ASSERT_TRUE(
      test::PumpUntil([&] { return window.FocusedControl() == &window.txtMPSC[1] && GetKeyState(VK_SHIFT) >= 0; }));
  EXPECT_FALSE(window.tmrMPSC.Enabled());
}

TEST_F(PanelState, AClickIntoAListEndsTheDeferredSearch) {
  frmhlavni& window = OpenSearchingWhileTyping();
  ClickOn(window.optMPSC[2]);
  ClickOn(window.txtMPSC[1]);
  TypeText(L"b");
  ASSERT_TRUE(window.tmrMPSC.Enabled());
  ClickRow(window.lstMPSC[kListDistricts], 1);
  EXPECT_FALSE(window.tmrMPSC.Enabled());
  EXPECT_EQ(window.lstMPSC[kListDistricts].ListIndex(), 1);
}

TEST_F(PanelState, AChangeOfTheModeEndsTheDeferredSearch) {
  frmhlavni& window = OpenSearchingWhileTyping();
  Search(L"mikulov");
  ClickOn(window.txtMPSC[1]);
  TypeText(L"b");
  ASSERT_TRUE(window.tmrMPSC.Enabled());
  ClickOn(window.optMPSC[0]);
  EXPECT_FALSE(window.tmrMPSC.Enabled());
  EXPECT_EQ(Rows(window.lstMPSC[kListResult]), Strings{L"Mikulov"});
}

TEST_F(PanelState, AnEmptyLightBlueFieldSearchesNothing) {
  frmhlavni& window = OpenSearchingWhileTyping();
  ClickOn(window.optMPSC[0]);
  TypeText(L"692 01");
  PressKey(VK_RETURN);
  ASSERT_EQ(window.lstMPSC[kListResult].ListCount(), 2);
  HurryDeferredSearch();
  PressKey(VK_SHIFT);
  ASSERT_EQ(window.FocusedControl(), &window.txtMPSC[1]);
  PressKey(VK_BACK);
  WaitForDeferredSearch();
  EXPECT_EQ(Rows(window.lstMPSC[kListResult]), (Strings{L"Bavory", L"Mikulov"}));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Hledané obce s PSČ \"692 01\".");
  SetSetting(2, L"0");
  PressKey(VK_RETURN);
  EXPECT_EQ(window.lstMPSC[kListResult].ListCount(), 2) << "by Enter neither";
}

TEST_F(PanelState, ModifierKeysLeaveADeferredSearchItsTurn) {
  frmhlavni& window = OpenSearchingWhileTyping();
  ClickOn(window.txtMPSC[1]);
  TypeText(L"mi");
  // No other key comes behind it: its release would ask for the search as well.
  test::KeyDown(VK_CONTROL);
  ASSERT_TRUE(test::PumpUntil([&] { return !window.tmrMPSC.Enabled(); }));
  test::KeyUp(VK_CONTROL);
  ASSERT_TRUE(test::PumpUntil([&] { return window.tmrMPSC.Enabled(); })) << "the release brings it back";
  HurryDeferredSearch();
  EXPECT_TRUE(test::PumpUntil([&] { return window.lstMPSC[kListAll].ListIndex() == 2; }));
}

TEST_F(PanelState, APastedPostalCodeIsReadAsATypedOne) {
  frmhlavni& window = OpenInFront();
  ClickOn(window.optMPSC[0]);
  for (const wchar_t* text : {L"692\u00A001", L"692-01", L" 692 01 ", L"\t69201\r\n", L"\u00A0692\u202F01\u00A0"}) {
    Copy(text);
    for (const std::size_t box : {0U, 1U}) {
      ClickOn(window.txtMPSC[box]);
      window.txtMPSC[box].SelectAll();
      PressKey('V', true);
      window.lblMPSCN.SetCaption(L"");
      PressKey(VK_RETURN);
      EXPECT_EQ(Rows(window.lstMPSC[kListResult]), (Strings{L"Bavory", L"Mikulov"})) << text;
      EXPECT_EQ(window.lblMPSCN.Caption(),
                box == 0 ? L"Hledané obce s PSČ \"692 01\"." : L"Obce s PSČ začínající na  \"69201\".");
    }
  }
}

TEST_F(PanelState, ControlASelectsEverythingInPscModeByItsCharacterToo) {
  frmhlavni& window = OpenInFront();
  ClickOn(window.optMPSC[0]);
  TypeText(L"692 01");
  // Some systems' text boxes answer to the key, ours to the character that comes of it.
  SendMessageW(window.txtMPSC[0].Handle(), WM_CHAR, 1, 0);
  TypeText(L"11");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"11");
}

TEST_F(PanelState, APastedTextKeepsToTheSixCharacters) {
  frmhlavni& window = OpenInFront();
  ClickOn(window.optMPSC[0]);
  Copy(L"692 01 Mikulov");
  PressKey('V', true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"692 01");
  PressKey('V', true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"692 01");
  window.txtMPSC[0].SelectAll();
  PressKey('V', true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"692 01") << "in place of what is selected";
  PressKey('Z', true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"692 01");
}

TEST_F(PanelState, APastedNameLosesWhatSurroundsIt) {
  frmhlavni& window = OpenInFront();
  for (const wchar_t* text : {L"\tMikulov\t", L"\u00A0Mikulov\u00A0", L"\r\nMikulov\r\n", L"Mikulov\r\nBavory"}) {
    Copy(text);
    window.txtMPSC[0].SelectAll();
    PressKey('V', true);
    PressKey(VK_RETURN);
    EXPECT_EQ(Rows(window.lstMPSC[kListResult]), Strings{L"Mikulov"}) << text;
    EXPECT_EQ(window.lblMPSCN.Caption(), L"Název obce \"Mikulov\".") << text;
  }
  Copy(L"Mikulov\t");
  ClickOn(window.txtMPSC[1]);
  PressKey('V', true);
  PressKey(VK_RETURN);
  EXPECT_EQ(window.lstMPSC[kListAll].ListIndex(), 2) << "in the light-blue field, too";
}

TEST_F(PanelState, TheFiveSecondTimerTakesAwayOnlyItsOwnText) {
  frmhlavni& window = OpenInFront();
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  PressKey('A', false, false, true);
  ASSERT_EQ(Status(), L"Byla zachována původní databáze.");
  test::PointAt(test::CenterOf(window.tlHNastaveni.Handle()));
  ASSERT_EQ(Status(), L"Uživatelské nastavení.");
  LetMessageTimeEnd();
  EXPECT_EQ(Status(), L"Uživatelské nastavení.");
  PointAside();
}

TEST_F(PanelState, TheLeftCountIsThatOfItsListAfterASearch) {
  frmhlavni& window = OpenInFront();
  Search(L"mikulov");
  ClickOn(window.optMPSC[0]);
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"V seznamu je 6 obcí.");
  ClickOn(window.optMPSC[2]);
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"V seznamu jsou 2 okresy.");
  ClickRow(window.lstMPSC[kListDistricts], 0);
  PressKey('V', false, false, true);
  ClickOn(window.optMPSC[1]);
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"V seznamu je 6 obcí.");
}

TEST_F(PanelState, PostalModeKeepsItsSixCharactersAfterARowOfTheLeftList) {
  frmhlavni& window = OpenInFront();
  ClickRow(window.lstMPSC[kListAll], 1);
  ClickOn(window.optMPSC[0]);
  TypeText(L"6920123");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"692012");
}

TEST_F(PanelState, ASearchByTheBeginningIsNoListOfOnePostalCode) {
  frmhlavni& window = OpenInFront();
  ClickOn(window.optMPSC[0]);
  TypeText(L"69201");
  PressKey(VK_RETURN);
  ClickOn(window.txtMPSC[1]);
  TypeText(L"69");
  PressKey(VK_RETURN);
  ASSERT_EQ(window.lstMPSC[kListResult].ListCount(), 4);
  ClickRow(window.lstMPSC[kListResult], 1);
  ASSERT_TRUE(window.tlHObcePSC.Visible());
  PressKey('B', false, false, true);
  EXPECT_EQ(Rows(window.lstMPSC[kListResult]), Strings{L"Lednice"});
}

TEST_F(PanelState, SearchingWithoutAModeAsksForOneAndChangesNothing) {
  frmhlavni& window = OpenInFront();
  Search(L"mikulov");
  ClickRow(window.lstMPSC[kListResult], 0);
  ASSERT_FALSE(window.optMPSC[1].Value());
  const std::wstring count = window.lblPSCV[1].Caption();
  const auto expectTheSame = [&](const char* how) {
    EXPECT_EQ(Status(), L"Nejdříve zvolte PSČ, Obec nebo Okres.") << how;
    EXPECT_EQ(window.lblMPSCN.Caption(), L"Název obce \"mikulov\".") << how;
    EXPECT_EQ(Rows(window.lstMPSC[kListResult]), Strings{L"Mikulov"}) << how;
    EXPECT_EQ(window.lblPSCV[1].Caption(), count) << how;
  };
  ClickOn(window.txtMPSC[0]);
  PressKey(VK_RETURN);
  expectTheSame("Enter after a click into a list");
  PressKey('O', false, false, true);
  PressKey(VK_ESCAPE);
  ASSERT_EQ(Status(), L"");
  PressKey('V', false, false, true);
  expectTheSame("the button after About");
}

TEST_F(PanelState, TheLightBlueFieldAsksForAModeToo) {
  frmhlavni& window = OpenInFront();
  ClickRow(window.lstMPSC[kListAll], 0);
  ClickOn(window.txtMPSC[1]);
  TypeText(L"mik");
  PressKey(VK_RETURN);
  EXPECT_EQ(Status(), L"Nejdříve zvolte PSČ, Obec nebo Okres.");
  EXPECT_EQ(window.lstMPSC[kListAll].ListIndex(), 0);
}

TEST_F(PanelState, TheSelectedRowCanBeChosenAgainAfterAChangeOfTheMode) {
  frmhlavni& window = OpenInFront();
  Search(L"mikulov");
  ClickRow(window.lstMPSC[kListResult], 0);
  PressKey('M', true);
  ASSERT_EQ(window.lblNPSCHT[0].Caption(), L"");
  ASSERT_FALSE(window.tlHObcePSC.Visible());
  // Not the second half of a double click.
  test::PointAt(test::OnScreen(window.lstMPSC[kListResult].Handle(), 60, 4));
  test::PressButton();
  test::ReleaseButton();
  EXPECT_EQ(window.lblNPSCHT[0].Caption(), L"Mikulov");
  EXPECT_TRUE(window.tlHObcePSC.Visible());
}

TEST_F(PanelState, ASuccessfulUpdateEndsTheDeferredSearch) {
  frmhlavni& window = OpenSearchingWhileTyping();
  ClickOn(window.txtMPSC[1]);
  TypeText(L"b");
  ClickOn(window.tlHAktualizace);
  ASSERT_EQ(m_commands.downloader.downloads.size(), 3U);
  EXPECT_EQ(window.txtMPSC[1].Text(), L"");
  EXPECT_FALSE(window.tmrMPSC.Enabled());
}

TEST_F(PanelState, AFailedUpdateLeavesTheDeferredSearchItsTurn) {
  frmhlavni& window = OpenSearchingWhileTyping();
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  ClickOn(window.txtMPSC[1]);
  TypeText(L"mi");
  int ticks = 0;
  m_commands.downloader.onDownload = [&](const std::wstring&, const std::wstring&) {
    HurryDeferredSearch();
    const test::MessageWatch watch(window.Handle(), WM_TIMER, [&] { ++ticks; });
    const int before = ticks;
    EXPECT_TRUE(test::PumpUntil([&] { return ticks > before + 1; }));
    EXPECT_EQ(window.lstMPSC[kListAll].ListIndex(), -1);
  };
  ClickOn(window.tlHAktualizace);
  EXPECT_GE(ticks, 6);
  EXPECT_TRUE(test::PumpUntil([&] { return window.lstMPSC[kListAll].ListIndex() == 2; }));
  EXPECT_EQ(Status(), L"Byla zachována původní databáze.");
}

TEST_F(PanelState, AboutLeavesTheOfferOfTheSelectedRow) {
  frmhlavni& window = OpenInFront();
  Search(L"mikulov");
  ClickRow(window.lstMPSC[kListResult], 0);
  PressKey('O', false, false, true);
  PressKey(VK_ESCAPE);
  ASSERT_TRUE(window.tlHObcePSC.Visible());
  PressKey('B', false, false, true);
  EXPECT_EQ(Rows(window.lstMPSC[kListResult]), (Strings{L"Bavory", L"Mikulov"}));
}

TEST_F(PanelState, TheSearchButtonThatIsDisabledHandsItsFocusToTheList) {
  SetSetting(0, L"1");
  frmhlavni& window = OpenInFront();
  Search(L"mikulov");
  for (const List list : {kListAll, kListResult}) {
    PressKey('M', true);
    ASSERT_TRUE(window.tlHVyhledej.Enabled());
    window.tlHVyhledej.SetFocus();
    ASSERT_TRUE(window.tlHVyhledej.HasKeyboardFocus());
    test::PointAt(test::OnScreen(window.lstMPSC[list].Handle(), 20, 4));
    ASSERT_TRUE(test::PumpUntil([&] { return window.lstMPSC[list].ListIndex() == 0; }));
    EXPECT_FALSE(window.tlHVyhledej.Enabled());
    EXPECT_EQ(window.FocusedControl(), &window.lstMPSC[list]) << list;
  }
  PointAside();
}

TEST_F(PanelState, AnEmptyResultHasNoExtentOnAnyRoad) {
  frmhlavni& window = OpenInFront();
  const auto find = [&] {
    ClickOn(window.optMPSC[1]);
    Search(L"Praha");
    EXPECT_EQ(window.lstMPSC[kListResult].ListCount(), 1);
    EXPECT_GT(window.lstMPSC[kListResult].HorizontalExtent(), 0);
  };
  const auto expectNone = [&](const char* road) {
    EXPECT_EQ(window.lstMPSC[kListResult].ListCount(), 0) << road;
    EXPECT_EQ(window.lstMPSC[kListResult].HorizontalExtent(), 0) << road;
  };
  find();
  Search(L"nikde");
  expectNone("nothing found");
  find();
  window.txtMPSC[0].SelectAll();
  PressKey(VK_DELETE);
  PressKey(VK_RETURN);
  expectNone("no name");
  find();
  Search(L"*");
  expectNone("refused");
  find();
  ClickOn(window.optMPSC[0]);
  PressKey(VK_RETURN);
  expectNone("no PSČ");
  find();
  ClickOn(window.optMPSC[2]);
  PressKey('V', false, false, true);
  expectNone("no district");
}

}  // namespace
}  // namespace kvez
