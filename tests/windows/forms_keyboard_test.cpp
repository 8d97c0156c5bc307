// The keyboard's way through a form: order of events, Tab, access keys, preview.
#include <gtest/gtest.h>

#include <array>

#include "forms/access_key.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "tests/support/window_test.h"

namespace kvez::forms {
namespace {

using test::TestForm;
using Log = std::vector<std::string>;

/// Two text boxes, two option buttons in a frame, a check box.
class FormKeyboard : public ::testing::Test {
 protected:
  void SetUp() override {
    label.Create(form, 1, {0, 0, 1500, 285}, L"&Jméno", Alignment::Left, true);
    first.Create(form, 2, {1500, 0, 1500, 285});
    second.Create(form, 3, {3000, 0, 1500, 285});
    frame.Create(form, 4, {0, 600, 3000, 900}, L"Volba");
    options[0].Create(frame, 5, {150, 250, 1200, 285}, L"&Prvá");
    options[1].Create(frame, 6, {1500, 250, 1200, 285}, L"&Druhá");
    check.Create(form, 7, {0, 1600, 1500, 285}, L"&Znak");
    for (int i = 0; i < 2; ++i) {
      const auto n = static_cast<std::size_t>(i);
      options[n].Click = [this, i] { log.push_back("option " + std::to_string(i)); };
    }
    check.Click = [this] { log.push_back("check " + std::to_string(check.Value())); };
    ASSERT_TRUE(test::ShowActive(form));
    test::PumpInput();
    log.clear();
  }

  Log Take() { return std::exchange(log, {}); }

