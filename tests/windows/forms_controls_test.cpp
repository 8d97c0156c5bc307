// The single controls.
#include <gtest/gtest.h>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "tests/support/window_test.h"

namespace kvez::forms {
namespace {

using test::Pixels;
using test::TestForm;
using Log = std::vector<std::string>;

TEST(TextBoxTest, SettingTheTextRaisesChange) {
  TestForm form;
  TextBox box;
  int changes = 0;
  box.Create(form, 1, {0, 0, 1500, 285});
  box.Change = [&] { ++changes; };
  box.SetText(L"Příliš žluťoučký");
  EXPECT_EQ(box.Text(), L"Příliš žluťoučký");
  EXPECT_EQ(changes, 1);
}

TEST(TextBoxTest, MaxLengthLimitsTypingOnly) {
  TestForm form;
  TextBox box;
  box.Create(form, 1, {0, 0, 3000, 285});
  ASSERT_TRUE(test::ShowActive(form));
  box.SetMaxLength(6);
  for (const wchar_t digit : std::wstring(L"692 0123")) test::TypeCharacter(digit);
  EXPECT_EQ(box.Text(), L"692 01");
  box.SetText(L"longer than six");
  EXPECT_EQ(box.Text(), L"longer than six");
  box.SetText(L"");
  box.SetMaxLength(0);
  for (const wchar_t digit : std::wstring(L"692 0123")) test::TypeCharacter(digit);
  EXPECT_EQ(box.Text(), L"692 0123");
  EXPECT_EQ(box.MaxLength(), 0);
}

TEST(TextBoxTest, CtrlASelectsAll) {
  TestForm form;
  TextBox box;
  box.Create(form, 1, {0, 0, 3000, 285});
  ASSERT_TRUE(test::ShowActive(form));
  box.SetText(L"abc");
  SendMessageW(box.Handle(), EM_SETSEL, 0, 0);
  test::TypeWith(VK_CONTROL, 'A');
  EXPECT_EQ(LOWORD(SendMessageW(box.Handle(), EM_GETSEL, 0, 0)), 0);
  EXPECT_EQ(HIWORD(SendMessageW(box.Handle(), EM_GETSEL, 0, 0)), 3);
}

TEST(TextBoxTest, ReadOnlyLinesKeepTheirTextAndTab) {
  TestForm form;
  TextBox lines;
  TextBox next;
  lines.Create(form, 1, {0, 0, 3000, 1500}, TextBoxStyle::ReadOnlyLines);
  next.Create(form, 2, {0, 1800, 3000, 285});
  lines.SetText(L"první\r\ndruhá");
  ASSERT_TRUE(test::ShowActive(form));
  EXPECT_TRUE(lines.HasKeyboardFocus());
  test::TypeCharacter(L'x');
  EXPECT_EQ(lines.Text(), L"první\r\ndruhá");
  EXPECT_EQ(SendMessageW(lines.Handle(), EM_GETLINECOUNT, 0, 0), 2);
  test::Type(VK_TAB);
  EXPECT_TRUE(next.HasKeyboardFocus());
}

TEST(TextBoxTest, BackColorIsSeenEnabledAndDisabled) {
  TestForm form;
  TextBox box;
  box.Create(form, 1, {150, 150, 1500, 600});
  box.SetBackColor(RGB(192, 255, 255));
  ASSERT_TRUE(test::ShowActive(form));
  form.SetCaption(L"x");
  UpdateWindow(box.Handle());
  EXPECT_EQ(Pixels::OfWindow(box.Handle()).At(90, 25), RGB(192, 255, 255));
  box.SetEnabled(false);
  UpdateWindow(box.Handle());
  EXPECT_EQ(Pixels::OfWindow(box.Handle()).At(90, 25), RGB(192, 255, 255));
}

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
  list.EndFill();  // one too many changes nothing
  EXPECT_EQ(list.ListCount(), 1);
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

TEST(OptionButtonTest, SelectingByCodeRaisesClickAndUnselectsTheOthers) {
  TestForm form;
  Log log;
  std::array<OptionButton, 3> options;
  for (std::size_t i = 0; i < 3; ++i) {
    options[i].Create(form, static_cast<int>(i), {0, static_cast<int>(i) * 300, 1500, 285}, L"a");
    options[i].Click = [&log, i] { log.push_back(std::to_string(i)); };
  }
  options[1].SetValue(true);
  options[1].SetValue(true);
  EXPECT_TRUE(options[1].Value());
  options[2].SetValue(true);
  EXPECT_FALSE(options[1].Value());
  options[2].SetValue(false);
  EXPECT_FALSE(options[2].Value());
  options[2].SetValue(true);
  EXPECT_EQ(log, (Log{"1", "2", "2"}));
}

TEST(OptionButtonTest, ContainersAreGroups) {
  TestForm form;
  PictureBox panel;
  OptionButton outside;
  OptionButton inside;
  panel.Create(form, 1, {0, 600, 3000, 900});
  outside.Create(form, 2, {0, 0, 1500, 285}, L"a");
  inside.Create(panel, 3, {0, 0, 1500, 285}, L"b");
  outside.SetValue(true);
  inside.SetValue(true);
  EXPECT_TRUE(outside.Value());
  EXPECT_TRUE(inside.Value());
}

TEST(OptionButtonTest, ClickOfThePointerSelectsOnce) {
  TestForm form;
  int clicks = 0;
  OptionButton option;
  option.Create(form, 1, {0, 0, 1500, 285}, L"a");
  option.Click = [&] { ++clicks; };
  ASSERT_TRUE(test::ShowActive(form));
  EXPECT_FALSE(option.Value());  // getting the focus does not choose
  test::PointAt(test::CenterOf(option.Handle()));
  test::PressButton();
  test::ReleaseButton();
  test::PressButton();
  test::ReleaseButton();
  EXPECT_TRUE(option.Value());
  EXPECT_EQ(clicks, 1);
}

TEST(OptionButtonTest, ClickThatOnlyTheFocusCausesDoesNotSelect) {
  TestForm form;
  TextBox other;
  OptionButton option;
  other.Create(form, 1, {0, 600, 1500, 285});
  option.Create(form, 2, {0, 0, 1500, 285}, L"a");
  const auto report = [&] {
    SendMessageW(form.Handle(), WM_COMMAND, MAKEWPARAM(2, BN_CLICKED), reinterpret_cast<LPARAM>(option.Handle()));
  };
  ASSERT_TRUE(test::ShowActive(form));
  // What the system's option button does by itself, on some systems.
  option.GotFocus = report;
  option.SetFocus();
  EXPECT_TRUE(option.HasKeyboardFocus());
  EXPECT_FALSE(option.Value());
  report();
  EXPECT_TRUE(option.Value());
}

TEST(CheckBoxTest, ChangeOfTheValueRaisesClick) {
  TestForm form;
  Log log;
  CheckBox check;
  check.Create(form, 1, {0, 0, 1500, 285}, L"a");
  check.Click = [&] { log.push_back(std::to_string(check.Value())); };
  check.SetValue(0);
  check.SetValue(1);
  check.SetValue(1);
  check.SetValue(0);
  ASSERT_TRUE(test::ShowActive(form));
  test::PointAt(test::CenterOf(check.Handle()));
  test::PressButton();
  test::ReleaseButton();
  EXPECT_EQ(log, (Log{"1", "0", "1"}));
  EXPECT_EQ(check.Value(), 1);
}

TEST(LabelTest, ShowsTheMarkOfAnAccessKeyAsItIs) {
  TestForm form;
  Label label;
  label.Create(form, 1, {0, 0, 1500, 285}, L"a&b");
  EXPECT_EQ(label.Caption(), L"a&b");
  EXPECT_NE(GetWindowLongPtrW(label.Handle(), GWL_STYLE) & SS_NOPREFIX, 0);
  EXPECT_FALSE(label.HasAccessKey(L'b'));
  label.SetCaption(L"Zadání vyhovuje 12 obcí.");
  EXPECT_EQ(label.Caption(), L"Zadání vyhovuje 12 obcí.");
}

TEST(LabelTest, IsHiddenUntilItsFirstCaption) {
  TestForm form;
  Label label;
  label.Create(form, 1, {0, 0, 1500, 225});
  const auto shown = [&label] { return (GetWindowLongPtrW(label.Handle(), GWL_STYLE) & WS_VISIBLE) != 0; };
  EXPECT_FALSE(shown());
  label.SetCaption(L"Obec");
  EXPECT_TRUE(shown());
  label.SetCaption(L"");
  EXPECT_TRUE(shown());
  label.SetVisible(false);
  label.SetCaption(L"Okres");
  EXPECT_FALSE(shown());
  label.SetVisible(true);
  EXPECT_TRUE(shown());
}

TEST(LabelTest, TakesItsTextAwayWithTheCaption) {
  TestForm form;
  Label label;
  label.Create(form, 1, {0, 0, 3000, 225});
  ASSERT_TRUE(test::ShowActive(form));
  label.SetCaption(L"Obec");
  label.Refresh();
  const auto isEmpty = [&label] {
    const Pixels pixels = Pixels::OfWindow(label.Handle());
    return pixels.Count(label.BackColor()) == pixels.Width() * pixels.Height();
  };
  EXPECT_FALSE(isEmpty());
  label.SetCaption(L"");
  label.Refresh();
  EXPECT_TRUE(isEmpty());
}

TEST(LabelTest, RefreshPaintsAtOnce) {
  TestForm form;
  Label label;
  label.Create(form, 1, {0, 0, 3000, 285}, L"");
  ASSERT_TRUE(test::ShowActive(form));
  UpdateWindow(label.Handle());
  const Pixels before = Pixels::OfWindow(label.Handle());
  label.SetCaption(L"Nashledanou.");
  label.Refresh();
  EXPECT_NE(Pixels::OfWindow(label.Handle()), before);
}

TEST(PictureBoxTest, BarKeepsWhatWasDrawn) {
  TestForm form;
  PictureBox bar;
  bar.Create(form, 1, {150, 150, 3000, 300});
  bar.SetBackColor(RGB(255, 255, 255));
  bar.SetForeColor(RGB(0, 0, 255));
  ASSERT_TRUE(test::ShowActive(form));
  EXPECT_EQ(bar.ScaleWidth(), 3000.0F);
  EXPECT_EQ(bar.ScaleHeight(), 300.0F);
  bar.FillRectangle(0, 0, 750, 300);
  bar.FillRectangle(0, 0, 1500, 300);
  bar.Refresh();
  const Pixels half = Pixels::OfWindow(bar.Handle());
  EXPECT_EQ(half.At(99, 10), RGB(0, 0, 255));
  EXPECT_EQ(half.At(100, 10), RGB(255, 255, 255));
  RedrawWindow(bar.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
  EXPECT_EQ(Pixels::OfWindow(bar.Handle()), half);
  bar.Cls();
  bar.FillRectangle(0, 0, 300, 300);
  bar.Refresh();
  EXPECT_EQ(Pixels::OfWindow(bar.Handle()).Count(RGB(0, 0, 255)), 20 * 20);
}

TEST(PictureBoxTest, CreatedHiddenItIsNeverShown) {
  TestForm form;
  PictureBox box;
  box.SetVisible(false);
  box.Create(form, 1, {150, 150, 3000, 300});
  ASSERT_TRUE(test::ShowActive(form));
  EXPECT_FALSE(IsWindowVisible(box.Handle()));
  box.SetVisible(true);
  EXPECT_TRUE(IsWindowVisible(box.Handle()));
}

TEST(PictureBoxTest, BordersAreDrawn) {
  TestForm form;
  PictureBox sunken;
  sunken.Create(form, 1, {150, 150, 1500, 300}, PictureBorder::Sunken);
  ASSERT_TRUE(test::ShowActive(form));
  test::PumpInput();
  const HDC whole = GetWindowDC(sunken.Handle());
  EXPECT_EQ(GetPixel(whole, 5, 0), GetSysColor(COLOR_BTNSHADOW));
  ReleaseDC(sunken.Handle(), whole);
}

TEST(PictureBoxTest, BordersTakeTheirRoomFromTheInside) {
  TestForm form;
  PictureBox single;
  PictureBox sunken;
  single.Create(form, 1, {0, 0, 1500, 300}, PictureBorder::Single);
  sunken.Create(form, 2, {0, 600, 1500, 300}, PictureBorder::Sunken);
  EXPECT_EQ(single.ScaleWidth(), 1470.0F);
  EXPECT_EQ(sunken.ScaleWidth(), 1440.0F);
}

TEST(FrameTest, CoversWhatLiesBehind) {
  TestForm form;
  PictureBox behind;
  Frame frame;
  behind.Create(form, 1, {150, 150, 3000, 1500});
  behind.SetBackColor(RGB(255, 0, 0));
  frame.Create(form, 2, {150, 150, 3000, 1500}, L"Rámeček");
  frame.BringToFront();
  ASSERT_TRUE(test::ShowActive(form));
  test::PumpInput();
  const Pixels pixels = Pixels::OfWindow(form.Handle());
  EXPECT_EQ(pixels.Count(RGB(255, 0, 0)), 0);
  frame.SetVisible(false);
  UpdateWindow(behind.Handle());
  EXPECT_EQ(Pixels::OfWindow(form.Handle()).Count(RGB(255, 0, 0)), 200 * 100);
}

}  // namespace
}  // namespace kvez::forms
