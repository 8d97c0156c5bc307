// What the button does with real keys, and what its action does.
#include "tests/support/button_fixture.h"

namespace kvez {
namespace {

using Events = std::vector<std::string>;
using test::ShellCall;

class TlTextKeyboard : public test::ButtonOnScreen {};

TEST_F(TlTextKeyboard, SpacePressesAndReleases) {
  button.SetFocus();
  test::Press(VK_SPACE);
  EXPECT_TRUE(button.RunTime().IsDown.IsTrue());
  EXPECT_TRUE(button.RunTime().IsOver.IsTrue());
  const test::Pixels down = OnScreenNow();
  EXPECT_GT(down.Count(kDown), 0);
  EXPECT_EQ(button.TakeEvents(), Events{"KeyPress 32"});
  test::Release(VK_SPACE);
  EXPECT_FALSE(button.RunTime().IsDown.IsTrue());
  EXPECT_FALSE(button.RunTime().IsOver.IsTrue());
  EXPECT_EQ(button.RunTime().InAction, Boolean(false));
  EXPECT_EQ(button.TakeEvents(), Events{"Click"});
}

TEST_F(TlTextKeyboard, RepeatedSpaceChangesNothing) {
  button.SetFocus();
  SendMessageW(button.Handle(), WM_KEYDOWN, VK_SPACE, 0);
  button.TakePaints();
  SendMessageW(button.Handle(), WM_KEYDOWN, VK_SPACE, 1 << 30);
  EXPECT_EQ(button.TakePaints(), 0);
}

TEST_F(TlTextKeyboard, SpaceReleaseActsEvenWithoutItsPress) {
  test::Press(VK_SPACE);
  button.SetFocus();
  button.TakeEvents();
  test::Release(VK_SPACE);
  EXPECT_EQ(button.TakeEvents(), Events{"Click"});
}

TEST_F(TlTextKeyboard, SpaceWithAltBelongsToTheWindowsMenu) {
  button.SetFocus();
  button.TakePaints();
  // As messages: a real menu keeps this thread to itself, and the release with it.
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_MENU] = 0x80;
  SetKeyboardState(keys);
  SendMessageW(button.Handle(), WM_SYSKEYDOWN, VK_SPACE, 1 << 29 | 1);
  EXPECT_FALSE(button.RunTime().IsDown.IsTrue());
  SendMessageW(button.Handle(), WM_SYSKEYUP, VK_SPACE, 1 << 29 | 1);
  keys[VK_MENU] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(button.TakePaints(), 0);
  EXPECT_EQ(button.TakeEvents(), Events{});
}

TEST_F(TlTextKeyboard, LosingTheFocusEndsTheDownLook) {
  button.SetFocus();
  test::Press(VK_SPACE);
  other.SetFocus();
  EXPECT_FALSE(button.RunTime().IsDown.IsTrue());
  EXPECT_FALSE(button.RunTime().IsOver.IsTrue());
  EXPECT_FALSE(button.RunTime().HasFocus.IsTrue());
  button.TakeEvents();
  test::Release(VK_SPACE);
  EXPECT_EQ(button.TakeEvents(), Events{});
}

TEST_F(TlTextKeyboard, OtherKeysOnlyRaiseKeyPress) {
  button.SetFocus();
  button.TakePaints();
  test::Type('A');
  EXPECT_FALSE(button.RunTime().IsDown.IsTrue());
  EXPECT_EQ(button.TakePaints(), 0);
  EXPECT_EQ(button.TakeEvents(), Events{"KeyPress 97"});
}

TEST_F(TlTextKeyboard, KeyPressGivesTheCodeInTheSystemCodePage) {
  button.SetFocus();
  test::TypeCharacter(L'ř');
  EXPECT_EQ(button.TakeEvents(), Events{"KeyPress 248"});
}

TEST_F(TlTextKeyboard, AccessKeyWorksFromElsewhere) {
  ASSERT_TRUE(other.HasKeyboardFocus());
  test::TypeWith(VK_MENU, 'H');
  EXPECT_EQ(button.TakeEvents(), Events{"Click"});
  EXPECT_TRUE(button.HasKeyboardFocus());
}

TEST_F(TlTextKeyboard, OtherAccessKeysAreNotItsOwn) {
  test::TypeWith(VK_MENU, 'J');
  EXPECT_EQ(button.TakeEvents(), Events{});
  EXPECT_TRUE(other.HasKeyboardFocus());
}

TEST_F(TlTextKeyboard, AccessKeyComparesBothCasesInTheCodePage) {
  button.SetCaption(L"&Čas");
  button.AccessKeyPress(0xC8);
  button.AccessKeyPress(0xE8);
  button.AccessKeyPress('C');
  EXPECT_EQ(button.TakeEvents(), (Events{"Click", "Click"}));
  EXPECT_TRUE(button.HasAccessKey(L'č'));
  EXPECT_TRUE(button.HasAccessKey(L'Č'));
  EXPECT_FALSE(button.HasAccessKey(L'c'));
}

TEST_F(TlTextKeyboard, ButtonWithoutAccessKeyAnswersNone) {
  button.SetCaption(L"Bez");
  EXPECT_FALSE(button.AccessKeyPress('b'));
  EXPECT_FALSE(button.AccessKeyPress(0));
  EXPECT_EQ(button.TakeEvents(), Events{});
}

TEST_F(TlTextKeyboard, DisabledOrHiddenButtonHasNoAccessKey) {
  button.SetEnabled(false);
  test::TypeWith(VK_MENU, 'H');
  button.SetEnabled(true);
  button.SetVisible(false);
  test::TypeWith(VK_MENU, 'H');
  EXPECT_EQ(button.TakeEvents(), Events{});
}

TEST_F(TlTextKeyboard, EnterRunsTheFocusedButton) {
  button.SetFocus();
  test::Type(VK_RETURN);
  EXPECT_EQ(button.TakeEvents(), Events{"Click"});
}

// As messages: nobody knows when the keyboard of a virtual display repeats.
TEST_F(TlTextKeyboard, HeldEnterRunsTheFocusedButtonOnce) {
  button.SetFocus();
  MSG message{};
  message.hwnd = button.Handle();
  message.message = WM_KEYDOWN;
  message.wParam = VK_RETURN;
  for (const LPARAM held : {0, 1 << 30, 1 << 30}) {
    message.lParam = held | 1;
    EXPECT_TRUE(form.TranslateKey(message));
  }
  EXPECT_EQ(button.TakeEvents(), Events{"Click"});
}

TEST_F(TlTextKeyboard, EnterRunsTheDefaultButton) {
  test::Type(VK_RETURN);
  EXPECT_EQ(button.TakeEvents(), Events{});
  form.SetDefaultButton(&button);
  test::Type(VK_RETURN);
  EXPECT_EQ(button.TakeEvents(), Events{"Click"});
  EXPECT_TRUE(other.HasKeyboardFocus());
}

TEST_F(TlTextKeyboard, EscapeRunsTheCancelButtonOnly) {
  form.SetCancelButton(&button);
  test::Type(VK_ESCAPE);
  EXPECT_EQ(button.TakeEvents(), Events{});  // its host says that it is none
  host.isCancelButton = true;
  test::Type(VK_ESCAPE);
  EXPECT_EQ(button.TakeEvents(), Events{"Click"});
  form.SetCancelButton(nullptr);
  test::Type(VK_ESCAPE);
  EXPECT_EQ(button.TakeEvents(), Events{});
}

TEST_F(TlTextKeyboard, RunningFormKnowsItsCancelButton) {
  tlText plain;
  plain.Create(form, 3, {600, 1800, 1215, 345}, L"tlHStorno");
  int clicks = 0;
  plain.Click = [&clicks] { ++clicks; };
  EXPECT_FALSE(plain.AccessKeyPress(27));
  form.SetCancelButton(&plain);
  EXPECT_TRUE(plain.AccessKeyPress(27));
  EXPECT_EQ(clicks, 1);
}

TEST_F(TlTextKeyboard, TabReachesTheButtonUnlessItHasNoFocusMark) {
  tlText unreachable;
  unreachable.Create(form, 3, {600, 1800, 1215, 345}, L"tlHBez");
  unreachable.SetFocusDraw(2);
  unreachable.SetVisible(false);
  unreachable.SetVisible(true);
  test::Type(VK_TAB);
  EXPECT_TRUE(button.HasKeyboardFocus());
  test::Type(VK_TAB);
  EXPECT_TRUE(other.HasKeyboardFocus());
  test::TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_TRUE(button.HasKeyboardFocus());
}

class TlTextAction : public TlTextKeyboard {
 protected:
  std::vector<ShellCall> Run(std::int32_t mode, const wchar_t* file, const wchar_t* parameters) {
    button.SetSEMode(mode);
    button.SetSEFile(file);
    button.SetSEParameters(parameters);
    button.TakeEvents();
    SendMessageW(button.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    return std::exchange(button.shellCalls, {});
  }
};

TEST_F(TlTextAction, ModeZeroRaisesClickOnly) {
  EXPECT_EQ(Run(0, L"f", L"p"), std::vector<ShellCall>{});
  EXPECT_EQ(button.TakeEvents(), (Events{"MouseUp 1", "Click"}));
}

TEST_F(TlTextAction, ModeOneOpensAWebAddress) {
  EXPECT_EQ(Run(1, L"www.example.cz", L"p"),
            (std::vector<ShellCall>{{nullptr, false, "http://www.example.cz", "p", false, 1}}));
  EXPECT_EQ(button.TakeEvents(), Events{"MouseUp 1"});
  EXPECT_EQ(button.RunTime().LastResult, 33);
}

TEST_F(TlTextAction, ModeTwoOpensAMailAddressAndRaisesNoClick) {
  EXPECT_EQ(Run(2, L"a@example.cz", L""),
            (std::vector<ShellCall>{{nullptr, false, "mailto:a@example.cz", "", false, 1}}));
  EXPECT_EQ(button.TakeEvents(), Events{"MouseUp 1"});
}

TEST_F(TlTextAction, ModeThreeOpensTheFileAsItStands) {
  EXPECT_EQ(Run(3, L"C:\\Žluť.txt", L"/č"),
            (std::vector<ShellCall>{{nullptr, false, "C:\\\x8Elu\x9D.txt", "/\xE8", false, 1}}));
  EXPECT_EQ(button.TakeEvents(), Events{"MouseUp 1"});
}

TEST_F(TlTextAction, OtherModesDoNothing) {
  for (const std::int32_t mode : {4, 5, -1}) {
    EXPECT_EQ(Run(mode, L"f", L"p"), std::vector<ShellCall>{}) << mode;
    EXPECT_EQ(button.TakeEvents(), Events{"MouseUp 1"}) << mode;
  }
}

TEST_F(TlTextAction, FailedOpeningIsSilent) {
  button.SetSEMode(1);
  button.SetShellExecute([](HWND, const char*, const char*, const char*, const char*, int) {
    return reinterpret_cast<HINSTANCE>(static_cast<INT_PTR>(2));
  });
  button.TakeEvents();
  SendMessageW(button.Handle(), WM_KEYUP, VK_SPACE, 0);
  EXPECT_EQ(button.RunTime().LastResult, 2);
  EXPECT_EQ(button.TakeEvents(), Events{});
}

}  // namespace
}  // namespace kvez