  Log log;
  TestForm form;
  Label label;
  TextBox first;
  TextBox second;
  Frame frame;
  std::array<OptionButton, 2> options;
  CheckBox check;
};

TEST_F(FormKeyboard, FirstControlHasTheFocus) { EXPECT_TRUE(first.HasKeyboardFocus()); }

TEST_F(FormKeyboard, TabGoesInReadingOrderAndRound) {
  test::Type(VK_TAB);
  EXPECT_TRUE(second.HasKeyboardFocus());
  test::Type(VK_TAB);
  EXPECT_TRUE(options[0].HasKeyboardFocus());
  test::Type(VK_TAB);
  EXPECT_TRUE(check.HasKeyboardFocus());
  test::Type(VK_TAB);
  EXPECT_TRUE(first.HasKeyboardFocus());
  test::TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_TRUE(check.HasKeyboardFocus());
  test::TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_TRUE(options[0].HasKeyboardFocus());
  EXPECT_EQ(Take(), Log{});  // passing by chooses nothing
}

TEST_F(FormKeyboard, TabSkipsWhatCannotTakeTheFocus) {
  second.SetEnabled(false);
  frame.SetVisible(false);
  test::Type(VK_TAB);
  EXPECT_TRUE(check.HasKeyboardFocus());
  check.SetTabStop(false);
  test::Type(VK_TAB);
  EXPECT_TRUE(first.HasKeyboardFocus());
}

TEST_F(FormKeyboard, TabReachesTheSelectedOption) {
  options[1].SetValue(true);
  Take();
  second.SetFocus();
  test::Type(VK_TAB);
  EXPECT_TRUE(options[1].HasKeyboardFocus());
  test::Type(VK_TAB);
  EXPECT_TRUE(check.HasKeyboardFocus());
}

TEST_F(FormKeyboard, TabSelectsTheTextItComesTo) {
  second.SetText(L"Praha");
  test::Type(VK_TAB);
  DWORD start = 9;
  DWORD end = 9;
  SendMessageW(second.Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 0U);
  EXPECT_EQ(end, 5U);
}

TEST_F(FormKeyboard, ArrowsGoRoundTheOptionsAndSelect) {
  options[0].SetFocus();
  test::Type(VK_DOWN);
  EXPECT_TRUE(options[1].HasKeyboardFocus());
  EXPECT_TRUE(options[1].Value());
  test::Type(VK_RIGHT);
  EXPECT_TRUE(options[0].Value());
  EXPECT_FALSE(options[1].Value());
  test::Type(VK_LEFT);
  EXPECT_TRUE(options[1].Value());
  EXPECT_EQ(Take(), (Log{"option 1", "option 0", "option 1"}));
}

TEST_F(FormKeyboard, SpaceSelectsOptionAndTicksBox) {
  options[0].SetFocus();
  EXPECT_FALSE(options[0].Value());
  test::Type(VK_SPACE);
  EXPECT_TRUE(options[0].Value());
  check.SetFocus();
  test::Type(VK_SPACE);
  test::Type(VK_SPACE);
  EXPECT_EQ(Take(), (Log{"option 0", "check 1", "check 0"}));
}

TEST(AccessKeyTest, StandsBehindTheFirstSingleMark) {
  EXPECT_EQ(AccessKeyOf(L"&Konec"), L'K');
  EXPECT_EQ(AccessKeyOf(L"Na&staveni"), L's');
  EXPECT_EQ(AccessKeyOf(L"Pošta && &okres"), L'o');
  for (const wchar_t* caption : {L"", L"Konec", L"Konec&", L"Pošta && okres"}) {
    EXPECT_EQ(AccessKeyOf(caption), L'\0') << ::testing::PrintToString(caption);
  }
}

TEST_F(FormKeyboard, AccessKeysOfSystemControls) {
  test::TypeWith(VK_MENU, 'D');
  EXPECT_TRUE(options[1].HasKeyboardFocus());
  test::TypeWith(VK_MENU, 'Z');
  EXPECT_TRUE(check.HasKeyboardFocus());
  EXPECT_EQ(Take(), (Log{"option 1", "check 1"}));
  test::TypeWith(VK_MENU, 'J');
  EXPECT_TRUE(first.HasKeyboardFocus());
}

// As messages: nobody knows when the keyboard of a virtual display repeats.
TEST_F(FormKeyboard, HeldAccessKeyActsOnce) {
  MSG message{};
  message.hwnd = first.Handle();
  message.message = WM_SYSCHAR;
  message.wParam = 'z';
  message.lParam = 1 << 29 | 1;
  EXPECT_TRUE(form.TranslateKey(message));
  message.lParam |= 1 << 30;
  EXPECT_TRUE(form.TranslateKey(message));
  EXPECT_EQ(Take(), Log{"check 1"});
  // One that nobody has goes on to the system, held or not.
  message.wParam = ' ';
  EXPECT_FALSE(form.TranslateKey(message));
}

TEST_F(FormKeyboard, RepetitionsAreTold) {
  first.KeyDown = [this](std::int16_t&, std::int16_t) {
    log.emplace_back(form.KeyIsRepeated() ? "repeated" : "pressed");
  };
  SendMessageW(first.Handle(), WM_KEYDOWN, VK_F5, 1);
  SendMessageW(first.Handle(), WM_KEYDOWN, VK_F5, 1 << 30 | 1);
  SendMessageW(first.Handle(), WM_KEYDOWN, VK_F5, 1);
  EXPECT_EQ(Take(), (Log{"pressed", "repeated", "pressed"}));
}

TEST_F(FormKeyboard, PreviewSeesKeysBeforeTheControl) {
  form.keyDown = [this](std::int16_t& KeyCode, std::int16_t Shift) {
    log.push_back("form " + std::to_string(KeyCode) + " " + std::to_string(Shift));
  };
  first.KeyDown = [this](std::int16_t& KeyCode, std::int16_t Shift) {
    log.push_back("box " + std::to_string(KeyCode) + " " + std::to_string(Shift));
  };
  first.KeyPress = [this](std::int16_t& KeyAscii) { log.push_back("press " + std::to_string(KeyAscii)); };
  first.Change = [this] { log.emplace_back("change"); };
  first.KeyUp = [this](std::int16_t& KeyCode, std::int16_t) {
    if (KeyCode != VK_F24) log.push_back("up " + std::to_string(KeyCode));
  };
  test::Type('A');
  // Without the preview, the form sees nothing.
  Log events = Take();
  std::erase_if(events, [](const std::string& event) { return event.find("135") != std::string::npos; });
  EXPECT_EQ(events, (Log{"box 65 0", "press 97", "change", "up 65"}));
  form.SetKeyPreview(true);
  test::Type('A');
  events = Take();
  std::erase_if(events, [](const std::string& event) { return event.find("135") != std::string::npos; });
  EXPECT_EQ(events, (Log{"form 65 0", "box 65 0", "press 97", "change", "up 65"}));
}

TEST_F(FormKeyboard, PreviewSeesControlAndFunctionKeys) {
  form.SetKeyPreview(true);
  Log keys;
  form.keyDown = [&](std::int16_t& KeyCode, std::int16_t Shift) {
    if (KeyCode == 'P' || KeyCode == VK_F5 || KeyCode == VK_ESCAPE || KeyCode == VK_F10) {
      keys.push_back(std::to_string(KeyCode) + " " + std::to_string(Shift));
    }
  };
  test::TypeWith(VK_CONTROL, 'P');
  test::Type(VK_F5);
  test::Type(VK_ESCAPE);
  INPUT inputs[6]{};
  const WORD order[6] = {VK_CONTROL, VK_SHIFT, 'P', 'P', VK_SHIFT, VK_CONTROL};
  for (std::size_t i = 0; i < 6; ++i) {
    inputs[i].type = INPUT_KEYBOARD;
    inputs[i].ki.wVk = order[i];
    inputs[i].ki.dwFlags = i < 3 ? 0 : KEYEVENTF_KEYUP;
  }
  SendInput(6, inputs, sizeof(INPUT));
  test::PumpInput();
  EXPECT_EQ(keys, (Log{"80 2", "116 0", "27 0", "80 3"}));
}

TEST_F(FormKeyboard, PreviewMayTakeAKeyAway) {
  form.SetKeyPreview(true);
  form.keyDown = [](std::int16_t& KeyCode, std::int16_t) {
    if (KeyCode == VK_DELETE) KeyCode = 0;
  };
  first.SetText(L"ab");
  SendMessageW(first.Handle(), EM_SETSEL, 0, 0);
  test::Type(VK_DELETE);
  EXPECT_EQ(first.Text(), L"ab");
  form.SetKeyPreview(false);
  test::Type(VK_DELETE);
  EXPECT_EQ(first.Text(), L"b");
}

TEST_F(FormKeyboard, KeyPressSwallowsAndReplaces) {
  first.KeyPress = [](std::int16_t& KeyAscii) {
    if (KeyAscii == 'b') KeyAscii = 0;
    if (KeyAscii == 'c') KeyAscii = 0xE8;
  };
  for (const wchar_t letter : {L'a', L'b', L'c', L'd'}) test::TypeCharacter(letter);
  EXPECT_EQ(first.Text(), L"ačd");
}

TEST_F(FormKeyboard, EveryTypedLetterSurvives) {
  Log codes;
  first.KeyPress = [&](std::int16_t& KeyAscii) { codes.push_back(std::to_string(KeyAscii)); };
  const std::wstring text = L"ěščřžýáíéúůďťňóŽΩ€";
  for (const wchar_t letter : text) test::TypeCharacter(letter);
  EXPECT_EQ(first.Text(), text);
  EXPECT_EQ(codes[3], "248");
  EXPECT_EQ(codes[15], "142");
}

TEST_F(FormKeyboard, EnterReachesTheTextBoxAndIsNotTyped) {
  std::int16_t seen = 0;
  std::int16_t pressed = 0;
  first.KeyDown = [&](std::int16_t& KeyCode, std::int16_t) {
    if (KeyCode == VK_RETURN) seen = KeyCode;
  };
  first.KeyPress = [&](std::int16_t& KeyAscii) { pressed = KeyAscii; };
  test::Type(VK_RETURN);
  EXPECT_EQ(seen, 13);
  EXPECT_EQ(pressed, 13);
  EXPECT_EQ(first.Text(), L"");
}

TEST_F(FormKeyboard, FocusEventsComeInOrder) {
  first.LostFocus = [this] { log.emplace_back("first lost"); };
  second.GotFocus = [this] { log.emplace_back("second got"); };
  test::Type(VK_TAB);
  EXPECT_EQ(Take(), (Log{"first lost", "second got"}));
}

TEST_F(FormKeyboard, HidingOrDisablingTheFocusedControlHandsTheFocusOn) {
  first.SetVisible(false);
  EXPECT_TRUE(second.HasKeyboardFocus());
  second.SetEnabled(false);
  EXPECT_TRUE(options[0].HasKeyboardFocus());
  frame.SetVisible(false);
  EXPECT_TRUE(check.HasKeyboardFocus());
  check.SetEnabled(false);
  EXPECT_EQ(GetFocus(), form.Handle());
}

TEST_F(FormKeyboard, HiddenOrDisabledControlDoesNotTakeTheFocus) {
  second.SetVisible(false);
  second.SetFocus();
  EXPECT_TRUE(first.HasKeyboardFocus());
  check.SetEnabled(false);
  check.SetFocus();
  EXPECT_TRUE(first.HasKeyboardFocus());
}

TEST_F(FormKeyboard, FocusComesBackWithTheForm) {
  second.SetFocus();
  {
    TestForm above;
    TextBox box;
    box.Create(above, 1, {0, 0, 1500, 285});
    ASSERT_TRUE(test::ShowActive(above));
    EXPECT_TRUE(box.HasKeyboardFocus());
    // Meant for the time when the form is active again.
    check.SetFocus();
    EXPECT_TRUE(box.HasKeyboardFocus());
  }
  ASSERT_TRUE(test::ShowActive(form));
  EXPECT_TRUE(test::PumpUntil([this] { return check.HasKeyboardFocus(); }));
  EXPECT_EQ(Take(), Log{});
}

// As messages, in the order in which some systems send them: the activation comes to what still is an icon.
TEST_F(FormKeyboard, FocusComesBackWhenTheFormIsNoIconAnyMore) {
  second.SetFocus();
  SendMessageW(form.Handle(), WM_SIZE, SIZE_MINIMIZED, 0);
  ::SetFocus(nullptr);
  ASSERT_FALSE(second.HasKeyboardFocus());
  SendMessageW(form.Handle(), WM_SIZE, SIZE_RESTORED, 0);
  EXPECT_TRUE(second.HasKeyboardFocus());
}

}  // namespace
}  // namespace kvez::forms
