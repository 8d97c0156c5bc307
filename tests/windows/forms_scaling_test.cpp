// Forms with a larger message font, and on screens that are too small for them.
#include <gtest/gtest.h>

#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/twips.h"
#include "tests/support/message_font.h"
#include "tests/support/window_test.h"

namespace kvez::forms {
namespace {

using test::TestForm;
using test::UserMessageFont;

constexpr const wchar_t* kFace = L"Tahoma";

SIZE ClientOfForm(const Form& form) {
  RECT client{};
  GetClientRect(form.Handle(), &client);
  return {client.right, client.bottom};
}

RECT OutlineOf(const Form& form) {
  RECT outer{};
  GetWindowRect(form.Handle(), &outer);
  return outer;
}

RECT WorkAreaOfScreen() {
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  return work;
}

/// The height of a control's letters in pixels.
int LettersOf(const Control& control) {
  LOGFONTW font{};
  GetObjectW(control.Font(), sizeof font, &font);
  return std::abs(static_cast<int>(font.lfHeight));
}

TEST(FormScaling, GrowsWithALargerMessageFontFromTheStart) {
  const UserMessageFont large(kFace, 16);
  const TestForm form;
  // 21 pixels instead of 12.
  EXPECT_EQ(form.Dpi(), 96U);
  EXPECT_EQ(form.Scaling(), 168U);
  EXPECT_EQ(ClientOfForm(form).cx, 700);
  EXPECT_EQ(ClientOfForm(form).cy, 350);
  EXPECT_EQ(form.ClientWidth(), 6000);
}

TEST(FormScaling, DoesNotShrinkWithASmallerFont) {
  const UserMessageFont smallFont(kFace, 7);
  const TestForm form;
  EXPECT_EQ(form.Scaling(), 96U);
  EXPECT_EQ(-form.FontDescription().lfHeight, 9);
}

TEST(FormScaling, GrowsWhileItRunsAndGoesBack) {
  const UserMessageFont usual(kFace, 9);
  TestForm form;
  Label label;
  label.Create(form, 1, {600, 300, 1500, 255}, L"Obec");
  int resizes = 0;
  form.resize = [&resizes] { ++resizes; };
  ASSERT_TRUE(test::ShowActive(form));
  resizes = 0;
  const auto place = [&label] {
    RECT bounds{};
    GetWindowRect(label.Handle(), &bounds);
    MapWindowPoints(nullptr, GetParent(label.Handle()), reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
  };
  {
    const UserMessageFont large(kFace, 16);
    EXPECT_EQ(ClientOfForm(form).cx, 700);
    EXPECT_EQ(place().left, 70);
    EXPECT_EQ(place().bottom - place().top, 30);
    EXPECT_EQ(LettersOf(label), 21);
    EXPECT_GT(resizes, 0);
  }
  EXPECT_EQ(ClientOfForm(form).cx, 400);
  EXPECT_EQ(place().left, 40);
  EXPECT_EQ(LettersOf(label), 12);
}

TEST(FormScaling, GrowsAsFarAsTheScreenGoesAndTheFontNoFurther) {
  const UserMessageFont large(kFace, 16);
  const RECT work = WorkAreaOfScreen();
  // At 100 % a tenth is left free.
  Form form(
      {.className = L"KvezTestForm", .clientWidth = 15 * static_cast<int>(work.right) * 9 / 10, .clientHeight = 3000});
  EXPECT_GT(form.Scaling(), 96U);
  EXPECT_LT(form.Scaling(), 110U);
  EXPECT_LE(OutlineOf(form).right, work.right);
  EXPECT_GE(OutlineOf(form).left, work.left);
  EXPECT_EQ(-form.FontDescription().lfHeight, MulDiv(9, static_cast<int>(form.Scaling()), 72));
}

TEST(FormScaling, FormLargerThanTheScreenFitsIt) {
  const UserMessageFont usual(kFace, 9);
  const RECT work = WorkAreaOfScreen();
  for (const auto& [width, height] : {std::pair{60000, 3000}, std::pair{3000, 40000}}) {
    const Form form({.className = L"KvezTestForm", .clientWidth = width, .clientHeight = height});
    EXPECT_LT(form.Scaling(), 96U);
    const RECT outer = OutlineOf(form);
    EXPECT_LE(outer.right - outer.left, work.right - work.left);
    EXPECT_LE(outer.bottom - outer.top, work.bottom - work.top);
    // No smaller than it must be.
    EXPECT_TRUE(outer.right - outer.left > work.right - work.left - 60 ||
                outer.bottom - outer.top > work.bottom - work.top - 60);
    EXPECT_LT(-form.FontDescription().lfHeight, 12);
  }
}

TEST(FormScaling, FormThatAnotherScalingMakesTooLargeFitsTheScreen) {
  TestForm form;
  form.ChangeDpi(480);
  EXPECT_EQ(form.Dpi(), 480U);
  EXPECT_LT(form.Scaling(), 480U);
  const RECT outer = OutlineOf(form);
  EXPECT_LE(outer.right - outer.left, WorkAreaOfScreen().right);
  form.ChangeDpi(96);
  EXPECT_EQ(ClientOfForm(form).cx, 400);
}

TEST(FormScaling, StaysOnTheScreenWhenItGrows) {
  const UserMessageFont usual(kFace, 9);
  const TestForm form;
  const RECT work = WorkAreaOfScreen();
  const RECT before = OutlineOf(form);
  SetWindowPos(form.Handle(), nullptr, work.right - (before.right - before.left),
               work.bottom - (before.bottom - before.top), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  const UserMessageFont large(kFace, 16);
  EXPECT_EQ(OutlineOf(form).right, work.right);
  EXPECT_EQ(OutlineOf(form).bottom, work.bottom);
}

TEST(FormScaling, MinimizedFormGrowsWhenItIsBack) {
  const UserMessageFont usual(kFace, 9);
  TestForm form;
  ASSERT_TRUE(test::ShowActive(form));
  ShowWindow(form.Handle(), SW_MINIMIZE);
  ASSERT_TRUE(test::PumpUntil([&form] { return IsIconic(form.Handle()) != FALSE; }));
  const UserMessageFont large(kFace, 16);
  // A window manager that is slow to minimise it does so after it was restored.
  EXPECT_TRUE(test::PumpUntil([&form] {
    if (IsIconic(form.Handle())) ShowWindow(form.Handle(), SW_RESTORE);
    return ClientOfForm(form).cx == 700;
  }));
}

TEST(FormScaling, ListsScrollAsFarAsTheirRowsHaveGrown) {
  const UserMessageFont usual(kFace, 9);
  TestForm form;
  ListBox list;
  list.Create(form, 1, {0, 0, 1500, 1500});
  const std::wstring row = L"Brandýs nad Labem-Stará Boleslav";
  list.AddRow(row, 1);
  list.SetHorizontalExtent(list.TextWidth(row + L"  "));
  const int before = list.HorizontalExtent();
  {
    const UserMessageFont large(kFace, 16);
    EXPECT_GE(list.HorizontalExtent(), list.TextWidth(row));
    EXPECT_GT(list.HorizontalExtent(), before + before / 2);
  }
  EXPECT_NEAR(list.HorizontalExtent(), before, 12);
  list.SetHorizontalExtent(0);
  const UserMessageFont large(kFace, 16);
  EXPECT_LE(list.HorizontalExtent(), 4);
}

}  // namespace
}  // namespace kvez::forms
