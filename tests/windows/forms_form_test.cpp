// A form's life, its size and scaling, what its controls are told.
#include <gtest/gtest.h>

#include <optional>
#include <thread>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/dpi.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/message_loop.h"
#include "forms/mouse_pointer.h"
#include "forms/text_box.h"
#include "forms/twips.h"
#include "tests/support/window_test.h"

namespace kvez::forms {
namespace {

using test::TestForm;
using Log = std::vector<std::string>;

TEST(Twips, FifteenToThePixelAtNinetySix) {
  EXPECT_EQ(TwipsToPixels(3105, 96), 207);
  EXPECT_EQ(TwipsToPixels(3105, 144), 311);  // 310.5
  EXPECT_EQ(TwipsToPixels(3105, 192), 414);
  EXPECT_EQ(TwipsToPixels(1215, 288), 243);
  EXPECT_EQ(PixelsToTwips(207, 96), 3105);
  EXPECT_EQ(PixelsToTwips(414, 192), 3105);
}

TEST(FormLife, EventsComeInOrder) {
  Log log;
  TestForm form;
  form.load = [&] { log.emplace_back("load"); };
  form.queryUnload = [&](std::int16_t&, UnloadMode mode) {
    log.push_back("query " + std::to_string(static_cast<int>(mode)));
  };
  form.unload = [&](std::int16_t&) { log.emplace_back(form.IsOpen() ? "unload" : "unload, window gone"); };
  form.terminate = [&] { log.emplace_back(form.IsOpen() ? "terminate, window there" : "terminate"); };
  ASSERT_TRUE(test::ShowActive(form));
  form.Load();
  EXPECT_EQ(log, Log{"load"});
  EXPECT_TRUE(form.Unload());
  EXPECT_EQ(log, (Log{"load", "query 1", "unload", "terminate"}));
  EXPECT_FALSE(form.IsOpen());
  EXPECT_TRUE(form.Unload());
  EXPECT_EQ(log.size(), 4U);
}

TEST(FormLife, EitherQuestionKeepsTheWindow) {
  TestForm form;
  bool unloadAsked = false;
  form.queryUnload = [](std::int16_t& cancel, UnloadMode) { cancel = 1; };
  form.unload = [&](std::int16_t&) { unloadAsked = true; };
  EXPECT_FALSE(form.Unload());
  EXPECT_FALSE(unloadAsked);
  form.queryUnload = nullptr;
  form.unload = [](std::int16_t& cancel) { cancel = -1; };
  EXPECT_FALSE(form.Unload());
  EXPECT_TRUE(form.IsOpen());
}

TEST(FormLife, CloseBoxAsksAsTheUser) {
  TestForm form;
  std::optional<UnloadMode> asked;
  form.queryUnload = [&](std::int16_t&, UnloadMode mode) { asked = mode; };
  PostMessageW(form.Handle(), WM_CLOSE, 0, 0);
  RunMessageLoop(form);
  EXPECT_EQ(asked, UnloadMode::User);
  EXPECT_FALSE(form.IsOpen());
}

TEST(FormLife, SecondRequestWhileTheFirstOneAsksIsRefused) {
  TestForm form;
  int asked = 0;
  form.unload = [&](std::int16_t&) {
    ++asked;
    EXPECT_FALSE(form.Unload());
  };
  EXPECT_TRUE(form.Unload());
  EXPECT_EQ(asked, 1);
}

TEST(FormLife, EndOfTheSessionAsksTheQuestionAndThenUnloads) {
  TestForm form;
  form.queryUnload = [](std::int16_t& cancel, UnloadMode mode) { cancel = mode == UnloadMode::SessionEnd ? 1 : 0; };
  EXPECT_EQ(SendMessageW(form.Handle(), WM_QUERYENDSESSION, 0, 0), FALSE);
  EXPECT_EQ(SendMessageW(form.Handle(), WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_CRITICAL)), TRUE);
  form.queryUnload = nullptr;
  EXPECT_EQ(SendMessageW(form.Handle(), WM_QUERYENDSESSION, 0, 0), TRUE);
  bool unloaded = false;
  form.unload = [&](std::int16_t&) { unloaded = true; };
  SendMessageW(form.Handle(), WM_ENDSESSION, FALSE, 0);
  EXPECT_FALSE(unloaded);
  SendMessageW(form.Handle(), WM_ENDSESSION, TRUE, 0);
  EXPECT_TRUE(unloaded);
  EXPECT_FALSE(form.IsOpen());
}

TEST(FormLife, ControlsOfAnUnloadedFormAreEmptyShells) {
  TestForm form;
  TextBox text;
  ListBox list;
  OptionButton option;
  CheckBox check;
  Label label;
  PictureBox picture;
  text.Create(form, 1, {0, 0, 1500, 285});
  list.Create(form, 2, {0, 300, 1500, 900});
  option.Create(form, 3, {0, 1200, 1500, 285}, L"a");
  check.Create(form, 4, {0, 1500, 1500, 285}, L"b");
  label.Create(form, 5, {0, 1800, 1500, 285}, L"c");
  picture.Create(form, 6, {0, 2100, 1500, 285});
  list.AddRow(L"x", 7);
  form.Unload();
  text.SetText(L"x");
  EXPECT_EQ(text.Text(), L"");
  list.AddRow(L"x", 1);
  list.SetListIndex(0);
  list.BeginFill(1, 1);
  list.EndFill();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.List(0), L"");
  option.SetValue(true);
  EXPECT_FALSE(option.Value());
  check.SetValue(1);
  EXPECT_EQ(check.Value(), 0);
  label.SetCaption(L"d");
  EXPECT_EQ(label.Caption(), L"");
  picture.FillRectangle(0, 0, 10, 10);
  picture.Cls();
  for (Control* control : form.Controls()) {
    control->SetVisible(false);
    control->SetEnabled(false);
    control->SetFocus();
    control->SetToolTipText(L"t");
    control->BringToFront();
    control->Refresh();
    control->Move({0, 0, 15, 15});
    EXPECT_FALSE(control->IsReachable());
  }
  form.SetCaption(L"x");
  EXPECT_EQ(form.Caption(), L"");
}

