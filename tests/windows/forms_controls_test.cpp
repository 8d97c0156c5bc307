// The single controls but the list box.
#include <gtest/gtest.h>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/text_ruler.h"
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

// By its character: some systems' text boxes answer to the key, ours to what comes of it.
TEST(TextBoxTest, CtrlASelectsAll) {
  TestForm form;
  TextBox box;
  box.Create(form, 1, {0, 0, 3000, 285});
  ASSERT_TRUE(test::ShowActive(form));
  box.SetText(L"abc");
  SendMessageW(box.Handle(), EM_SETSEL, 0, 0);
  SendMessageW(box.Handle(), WM_CHAR, 1, 1);
  EXPECT_EQ(LOWORD(SendMessageW(box.Handle(), EM_GETSEL, 0, 0)), 0);
  EXPECT_EQ(HIWORD(SendMessageW(box.Handle(), EM_GETSEL, 0, 0)), 3);
}

TEST(TextBoxTest, ClipboardKeysWorkWithoutTheirCharacters) {
  TestForm form;
  TextBox box;
  box.Create(form, 1, {0, 0, 1500, 285});
  box.SetText(L"Praha");
  box.SelectAll();
  box.DoClipboardKey('X');
  EXPECT_EQ(box.Text(), L"");
  box.DoClipboardKey('Z');
  EXPECT_EQ(box.Text(), L"Praha");
  box.SelectAll();
  box.DoClipboardKey('C');
  box.SetText(L"");
  box.Paste = [](const std::wstring& text) { return L"Nová " + text; };
  box.DoClipboardKey('V');
  EXPECT_EQ(box.Text(), L"Nová Praha");
  box.SelectAll();
  box.DoClipboardKey('A');
  EXPECT_EQ(box.Text(), L"Nová Praha");
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

TEST(TextBoxTest, OnlyWhatCanBeTypedIntoLooksLikeAField) {
  TestForm form;
  TextBox field;
  TextBox lines;
  field.Create(form, 1, {0, 0, 3000, 285});
  lines.Create(form, 2, {0, 600, 3000, 600}, TextBoxStyle::ReadOnlyLines);
  ASSERT_NE(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(field.BackColor(), GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(lines.BackColor(), GetSysColor(COLOR_BTNFACE));
  field.SetEnabled(false);
  EXPECT_EQ(field.BackColor(), GetSysColor(COLOR_BTNFACE));
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
  EXPECT_EQ(check.Value(), 0);
  check.SetValue(1);
  EXPECT_EQ(check.Value(), 1);
  check.SetValue(1);
  check.SetValue(0);
  ASSERT_TRUE(test::ShowActive(form));
  test::PointAt(test::CenterOf(check.Handle()));
  test::PressButton();
  test::ReleaseButton();
  EXPECT_EQ(log, (Log{"1", "0", "1"}));
  EXPECT_EQ(check.Value(), 1);
}

TEST(CheckBoxTest, SquareStandsAtTheTop) {
  TestForm form;
  CheckBox box;
  box.Create(form, 1, {0, 0, 1500, 255}, L"Volba");
  EXPECT_EQ(GetWindowLongPtrW(box.Handle(), GWL_STYLE) & BS_VCENTER, BS_TOP);
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

TEST(LabelTest, EndsInAnEllipsisWhereItsPlaceEnds) {
  TestForm form;
  Label label;
  label.Create(form, 1, {0, 0, 3000, 255});
  ASSERT_TRUE(test::ShowActive(form));
  const auto picture = [&label](const std::wstring& caption) {
    label.SetCaption(caption);
    label.Refresh();
    return Pixels::OfWindow(label.Handle());
  };
  const std::wstring text = L"Nová Ves u Nového Města na Moravě a okolí";
  // The longest beginning that leaves room for the ellipsis.
  std::wstring cut = text;
  while (!cut.empty() && TextRuler().Width(cut + L"...", label.Font()) > form.ToPixels(3000)) cut.pop_back();
  ASSERT_LT(cut.size(), text.size());
  EXPECT_EQ(picture(text), picture(cut + L"..."));
  label.SetCaption(cut + L"...");
  EXPECT_EQ(label.ShownToolTip(), L"");
  label.SetCaption(text);
  EXPECT_EQ(label.ShownToolTip(), text);
  // A blank is no reason for a second line, which nobody would see.
  EXPECT_NE(picture(L"Nová Ves"), picture(L"Nová"));
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
