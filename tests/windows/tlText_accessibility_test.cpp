// What a screen reader learns of the button.
#include <oleacc.h>

#include "forms/accessible.h"
#include "forms/containers.h"
#include "forms/private_messages.h"
#include "tests/support/button_fixture.h"

namespace kvez {
namespace {

class TlTextAccessibility : public test::ButtonOnScreen {
 protected:
  void SetUp() override {
    ButtonOnScreen::SetUp();
    CoInitialize(nullptr);
    void* object = nullptr;
    ASSERT_EQ(
        AccessibleObjectFromWindow(button.Handle(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object),
        S_OK);
    accessible = static_cast<IAccessible*>(object);
  }

  void TearDown() override {
    if (accessible != nullptr) accessible->Release();
    CoUninitialize();
    ButtonOnScreen::TearDown();
  }

  static VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
  }

  template <typename Getter>
  std::wstring Text(Getter getter) {
    BSTR text = nullptr;
    if (FAILED((accessible->*getter)(Self(), &text)) || text == nullptr) return L"(none)";
    std::wstring result(text, SysStringLen(text));
    SysFreeString(text);
    return result;
  }

  LONG State() {
    VARIANT state{};
    EXPECT_EQ(accessible->get_accState(Self(), &state), S_OK);
    return state.lVal;
  }

  IAccessible* accessible = nullptr;
};

TEST_F(TlTextAccessibility, NameIsTheCaptionWithoutItsMark) {
  button.SetCaption(L"O&bce && PSČ");
  EXPECT_EQ(Text(&IAccessible::get_accName), L"Obce & PSČ");
}

TEST_F(TlTextAccessibility, RoleIsPushButton) {
  VARIANT role{};
  ASSERT_EQ(accessible->get_accRole(Self(), &role), S_OK);
  EXPECT_EQ(role.vt, VT_I4);
  EXPECT_EQ(role.lVal, ROLE_SYSTEM_PUSHBUTTON);
}

TEST_F(TlTextAccessibility, StateFollowsTheButton) {
  EXPECT_EQ(State(), STATE_SYSTEM_FOCUSABLE);
  button.SetFocus();
  EXPECT_EQ(State(), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED);
  test::Press(VK_SPACE);
  EXPECT_EQ(State() & STATE_SYSTEM_PRESSED, STATE_SYSTEM_PRESSED);
  test::Release(VK_SPACE);
  EXPECT_EQ(State() & STATE_SYSTEM_PRESSED, 0);
  other.SetFocus();
  button.SetEnabled(false);
  EXPECT_EQ(State(), STATE_SYSTEM_UNAVAILABLE);
}

TEST_F(TlTextAccessibility, ShortcutAndDescriptionAreTold) {
  button.SetToolTipText(L"Ukončení programu");
  EXPECT_EQ(Text(&IAccessible::get_accKeyboardShortcut), L"Alt+H");
  EXPECT_EQ(Text(&IAccessible::get_accDescription), L"Ukončení programu");
}

TEST_F(TlTextAccessibility, DefaultActionRunsTheAction) {
  EXPECT_EQ(Text(&IAccessible::get_accDefaultAction), L"Stisknout");
  EXPECT_EQ(accessible->accDoDefaultAction(Self()), S_OK);
  EXPECT_TRUE(test::PumpUntil([this] { return !button.events.empty(); }));
  EXPECT_EQ(button.TakeEvents(), std::vector<std::string>{"Click"});
}

TEST_F(TlTextAccessibility, DisabledButtonCannotBeTriggered) {
  button.SetEnabled(false);
  accessible->accDoDefaultAction(Self());
  test::PumpInput();
  EXPECT_EQ(button.TakeEvents(), std::vector<std::string>{});
}

TEST_F(TlTextAccessibility, CoveredButtonCannotBeTriggered) {
  forms::Frame panel;
  panel.Create(form, 3, {0, 0, 6000, 3000});
  panel.BringToFront();
  EXPECT_EQ(State(), STATE_SYSTEM_UNAVAILABLE);
  EXPECT_EQ(accessible->accDoDefaultAction(Self()), E_ACCESSDENIED);
  // Nor by a call that was on its way already.
  SendMessageW(button.Handle(), forms::kDoDefaultActionMessage, 0, 0);
  EXPECT_EQ(button.TakeEvents(), std::vector<std::string>{});
}

TEST_F(TlTextAccessibility, ReaderMayOutliveTheWindow) {
  form.Unload();
  EXPECT_EQ(button.Handle(), nullptr);
  EXPECT_NE(accessible->accDoDefaultAction(Self()), S_OK);
}

}  // namespace
}  // namespace kvez
