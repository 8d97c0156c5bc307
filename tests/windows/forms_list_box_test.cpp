// The list box.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "forms/list_box.h"
#include "tests/support/window_test.h"

namespace kvez::forms {
namespace {

using test::Pixels;
using test::TestForm;
using Log = std::vector<std::string>;

class ListBoxTest : public ::testing::Test {
 protected:
  ListBoxTest() {
    list.Create(form, 1, {150, 150, 3105, 2790});
    list.Click = [this] { log.push_back("click " + std::to_string(list.ListIndex())); };
  }

  void Fill(int rows) {
    list.BeginFill(static_cast<std::size_t>(rows), static_cast<std::size_t>(rows) * 8);
    for (int i = 0; i < rows; ++i) list.AddRow(L"Obec " + std::to_wstring(i), i + 1);
    list.EndFill();
  }

  POINT RowOnScreen(int row) {
    RECT item{};
    SendMessageW(list.Handle(), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return test::OnScreen(list.Handle(), 20, (item.top + item.bottom) / 2);
  }

  Log Take() { return std::exchange(log, {}); }

  TestForm form;
  ListBox list;
  Log log;
};

TEST_F(ListBoxTest, HeightIsExactlyTheDesignedOne) {
  RECT place{};
  GetWindowRect(list.Handle(), &place);
  EXPECT_EQ(place.right - place.left, 207);
  EXPECT_EQ(place.bottom - place.top, 186);
}

TEST_F(ListBoxTest, RowsHaveTextAndData) {
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
  list.AddRow(L"Žďár nad Sázavou", 591);
  list.AddRow(L"Aš", -1);
  EXPECT_EQ(list.ListCount(), 2);
  EXPECT_EQ(list.List(0), L"Žďár nad Sázavou");
  EXPECT_EQ(list.ItemData(0), 591);
  EXPECT_EQ(list.ItemData(1), -1);
  EXPECT_EQ(list.ItemData(2), 0);
  EXPECT_EQ(list.ItemData(-1), 0);
  EXPECT_EQ(list.List(2), L"");
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(Take(), Log{});
}

TEST_F(ListBoxTest, SelectingByCodeRaisesClickWhenTheSelectionChanges) {
  Fill(5);
  list.SetListIndex(3);
  list.SetListIndex(3);
  list.SetListIndex(-1);
  list.SetListIndex(-1);
  list.SetListIndex(4);
  list.SetListIndex(5);  // out of range: none
  EXPECT_EQ(Take(), (Log{"click 3", "click -1", "click 4", "click -1"}));
}

TEST_F(ListBoxTest, SelectingByPointerAndKeyboardRaisesClick) {
  Fill(5);
  list.MouseUp = [this](std::int16_t& Button, std::int16_t&, float&, float&) {
    log.push_back("up " + std::to_string(Button));
  };
  ASSERT_TRUE(test::ShowActive(form));
  test::PointAt(RowOnScreen(2));
  test::PressButton();
  test::ReleaseButton();
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(Take(), (Log{"click 2", "up 1"}));
  test::Type(VK_DOWN);
  EXPECT_EQ(Take(), Log{"click 3"});
  test::PressButton(test::MouseButton::Right);
  test::ReleaseButton(test::MouseButton::Right);
  EXPECT_EQ(Take(), Log{"up 2"});
}

TEST_F(ListBoxTest, MouseMoveGivesTwips) {
  Fill(5);
  float x = -1;
  float y = -1;
  list.MouseMove = [&](std::int16_t&, std::int16_t&, float& X, float& Y) {
    x = X;
    y = Y;
  };
  SendMessageW(list.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(10, 21));
  EXPECT_EQ(x, 150.0F);
  EXPECT_EQ(y, 315.0F);
  form.ChangeDpi(192);
  SendMessageW(list.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(10, 21));
  EXPECT_EQ(x, 75.0F);
  EXPECT_EQ(y, 157.5F);
}

TEST_F(ListBoxTest, ItemFromPointKnowsWhereTheRowsEnd) {
  Fill(3);
  const int height = static_cast<int>(SendMessageW(list.Handle(), LB_GETITEMHEIGHT, 0, 0));
  EXPECT_EQ(list.ItemFromPoint(5, 1), 0);
  EXPECT_EQ(list.ItemFromPoint(5, 3 * height - 1), 2);
  EXPECT_EQ(list.ItemFromPoint(5, 3 * height + 5), -1);
  list.Clear();
  EXPECT_EQ(list.ItemFromPoint(5, 1), -1);
}

TEST_F(ListBoxTest, ItemFromPointCountsBeyondSixteenBits) {
  Fill(70000);
  const int height = static_cast<int>(SendMessageW(list.Handle(), LB_GETITEMHEIGHT, 0, 0));
  for (const int top : {0, 1, 65534, 65535, 65536, 69990}) {
    SendMessageW(list.Handle(), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
    const int first = static_cast<int>(SendMessageW(list.Handle(), LB_GETTOPINDEX, 0, 0));
    EXPECT_EQ(list.ItemFromPoint(5, 1), first);
    EXPECT_EQ(list.ItemFromPoint(5, 3 * height + 1), first + 3);
  }
  EXPECT_EQ(list.ItemFromPoint(5, -1), -1);
  EXPECT_EQ(list.ItemFromPoint(-1, 1), -1);
  EXPECT_EQ(list.ItemFromPoint(5, 100000), -1);
}

TEST_F(ListBoxTest, MenuOpensUnderTheSelectedRowAsLongAsThatIsSeen) {
  Fill(100);
  const int height = static_cast<int>(SendMessageW(list.Handle(), LB_GETITEMHEIGHT, 0, 0));
  const POINT corner = test::OnScreen(list.Handle(), 0, 0);
  const auto below = [&] {
    const POINT place = list.MenuPlace();
    EXPECT_EQ(place.x, corner.x);
    return place.y - corner.y;
  };
  EXPECT_EQ(below(), 0);
  list.SetListIndex(2);
  EXPECT_EQ(list.RowRectangle(2).top, 2 * height);
  EXPECT_EQ(list.RowRectangle(2).bottom, 3 * height);
  EXPECT_EQ(below(), 3 * height);
  SendMessageW(list.Handle(), LB_SETTOPINDEX, 50, 0);
  EXPECT_EQ(list.RowRectangle(2).top, -48 * height);
  EXPECT_EQ(below(), 0);
  SendMessageW(list.Handle(), LB_SETTOPINDEX, 0, 0);
  list.SetListIndex(99);
  SendMessageW(list.Handle(), LB_SETTOPINDEX, 0, 0);
  EXPECT_EQ(below(), 0);
}

TEST_F(ListBoxTest, FindStringIgnoresCaseAndBeginsAtTheTop) {
  list.AddRow(L"Brno", 1);
  list.AddRow(L"Praha", 2);
  list.AddRow(L"Prachatice", 3);
  EXPECT_EQ(list.FindString(L"pra"), 1);
  EXPECT_EQ(list.FindString(L"PRAC"), 2);
  EXPECT_EQ(list.FindString(L"x"), -1);
}

TEST_F(ListBoxTest, FillingIsNotDrawnUntilItsEnd) {
  ASSERT_TRUE(test::ShowActive(form));
  UpdateWindow(list.Handle());
  list.BeginFill(1, 10);
  list.BeginFill(1, 10);
  list.AddRow(L"Obec", 1);
  list.EndFill();
  EXPECT_FALSE(GetUpdateRect(list.Handle(), nullptr, FALSE));
  list.EndFill();
  EXPECT_TRUE(GetUpdateRect(list.Handle(), nullptr, FALSE));
  EXPECT_EQ(list.ListCount(), 1);
}

TEST_F(ListBoxTest, WhatItReliesOnIsAsserted) {
  Fill(3);
  EXPECT_NONFATAL_FAILURE(list.EndFill(), "EndFill comes after its BeginFill");
  EXPECT_NONFATAL_FAILURE(list.RowRectangle(3), "the row is one of the list's");
  EXPECT_NONFATAL_FAILURE(list.RowRectangle(-1), "the row is one of the list's");
  // And it goes on.
  Fill(1);
  EXPECT_EQ(list.ListCount(), 4);
}

TEST_F(ListBoxTest, ScrollBarsAreNotDrawnWhileItIsFilled) {
  ASSERT_TRUE(test::ShowActive(form));
  list.BeginFill(100, 1000);
  for (int row = 0; row < 100; ++row) list.AddRow(L"Obec", row);
  list.SetHorizontalExtent(2000);
  // For the system it is hidden: nothing of it is drawn.
  EXPECT_FALSE(IsWindowVisible(list.Handle()));
  EXPECT_TRUE(list.Visible());
  list.EndFill();
  EXPECT_TRUE(IsWindowVisible(list.Handle()));
  constexpr LONG_PTR kBoth = WS_HSCROLL | WS_VSCROLL;
  EXPECT_EQ(GetWindowLongPtrW(list.Handle(), GWL_STYLE) & kBoth, kBoth);
}

TEST_F(ListBoxTest, HiddenWhileItIsFilledStaysHidden) {
  ASSERT_TRUE(test::ShowActive(form));
  list.BeginFill(1, 10);
  list.SetVisible(false);
  list.EndFill();
  EXPECT_FALSE(IsWindowVisible(list.Handle()));
  list.SetVisible(true);
  EXPECT_TRUE(IsWindowVisible(list.Handle()));
}

TEST_F(ListBoxTest, ManyRowsKeepTheirNumbers) {
  Fill(20000);
  EXPECT_EQ(list.ListCount(), 20000);
  EXPECT_EQ(list.ItemData(19999), 20000);
  EXPECT_EQ(list.List(12345), L"Obec 12345");
}

TEST_F(ListBoxTest, WidthsFromTheTableAreThoseOfTheDevice) {
  const std::vector<std::wstring> texts{L"",
                                        L"Praha",
                                        L"Žďár nad Sázavou",
                                        L"Nové Město na Moravě (Žďár n. S.)",
                                        L"AVAVA To. WAW",
                                        L"110 00",
                                        L"\x0158\x0148\x010D \u03A9 \u4E2D",
                                        L"ěščřžýáíéúůďťňóĚŠČŘŽÝÁÍÉÚŮĎŤŇÓ"};
  const auto check = [&] {
    const HDC context = GetDC(list.Handle());
    const HGDIOBJ old = SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(list.Handle(), WM_GETFONT, 0, 0)));
    for (const std::wstring& text : texts) {
      SIZE size{};
      GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
      EXPECT_EQ(list.TextWidth(text), size.cx) << form.Dpi();
    }
    SelectObject(context, old);
    ReleaseDC(list.Handle(), context);
  };
  check();
  form.ChangeDpi(144);
  check();
  list.SetFontStyle({true, 100});
  check();
}

TEST_F(ListBoxTest, ScrollsSidewaysByItsExtent) {
  Fill(3);
  list.SetHorizontalExtent(1000);
  EXPECT_EQ(list.HorizontalExtent(), 1000);
  list.Clear();
  EXPECT_EQ(list.HorizontalExtent(), 1000);
}

TEST_F(ListBoxTest, ContextMenuKeyIsToldForTheKeyboardOnly) {
  int asked = 0;
  list.ContextMenuKey = [&] { ++asked; };
  SendMessageW(list.Handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list.Handle()), MAKELPARAM(10, 10));
  EXPECT_EQ(asked, 0);
  SendMessageW(list.Handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list.Handle()), -1);
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace kvez::forms