TEST(FormLook, BorderDecidesWhatTheFrameOffers) {
  const auto has = [](const Form& form, int index, DWORD bits) {
    return (static_cast<DWORD>(GetWindowLongPtrW(form.Handle(), index)) & bits) == bits;
  };
  const TestForm fixed(BorderStyle::FixedSingle);
  EXPECT_TRUE(has(fixed, GWL_STYLE, WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX));
  EXPECT_FALSE(has(fixed, GWL_STYLE, WS_MAXIMIZEBOX));
  EXPECT_FALSE(has(fixed, GWL_STYLE, WS_THICKFRAME));
  EXPECT_FALSE(has(fixed, GWL_EXSTYLE, WS_EX_DLGMODALFRAME));
  const TestForm dialog(BorderStyle::FixedDialog);
  EXPECT_TRUE(has(dialog, GWL_STYLE, WS_CAPTION | WS_SYSMENU));
  EXPECT_FALSE(has(dialog, GWL_STYLE, WS_MINIMIZEBOX));
  EXPECT_TRUE(has(dialog, GWL_EXSTYLE, WS_EX_DLGMODALFRAME));
  const TestForm sizable(BorderStyle::Sizable);
  EXPECT_TRUE(has(sizable, GWL_STYLE, WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_THICKFRAME));
  for (const TestForm* form : {&fixed, &dialog, &sizable}) EXPECT_TRUE(has(*form, GWL_EXSTYLE, WS_EX_CONTROLPARENT));
}

TEST(FormSize, ClientSizeIsExactAtEveryScaling) {
  TestForm form;
  for (const auto& [dpi, width, height] :
       {std::tuple{96U, 400, 200}, std::tuple{144U, 600, 300}, std::tuple{192U, 800, 400}, std::tuple{96U, 400, 200}}) {
    form.ChangeDpi(dpi);
    RECT client{};
    GetClientRect(form.Handle(), &client);
    EXPECT_EQ(client.right, width) << dpi;
    EXPECT_EQ(client.bottom, height) << dpi;
    EXPECT_EQ(form.ClientWidth(), 6000) << dpi;
    EXPECT_EQ(form.ClientHeight(), 3000) << dpi;
  }
}

RECT PlaceOf(const Control& control) {
  RECT place{};
  GetWindowRect(control.Handle(), &place);
  MapWindowPoints(nullptr, GetParent(control.Handle()), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

TEST(FormSize, ControlsKeepTheirTwips) {
  TestForm form;
  Frame frame;
  TextBox text;
  TextBox inner;
  frame.Create(form, 1, {300, 600, 3000, 1500});
  inner.Create(frame, 2, {150, 300, 1500, 285});
  text.Create(form, 3, {30, 30, 3105, 285});
  for (const unsigned dpi : {96U, 144U, 192U, 288U, 120U}) {
    form.ChangeDpi(dpi);
    const RECT place = PlaceOf(text);
    EXPECT_EQ(place.left, TwipsToPixels(30, dpi)) << dpi;
    EXPECT_EQ(place.right - place.left, TwipsToPixels(3105, dpi)) << dpi;
    EXPECT_EQ(place.bottom - place.top, TwipsToPixels(285, dpi)) << dpi;
    EXPECT_EQ(PlaceOf(inner).left, TwipsToPixels(150, dpi)) << dpi;
    EXPECT_EQ(PlaceOf(inner).top, TwipsToPixels(300, dpi)) << dpi;
    EXPECT_EQ(text.GetPlace(), (Place{30, 30, 3105, 285}));
  }
  form.ChangeDpi(96);
  text.Move({45, 60, 1500, 300});
  const RECT moved = PlaceOf(text);
  EXPECT_EQ(moved.left, 3);
  EXPECT_EQ(moved.top, 4);
  EXPECT_EQ(moved.right, 103);
  EXPECT_EQ(moved.bottom, 24);
}

LONG FontHeight(const Control& control) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control.Handle(), WM_GETFONT, 0, 0)), sizeof(font), &font);
  return font.lfHeight;
}

