// What helps people: tooltips, and what screen readers are told.
#include <gtest/gtest.h>
#include <oleacc.h>
// After windows.h, whose types it needs.
#include <commctrl.h>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/text_box.h"
#include "forms/tool_tip_text.h"
#include "tests/support/tool_tip.h"
#include "tests/support/window_test.h"

namespace kvez::forms {
namespace {

using test::TestForm;
using test::ToolTipOf;

TEST(ToolTips, FollowTheirControls) {
  TestForm form;
  TextBox box;
  CheckBox check;
  box.Create(form, 1, {0, 0, 1500, 285});
  check.Create(form, 2, {0, 600, 1500, 285}, L"a");
  EXPECT_EQ(ToolTipOf(box), L"(none)");
  box.SetToolTipText(L"Vyberte obec ze seznamu.");
  check.SetToolTipText(L"Uživatelské nastavení.");
  EXPECT_EQ(ToolTipOf(box), L"Vyberte obec ze seznamu.");
  EXPECT_EQ(ToolTipOf(check), L"Uživatelské nastavení.");
  box.SetToolTipText(L"Jiný & text");
  EXPECT_EQ(ToolTipOf(box), L"Jiný & text");
  EXPECT_EQ(box.ToolTipText(), L"Jiný & text");
  box.SetToolTipText(L"");
  EXPECT_EQ(ToolTipOf(box), L"");
  EXPECT_EQ(ToolTipOf(check), L"Uživatelské nastavení.");
}

TEST(ToolTips, ShowUnderThePointer) {
  TestForm form;
  CheckBox check;
  check.Create(form, 1, {600, 600, 1500, 285}, L"a");
  check.SetToolTipText(L"Uživatelské nastavení.");
  test::PointAt(test::FarAway());
  ASSERT_TRUE(test::ShowActive(form));
  test::PointAt(test::CenterOf(check.Handle()));
  EXPECT_TRUE(test::PumpUntil([&] {
    for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
      if (GetWindow(tip, GW_OWNER) == form.Handle() && IsWindowVisible(tip)) return true;
    }
    return false;
  }));
  test::PointAt(test::FarAway());
}

/// The tooltip that the form shows now; null for none.
HWND ShownToolTip(const Form& form) {
  for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
    if (GetWindow(tip, GW_OWNER) == form.Handle() && IsWindowVisible(tip)) return tip;
  }
  return nullptr;
}

TEST(ToolTips, AreNeverWiderThanTheirWindow) {
  TestForm form;
  CheckBox check;
  check.Create(form, 1, {600, 600, 1500, 285}, L"a");
  const std::wstring sentence = L"Vytvoří seznam obcí pro PSČ.";
  const auto width = [](HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place.right - place.left;
  };
  test::PointAt(test::FarAway());
  ASSERT_TRUE(test::ShowActive(form));
  for (const unsigned dpi : {96U, 144U}) {
    form.ChangeDpi(dpi);
    for (const std::wstring& text :
         {std::wstring(300, L'W'), std::wstring(300, L'i'), sentence + std::wstring(65000, L'W') + L" a b",
          sentence + L" " + sentence + L" " + sentence + L" " + sentence, std::wstring(200, L'Ж')}) {
      check.SetToolTipText(text);
      test::PointAt(test::CenterOf(check.Handle()));
      ASSERT_TRUE(test::PumpUntil([&] { return ShownToolTip(form) != nullptr; }));
      EXPECT_LE(width(ShownToolTip(form)), width(form.Handle())) << text.substr(0, 40) << " " << dpi;
      test::PointAt(test::FarAway());
      ASSERT_TRUE(test::PumpUntil([&] { return ShownToolTip(form) == nullptr; }));
    }
  }
}

// A ruler for the head: every character is 10 wide.
std::wstring FitTens(std::wstring_view text, int width) {
  return FitToolTip(text, width, [](std::wstring_view part) { return 10 * static_cast<int>(part.size()); });
}

TEST(ToolTips, OnlyWordsThatAreTooWideAreBroken) {
  EXPECT_EQ(FitTens(L"", 50), L"");
  EXPECT_EQ(FitTens(L"Praha 1 a Brno", 50), L"Praha 1 a Brno");
  EXPECT_EQ(FitTens(L"Praha  1", 40), L"Prah\r\na  1");
  EXPECT_EQ(FitTens(L"abcdefghi", 30), L"abc\r\ndef\r\nghi");
  EXPECT_EQ(FitTens(L"ab\nabcd", 30), L"ab\nabc\r\nd");
  // Narrower than any character: one stands in each line.
  EXPECT_EQ(FitTens(L"abc", 5), L"a\r\nb\r\nc");
}

TEST(ToolTips, OfAnEndlessTextTheBeginningIsLeft) {
  EXPECT_EQ(FitTens(std::wstring(400, L'a'), 4000), std::wstring(400, L'a'));
  EXPECT_EQ(FitTens(std::wstring(401, L'a'), 4000), std::wstring(400, L'a') + L"…");
}

std::wstring AccessibleText(const Control& control, HRESULT (STDMETHODCALLTYPE IAccessible::*getter)(VARIANT, BSTR*)) {
  void* object = nullptr;
  if (FAILED(AccessibleObjectFromWindow(control.Handle(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                        &object))) {
    return L"(no object)";
  }
  auto* const accessible = static_cast<IAccessible*>(object);
  VARIANT self{};
  self.vt = VT_I4;
  BSTR text = nullptr;
  std::wstring result = L"(none)";
  if (SUCCEEDED((accessible->*getter)(self, &text)) && text != nullptr) {
    result.assign(text, SysStringLen(text));
    SysFreeString(text);
  }
  accessible->Release();
  return result;
}

TEST(Accessibility, TextBoxWithoutALabelCanHaveAName) {
  TestForm form;
  TextBox box;
  box.Create(form, 1, {0, 0, 1500, 285});
  box.SetAccessibleName(L"Hledaný text");
  box.SetToolTipText(L"Sem pište.");
  box.SetText(L"Praha");
  CoInitialize(nullptr);
  EXPECT_EQ(AccessibleText(box, &IAccessible::get_accName), L"Hledaný text");
  EXPECT_EQ(AccessibleText(box, &IAccessible::get_accDescription), L"Sem pište.");
  CoUninitialize();
}

TEST(Accessibility, ProgressBarTellsItsValue) {
  TestForm form;
  PictureBox bar;
  bar.Create(form, 1, {0, 0, 3000, 285});
  bar.SetIsProgressBar(true);
  bar.FillRectangle(0, 0, 1290, 285);
  CoInitialize(nullptr);
  EXPECT_EQ(AccessibleText(bar, &IAccessible::get_accValue), L"43 %");
  bar.Cls();
  EXPECT_EQ(AccessibleText(bar, &IAccessible::get_accValue), L"0 %");
  CoUninitialize();
}

}  // namespace
}  // namespace kvez::forms
