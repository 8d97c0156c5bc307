// Keys that are held, and what the pointer and Shift do around a menu. As messages: nobody knows when the keyboard of a
// virtual display repeats, and its menus keep to themselves what others let through.

#include "forms/input_gate.h"
#include "tests/windows/main_window_test.h"

namespace kvez {
namespace {

class HeldKeys : public MainWindowTest {
 protected:
  static void SendKey(const forms::Control& control, WPARAM key, bool repeated = false) {
    SendMessageW(control.Handle(), WM_KEYDOWN, key, (repeated ? 1 << 30 : 0) | 1);
  }
  static void SendHeldKey(const forms::Control& control, WPARAM key) {
    for (const bool repeated : {false, true, true}) SendKey(control, key, repeated);
  }
};

TEST_F(HeldKeys, EnterSearchesOnce) {
  frmhlavni& window = OpenInFront();
  window.txtMPSC[kFieldText].SetText(L"*");
  SendHeldKey(window.txtMPSC[kFieldText], VK_RETURN);
  EXPECT_EQ(m_machine.messages.messages.size(), 1U) << "a refusal for each repetition";
}

TEST_F(HeldKeys, EnterInTheLightBlueFieldSearchesOnce) {
  frmhlavni& window = OpenInFront();
  window.optMPSC[kModePostal].SetValue(true);
  window.txtMPSC[kFieldBeginning].SetText(L"691");
  SendKey(window.txtMPSC[kFieldBeginning], VK_RETURN);
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Obce s PSČ začínající na  \"691\".");
  window.lblMPSCN.SetCaption(L"");
  SendKey(window.txtMPSC[kFieldBeginning], VK_RETURN, true);
  EXPECT_EQ(window.lblMPSCN.Caption(), L"");
}

TEST_F(HeldKeys, EnterThatWasHeldBeforeTheListGotTheFocusStaysThere) {
  frmhlavni& window = OpenInFront();
  window.lstMPSC[kListAll].SetFocus();
  SendKey(window.lstMPSC[kListAll], VK_RETURN, true);
  EXPECT_TRUE(window.lstMPSC[kListAll].HasKeyboardFocus());
  SendKey(window.lstMPSC[kListAll], VK_RETURN);
  EXPECT_TRUE(window.txtMPSC[kFieldText].HasKeyboardFocus());
}

// What the menu takes for itself: the release of Shift, after which the next press is a new one.
TEST_F(HeldKeys, ShiftWhoseReleaseAMenuHasSeenHandsOverTheNextTime) {
  frmhlavni& window = OpenInFront();
  BYTE before[256] = {};
  GetKeyboardState(before);
  BYTE keys[256] = {};
  keys[VK_SHIFT] = 0x80;
  SetKeyboardState(keys);
  SendKey(window.txtMPSC[kFieldText], VK_SHIFT);
  EXPECT_TRUE(window.txtMPSC[kFieldBeginning].HasKeyboardFocus());
  SendMessageW(window.Handle(), WM_EXITMENULOOP, FALSE, 0);
  SendKey(window.txtMPSC[kFieldBeginning], VK_SHIFT);
  EXPECT_TRUE(window.txtMPSC[kFieldText].HasKeyboardFocus());
  SetKeyboardState(before);
}

TEST_F(HeldKeys, ThePointerOverAListSelectsNothingInTheMiddleOfSomething) {
  SetSetting(0, L"1");
  frmhlavni& window = OpenInFront();
  const forms::ListBox& list = window.lstMPSC[kListAll];
  const auto height = static_cast<int>(SendMessageW(list.Handle(), LB_GETITEMHEIGHT, 0, 0));
  const auto pointAtRow = [&](int row) { test::PointAt(test::OnScreen(list.Handle(), 20, row * height + height / 2)); };
  {
    const forms::InputPause menuOrQuestion(window);
    pointAtRow(1);
    pointAtRow(2);
    EXPECT_EQ(list.ListIndex(), -1);
  }
  pointAtRow(3);
  EXPECT_EQ(list.ListIndex(), 3);
}

}  // namespace
}  // namespace kvez