TEST(FormSize, FontsScaleWithTheForm) {
  TestForm form;
  Label plain;
  Label large;
  plain.Create(form, 1, {0, 0, 1500, 285}, L"a");
  large.Create(form, 2, {0, 300, 1500, 285}, L"b");
  large.SetFontStyle({true, 200});
  const LONG height = FontHeight(plain);
  EXPECT_LT(height, 0);
  EXPECT_EQ(FontHeight(large), 2 * height);
  form.ChangeDpi(192);
  EXPECT_EQ(FontHeight(plain), 2 * height);
  EXPECT_EQ(FontHeight(large), 4 * height);
  large.SetFontStyle({});
  EXPECT_EQ(FontHeight(large), 2 * height);
}

TEST(FormSize, ResizeIsToldOfScalingAndSize) {
  TestForm form(BorderStyle::Sizable);
  int resizes = 0;
  form.resize = [&] { ++resizes; };
  const auto setWidth = [&form](int pixels) {
    SetWindowPos(form.Handle(), nullptr, 0, 0, pixels, 300, SWP_NOMOVE | SWP_NOZORDER);
  };
  setWidth(350);
  EXPECT_EQ(resizes, 0);  // not before it is loaded
  form.Load();
  setWidth(450);
  EXPECT_EQ(resizes, 1);
  form.ChangeDpi(144);
  EXPECT_GT(resizes, 1);
}

RECT OuterOf(const Form& form) {
  RECT outer{};
  GetWindowRect(form.Handle(), &outer);
  return outer;
}

