// What can be reached: by Tab, by access keys, by a screen reader.
#include <gtest/gtest.h>
#include <oleacc.h>

#include <array>
#include <functional>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/list_box.h"
#include "forms/reach.h"
#include "forms/text_box.h"
#include "tests/support/window_test.h"

namespace kvez::forms {
namespace {

/// A form that says where the work goes on.
class WorkingForm : public test::TestForm {
 public:
  std::function<Control*(const Control&)> workGoesOnAt;

 protected:
  Control* WorkGoesOnAt(const Control& leaving) override { return workGoesOnAt ? workGoesOnAt(leaving) : nullptr; }
};

/// A panel with a check box in front of a field and a box beside it.
class FormReach : public ::testing::Test {
 protected:
  void SetUp() override {
    panel.SetVisible(false);
    panel.Create(form, 1, {0, 0, 3000, 1500});
    inside.Create(panel, 2, {300, 300, 1500, 285}, L"&Uvnitř");
    field.Create(form, 3, {300, 300, 1500, 285});
    edge.Create(form, 4, {2400, 600, 1500, 285});
    beside.Create(form, 5, {3600, 300, 1500, 285}, L"&Vedle");
    beside.Click = [this] { ++clicks; };
    inside.Click = [this] { ++insideClicks; };
    ASSERT_TRUE(test::ShowActive(form));
    ASSERT_TRUE(field.HasKeyboardFocus());
  }

