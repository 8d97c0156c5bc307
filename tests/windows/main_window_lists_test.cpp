// Selecting in the three lists.

#include "tests/windows/main_window_test.h"

namespace kvez {
namespace {

using Strings = std::vector<std::wstring>;

class Lists : public MainWindowTest {
 protected:
  static void MoveOver(forms::ListBox& list, int row) {
    // The test before may have left the pointer at this very place, and staying there is no movement.
    test::PointAt(test::FarAway());
    const auto height = static_cast<int>(SendMessageW(list.Handle(), LB_GETITEMHEIGHT, 0, 0));
    test::PointAt(test::OnScreen(list.Handle(), 10, row * height + height / 2));
  }
};

TEST_F(Lists, MunicipalityShowsItsPostOfficeAndDistrict) {
  frmhlavni& window = Open();
  window.txtMPSC[1].SetText(L"x");
  window.lstMPSC[0].SetListIndex(1);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"691 44  Lednice na Moravě");
  EXPECT_EQ(window.lblNPSCHT[0].Caption(), L"Lednice");
  EXPECT_EQ(window.lblNPSCHT[1].Caption(), L"Břeclav");
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"2. záznam z 6");
  EXPECT_FALSE(window.optMPSC[1].Value());
  EXPECT_FALSE(window.tlHVyhledej.Enabled());
  EXPECT_FALSE(window.tlHObcePSC.Visible());
  EXPECT_EQ(window.txtMPSC[1].Text(), L"");
}

TEST_F(Lists, AddressIsShownWholeThoughPostalModeLimitsTyping) {
  frmhlavni& window = Open();
  window.optMPSC[0].SetValue(true);
  window.lstMPSC[0].SetListIndex(1);
  EXPECT_EQ(window.txtMPSC[0].MaxLength(), 0);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"691 44  Lednice na Moravě");
}

TEST_F(Lists, ResultOffersTheMunicipalitiesOfItsPostalCode) {
  frmhlavni& window = Open();
  window.txtMPSC[0].SetText(L"Mikulov");
  window.VyhledejSeznam();
  window.lstMPSC[1].SetListIndex(0);
  EXPECT_TRUE(window.tlHObcePSC.Visible());
  EXPECT_EQ(window.tlHObcePSC.ToolTipText(), L"Vytvoří seznam obcí pro PSČ \"692 01  Mikulov na Moravě\".");
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"1. záznam z 1");
  EXPECT_FALSE(window.tlHVyhledej.Enabled());
  window.tlHObcePSC.Click();
  EXPECT_EQ(Rows(window.lstMPSC[1]), (Strings{L"Bavory", L"Mikulov"}));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Hledané obce s PSČ \"692 01\".");
  EXPECT_FALSE(window.tlHObcePSC.Visible());
  // The list is one of a single PSČ already.
  window.lstMPSC[1].SetListIndex(0);
  EXPECT_FALSE(window.tlHObcePSC.Visible());
}

TEST_F(Lists, ResultOfAPostalSearchOffersNothing) {
  frmhlavni& window = Open();
  window.optMPSC[0].SetValue(true);
  window.txtMPSC[0].SetText(L"69201");
  window.VyhledejSeznam();
  window.lstMPSC[1].SetListIndex(0);
  EXPECT_FALSE(window.tlHObcePSC.Visible());
}

TEST_F(Lists, DistrictEnablesTheSearchAgain) {
  frmhlavni& window = Open();
  window.optMPSC[2].SetValue(true);
  window.lstMPSC[2].SetListIndex(0);
  window.VyhledejSeznam();
  window.lstMPSC[1].SetListIndex(0);
  EXPECT_FALSE(window.tlHVyhledej.Enabled());
  EXPECT_TRUE(window.tlHObcePSC.Visible());
  window.lstMPSC[2].SetListIndex(1);
  EXPECT_TRUE(window.tlHVyhledej.Enabled());
  EXPECT_FALSE(window.tlHObcePSC.Visible());
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"2. záznam z 2");
}

TEST_F(Lists, SelectionFollowsThePointerOnlyWhenWanted) {
  frmhlavni& window = OpenInFront();
  MoveOver(window.lstMPSC[0], 3);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), -1);
  SetSetting(0, L"1");
  MoveOver(window.lstMPSC[0], 2);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 2);
  EXPECT_EQ(window.lblNPSCHT[0].Caption(), L"Mikulov");
}

TEST_F(Lists, PointerBelowTheLastRowSelectsNothing) {
  SetSetting(0, L"1");
  frmhlavni& window = OpenInFront();
  MoveOver(window.lstMPSC[0], 3);
  MoveOver(window.lstMPSC[0], 9);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 3);
}

// As messages: the display's own movements, which come when they like, would be real ones.
TEST_F(Lists, WhatThePointerDidInAMenuSelectsNothingBehindIt) {
  SetSetting(0, L"1");
  frmhlavni& window = OpenInFront();
  const HWND list = window.lstMPSC[0].Handle();
  const auto height = static_cast<int>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
  POINT place = {10, 2 * height + height / 2};
  MoveOver(window.lstMPSC[0], 4);
  ASSERT_EQ(window.lstMPSC[0].ListIndex(), 4);
  POINT screen = place;
  ClientToScreen(list, &screen);
  SetCursorPos(screen.x, screen.y);
  MSG unseen{};
  while (PeekMessageW(&unseen, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) {
  }
  SendMessageW(window.Handle(), WM_EXITMENULOOP, TRUE, 0);
  SendMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(place.x, place.y));
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 4);
  SendMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(place.x + 1, place.y));
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 2);
}

}  // namespace
}  // namespace kvez