TEST(FormSize, IsMadeInTheMiddleOfTheScreenOrOfItsOwner) {
  TestForm owner;
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const RECT outer = OuterOf(owner);
  EXPECT_NEAR(outer.left + outer.right, work.left + work.right, 2);
  EXPECT_NEAR(outer.top + outer.bottom, work.top + work.bottom, 2);

  SetWindowPos(owner.Handle(), nullptr, 200, 150, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  const Form child({.className = L"KvezTestForm",
                    .border = BorderStyle::FixedDialog,
                    .clientWidth = 1500,
                    .clientHeight = 900,
                    .owner = &owner});
  const RECT inner = OuterOf(child);
  EXPECT_NEAR(inner.left + inner.right, outer.right - outer.left + 400, 2);
  EXPECT_NEAR(inner.top + inner.bottom, outer.bottom - outer.top + 300, 2);
  EXPECT_EQ(child.ClientWidth(), 1500);
  EXPECT_EQ(child.ClientHeight(), 900);
}

TEST(FormSize, StaysOnTheScreenOfItsOwner) {
  TestForm owner;
  SetWindowPos(owner.Handle(), nullptr, -390, -190, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  const TestForm child(BorderStyle::FixedDialog, &owner);
  EXPECT_EQ(OuterOf(child).left, 0);
  EXPECT_EQ(OuterOf(child).top, 0);
}

TEST(FormSize, MovingAControlToItsPlaceMovesNothing) {
  TestForm form;
  TextBox text;
  text.Create(form, 1, {30, 30, 3105, 285});
  SetWindowPos(text.Handle(), nullptr, 20, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  text.Move({30, 30, 3105, 285});
  EXPECT_EQ(PlaceOf(text).left, 20);
  form.ChangeDpi(96);
  EXPECT_EQ(PlaceOf(text).left, 2);
}

int WidthOf(HICON icon) {
  ICONINFO information{};
  if (!GetIconInfo(icon, &information)) return 0;
  const OwnedBitmap mask(information.hbmMask);
  const OwnedBitmap colors(information.hbmColor);
  BITMAP bitmap{};
  GetObjectW(information.hbmMask, sizeof bitmap, &bitmap);
  return bitmap.bmWidth;
}

HICON IconOf(const Form& form, WPARAM kind) {
  return reinterpret_cast<HICON>(SendMessageW(form.Handle(), WM_GETICON, kind, 0));
}

TEST(FormIcon, IsThatOfTheClassUntilTheScalingIsAnother) {
  const Form form({.className = L"KvezTestIcon", .clientWidth = 1500, .clientHeight = 900, .icon = L"NASTAVENI"});
  const auto classIcon = [&form](int index) { return reinterpret_cast<HICON>(GetClassLongPtrW(form.Handle(), index)); };
  EXPECT_EQ(WidthOf(classIcon(GCLP_HICON)), GetSystemMetrics(SM_CXICON));
  EXPECT_EQ(WidthOf(classIcon(GCLP_HICONSM)), GetSystemMetrics(SM_CXSMICON));
  EXPECT_EQ(IconOf(form, ICON_BIG), nullptr);
  const RECT suggested = OuterOf(form);
  SendMessageW(form.Handle(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  EXPECT_EQ(WidthOf(IconOf(form, ICON_BIG)), SystemMetric(SM_CXICON, 192));
  EXPECT_EQ(WidthOf(IconOf(form, ICON_SMALL)), SystemMetric(SM_CXSMICON, 192));
  EXPECT_NE(SystemMetric(SM_CXICON, 192), GetSystemMetrics(SM_CXICON));
}

TEST(FormIcon, OfADialogIsItsOwn) {
  const Form form({.className = L"KvezTestIcon",
                   .border = BorderStyle::FixedDialog,
                   .clientWidth = 1500,
                   .clientHeight = 900,
                   .icon = L"NASTAVENI"});
  EXPECT_EQ(WidthOf(IconOf(form, ICON_BIG)), GetSystemMetrics(SM_CXICON));
  EXPECT_EQ(WidthOf(IconOf(form, ICON_SMALL)), GetSystemMetrics(SM_CXSMICON));
}

TEST(ScreenPointer, HourglassHoldsOverAllWindows) {
  TestForm form;
  TextBox text;
  text.Create(form, 1, {0, 0, 1500, 285});
  Screen::SetMousePointer(kPointerHourglass);
  for (const HWND window : {form.Handle(), text.Handle()}) {
    SetCursor(nullptr);
    SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
  }
  Screen::SetMousePointer(kPointerDefault);
  SendMessageW(text.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(text.Handle()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_IBEAM));
}

TEST(FormTimer, TicksUntilItIsStopped) {
  TestForm form;
  Timer timer;
  int ticks = 0;
  timer.Create(form, 10);
  timer.Elapsed = [&] {
    if (++ticks == 3) timer.SetEnabled(false);
  };
  test::PumpWithin(0.1, [&] { return ticks > 0; });
  EXPECT_EQ(ticks, 0);
  timer.SetEnabled(true);
  EXPECT_TRUE(test::PumpUntil([&] { return ticks == 3; }));
  EXPECT_FALSE(test::PumpWithin(0.1, [&] { return ticks > 3; }));
}

TEST(FormTimer, EnablingAgainStartsTheIntervalAnew) {
  TestForm form;
  Timer timer;
  int ticks = 0;
  timer.Create(form, 200);
  timer.Elapsed = [&] {
    ++ticks;
    timer.SetEnabled(false);
  };
  const ULONGLONG start = GetTickCount64();
  timer.SetEnabled(true);
  test::PumpWithin(0.12, [] { return false; });
  timer.SetEnabled(true);
  EXPECT_TRUE(test::PumpUntil([&] { return ticks == 1; }));
  EXPECT_GE(GetTickCount64() - start, 300U);
}

TEST(FormTimer, NothingTicksAfterUnload) {
  TestForm form;
  Timer timer;
  int ticks = 0;
  timer.Create(form, 10, true);
  timer.Elapsed = [&] { ++ticks; };
  form.Unload();
  EXPECT_FALSE(test::PumpWithin(0.1, [&] { return ticks > 0; }));
}

TEST(MessageLoop, ReturnsWhenASentMessageEndsItsForm) {
  TestForm form;
  TestForm other;
  DoEvents();
  const DWORD loopThread = GetCurrentThreadId();
  const HANDLE returned = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  bool wokenByTheTest = false;
  std::thread sender([&, window = form.Handle()] {
    // Nothing else is in the queue that could wake the loop.
    SendMessageW(window, WM_CLOSE, 0, 0);
    wokenByTheTest = WaitForSingleObject(returned, 10000) == WAIT_TIMEOUT;
    if (wokenByTheTest) PostThreadMessageW(loopThread, WM_NULL, 0, 0);
  });
  RunMessageLoop(form);
  SetEvent(returned);
  sender.join();
  CloseHandle(returned);
  EXPECT_FALSE(wokenByTheTest);
  EXPECT_FALSE(form.IsOpen());
  EXPECT_TRUE(other.IsOpen());
}

TEST(MessageLoop, DoEventsLeavesTheEndToTheLoopAround) {
  TestForm form;
  PostQuitMessage(3);
  DoEvents();
  MSG message{};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 3U);
}

}  // namespace
}  // namespace kvez::forms