  WorkingForm form;
  Frame panel;
  CheckBox inside;
  TextBox field;
  TextBox edge;
  CheckBox beside;
  int clicks = 0;
  int insideClicks = 0;
};

TEST_F(FormReach, WhatIsSeenEnabledAndInFrontCanBeReached) {
  EXPECT_TRUE(CanBeReached(field));
  EXPECT_TRUE(CanBeReached(beside));
  EXPECT_FALSE(CanBeReached(inside));  // not seen
  field.SetEnabled(false);
  EXPECT_FALSE(CanBeReached(field));
  field.SetEnabled(true);
  field.SetVisible(false);
  EXPECT_FALSE(CanBeReached(field));
}

TEST_F(FormReach, WhatLiesUnderAPanelCannotBeReachedNotEvenInPart) {
  panel.SetVisible(true);
  EXPECT_TRUE(CanBeReached(inside));
  EXPECT_TRUE(CanBeReached(beside));
  EXPECT_FALSE(CanBeReached(field));
  EXPECT_FALSE(CanBeReached(edge));
  EXPECT_TRUE(CanBeReached(field, &panel));  // when the panel is gone
  EXPECT_FALSE(CanBeReached(inside, &panel));
  field.BringToFront();
  EXPECT_TRUE(CanBeReached(field));
}

TEST_F(FormReach, NeighboursThatShareAnEdgeDoNotLieOnEachOther) {
  panel.SetVisible(true);
  edge.Move({2990, 600, 1500, 285});
  EXPECT_TRUE(CanBeReached(edge));
}

TEST_F(FormReach, NothingOfADisabledFormOrPanelCanBeReached) {
  panel.SetVisible(true);
  panel.SetEnabled(false);
  EXPECT_FALSE(CanBeReached(inside));
  panel.SetEnabled(true);
  EnableWindow(form.Handle(), FALSE);
  EXPECT_FALSE(CanBeReached(inside));
  EXPECT_FALSE(CanBeReached(beside));
  EnableWindow(form.Handle(), TRUE);
  EXPECT_TRUE(CanBeReached(beside));
}

TEST_F(FormReach, AnOpenFrontPanelIsAllThatCanBeReached) {
  form.SetFrontPanel(&panel);
  EXPECT_TRUE(CanBeReached(beside));
  panel.SetVisible(true);
  EXPECT_FALSE(CanBeReached(beside));
  EXPECT_TRUE(CanBeReached(inside));
  EXPECT_TRUE(CanBeReached(beside, &panel));
  inside.SetFocus();
  test::Type(VK_TAB);
  EXPECT_TRUE(inside.HasKeyboardFocus());
  test::TypeWith(VK_MENU, 'V');
  EXPECT_EQ(clicks, 0);
  test::TypeWith(VK_MENU, 'U');
  EXPECT_EQ(insideClicks, 1);
}

TEST_F(FormReach, TabAndAccessKeysLeaveOutWhatIsCovered) {
  panel.SetVisible(true);
  beside.SetFocus();
  test::Type(VK_TAB);
  EXPECT_TRUE(inside.HasKeyboardFocus());
  test::Type(VK_TAB);
  EXPECT_TRUE(beside.HasKeyboardFocus());
  beside.Move({600, 700, 900, 285});
  test::TypeWith(VK_MENU, 'V');
  EXPECT_EQ(clicks, 0);
}

TEST_F(FormReach, AClickOfAScreenReaderReachesNothingThatIsCovered) {
  SendMessageW(beside.Handle(), BM_CLICK, 0, 0);
  EXPECT_EQ(clicks, 1);
  form.SetFrontPanel(&panel);
  panel.SetVisible(true);
  SendMessageW(beside.Handle(), BM_CLICK, 0, 0);
  EXPECT_EQ(clicks, 1);
}

TEST_F(FormReach, AScreenReaderIsToldWhatCannotBeReached) {
  CoInitialize(nullptr);
  field.SetAccessibleName(L"Pole");
  void* object = nullptr;
  ASSERT_EQ(
      AccessibleObjectFromWindow(field.Handle(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object),
      S_OK);
  auto* const accessible = static_cast<IAccessible*>(object);
  VARIANT self{};
  self.vt = VT_I4;
  const auto state = [&] {
    VARIANT value{};
    EXPECT_EQ(accessible->get_accState(self, &value), S_OK);
    return value.lVal & (STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_FOCUSABLE);
  };
  EXPECT_EQ(state(), STATE_SYSTEM_FOCUSABLE);
  beside.SetFocus();
  panel.SetVisible(true);
  EXPECT_EQ(state(), STATE_SYSTEM_UNAVAILABLE);
  EXPECT_EQ(accessible->accSelect(SELFLAG_TAKEFOCUS, self), E_ACCESSDENIED);
  BSTR text = SysAllocString(L"x");
  EXPECT_EQ(accessible->put_accValue(self, text), E_ACCESSDENIED);
  EXPECT_EQ(accessible->accDoDefaultAction(self), E_ACCESSDENIED);
  SysFreeString(text);
  EXPECT_TRUE(beside.HasKeyboardFocus());
  EXPECT_EQ(field.Text(), L"");
  accessible->Release();
  CoUninitialize();
}

TEST_F(FormReach, TheFocusGoesWhereTheWorkGoesOn) {
  form.workGoesOnAt = [this](const Control& leaving) -> Control* { return &leaving == &field ? &beside : nullptr; };
  field.SetVisible(false);
  EXPECT_TRUE(beside.HasKeyboardFocus());
  field.SetVisible(true);
  field.SetFocus();
  // Where it cannot go on, the next one takes the focus.
  beside.SetEnabled(false);
  field.SetVisible(false);
  EXPECT_TRUE(edge.HasKeyboardFocus());
}

TEST_F(FormReach, TheFocusMayGoToWhatTheLeavingPanelHasCovered) {
  panel.SetVisible(true);
  form.workGoesOnAt = [this](const Control&) { return &field; };
  inside.SetFocus();
  panel.SetVisible(false);
  EXPECT_TRUE(field.HasKeyboardFocus());
}

TEST_F(FormReach, TheFocusComesBackFromAnywhere) {
  beside.SetFocus();
  SetFocus(nullptr);
  EXPECT_FALSE(beside.HasKeyboardFocus());
  SetFocus(form.Handle());
  EXPECT_TRUE(beside.HasKeyboardFocus());
}

}  // namespace
}  // namespace kvez::forms
