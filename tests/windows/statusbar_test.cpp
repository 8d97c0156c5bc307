#include "mainwindow/statusbar.h"

#include <type_traits>

#include "forms/dpi.h"
#include "mainwindow/statusbar_font.h"
#include "tests/support/handle_count.h"
#include "tests/windows/statusbar_fixture.h"

namespace kvez::test {
namespace {

TEST_F(StatusBarTest, IsAChildAtTheBottomOfItsParent) {
  bar.Create(window.Handle(), false);
  ASSERT_NE(bar.Handle(), nullptr);
  EXPECT_EQ(GetParent(bar.Handle()), window.Handle());
  EXPECT_EQ(GetWindowLongW(bar.Handle(), GWL_EXSTYLE), 0);
  EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(bar.Handle(), GWL_STYLE)) & ~DWORD{WS_VISIBLE}, 0x40000003U);
  wchar_t name[64] = {};
  GetClassNameW(bar.Handle(), name, 64);
  EXPECT_STREQ(name, L"msctls_statusbar32");

  RECT barRectangle{};
  RECT client{};
  GetWindowRect(bar.Handle(), &barRectangle);
  MapWindowPoints(nullptr, window.Handle(), reinterpret_cast<POINT*>(&barRectangle), 2);
  GetClientRect(window.Handle(), &client);
  EXPECT_EQ(barRectangle.left, 0);
  EXPECT_EQ(barRectangle.right, client.right);
  EXPECT_EQ(barRectangle.bottom, client.bottom);
}

TEST_F(StatusBarTest, StyleFollowsTheSizeGrip) {
  ShowWindow(window.Handle(), SW_SHOWNOACTIVATE);
  bar.Create(window.Handle(), false);
  EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(bar.Handle(), GWL_STYLE)), 0x50000003U);
  bar.Destroy();
  bar.Create(window.Handle(), true);
  EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(bar.Handle(), GWL_STYLE)), 0x50000103U);
}

TEST_F(StatusBarTest, FollowsTheParentsSize) {
  bar.Create(window.Handle(), false);
  SetWindowPos(window.Handle(), nullptr, 0, 0, 800, 500, SWP_NOZORDER | SWP_NOACTIVATE);
  bar.ParentResized();
  RECT barRectangle{};
  RECT client{};
  GetWindowRect(bar.Handle(), &barRectangle);
  MapWindowPoints(nullptr, window.Handle(), reinterpret_cast<POINT*>(&barRectangle), 2);
  GetClientRect(window.Handle(), &client);
  EXPECT_EQ(barRectangle.right, client.right);
  EXPECT_EQ(barRectangle.bottom, client.bottom);
}

TEST_F(StatusBarTest, PanelsScaleWithTheResolution) {
  bar.Create(window.Handle(), false);
  bar.DpiChanged(96);
  EXPECT_EQ(RightEdges(), (std::vector<int>{34, 142, -1}));
  bar.DpiChanged(144);
  EXPECT_EQ(RightEdges(), (std::vector<int>{51, 213, -1}));
  bar.DpiChanged(192);
  EXPECT_EQ(RightEdges(), (std::vector<int>{68, 284, -1}));
  bar.DpiChanged(96);
  EXPECT_EQ(RightEdges(), (std::vector<int>{34, 142, -1}));
}

TEST_F(StatusBarTest, FontScalesAndStaysReadable) {
  bar.Create(window.Handle(), false);
  const auto fontHeight = [&](unsigned dpi) {
    bar.DpiChanged(dpi);
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(bar.Handle(), WM_GETFONT, 0, 0)), sizeof description, &description);
    return -description.lfHeight;
  };
  EXPECT_GE(fontHeight(96), 11);
  EXPECT_GE(fontHeight(144), 16);
  EXPECT_GE(fontHeight(192), 21);
  EXPECT_GT(fontHeight(192), fontHeight(96));
}

TEST(StatusBarFontTest, ShrinksUntilTheDateFits) {
  const auto ruler = [](int height) { return height * 9; };
  EXPECT_EQ(FittingFontHeight(12, 8, 108, ruler), 12);
  EXPECT_EQ(FittingFontHeight(12, 8, 107, ruler), 11);
  EXPECT_EQ(FittingFontHeight(12, 8, 81, ruler), 9);
}

TEST(StatusBarFontTest, StopsAtTheSmallestReadableHeight) {
  const auto ruler = [](int height) { return height * 9; };
  EXPECT_EQ(FittingFontHeight(12, 11, 50, ruler), 11);
  // A user who chose a font below that keeps it.
  EXPECT_EQ(FittingFontHeight(9, 11, 50, ruler), 9);
}

/// A language with long names for its days.
class LongDays : public PortableFormats {
 public:
  std::wstring Date(const DateTime& value, std::wstring_view picture) override {
    std::wstring text = PortableFormats::Date(value, picture);
    return picture.starts_with(L"dddd") ? L"Donnerstagabend" + text.substr(text.find(L',')) : text;
  }
};

TEST(StatusBarFontTest, WhereTheSmallestFontIsStillTooWideThePanelIsWider) {
  LongDays formats;
  const LongestClockTexts texts(formats);
  for (const unsigned dpi : {96U, 144U}) {
    const OwnedFont font = StatusBarFont(dpi, texts);
    const auto [time, date] = ClockPanelEdges(dpi, font.Get(), texts);
    const OwnedMemoryContext context(CreateCompatibleDC(nullptr));
    const ObjectSelection selection(context.Get(), font.Get());
    SIZE size{};
    const std::wstring longest = L"Donnerstagabend, 24.12.2026";
    GetTextExtentPoint32W(context.Get(), longest.c_str(), static_cast<int>(longest.size()), &size);
    EXPECT_EQ(time, MulDiv(34, static_cast<int>(dpi), 96));
    EXPECT_GE(date - time, size.cx + 6);
    EXPECT_GT(date, MulDiv(142, static_cast<int>(dpi), 96));
  }
}

TEST(StatusBarFontTest, AWideFontWidensBothPanelsOfTheClock) {
  PortableFormats formats;
  const OwnedFont font(CreateFontW(-30, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma"));
  const auto [time, date] = ClockPanelEdges(96, font.Get(), LongestClockTexts(formats));
  EXPECT_GT(time, 34 + 20);
  EXPECT_GT(date, 142 + 100);
}

TEST_F(StatusBarTest, ClockIsWrittenAtOnce) {
  bar.Create(window.Handle(), false);
  EXPECT_EQ(Text(kClockPanel), L" 9:05");
  EXPECT_EQ(Text(kDatePanel), L" pondělí, 16.11.2026");
  EXPECT_EQ(Text(kMessagePanel), L"");
  EXPECT_EQ(Flags(kClockPanel), 0);
  EXPECT_EQ(Flags(kDatePanel), 0);
}

TEST_F(StatusBarTest, ClockTicks) {
  bar.Create(window.Handle(), false);
  clock.now = {2027, 1, 1, 0, 0, 0};
  EXPECT_TRUE(PumpUntil([&] { return Text(kClockPanel) == L" 0:00"; }));
  EXPECT_EQ(Text(kDatePanel), L"   pátek, 1.1.2027");
}

TEST_F(StatusBarTest, ClockGoesOnAfterAnError) {
  bar.Create(window.Handle(), false);
  clock.fails = true;
  clock.now = {2026, 11, 16, 9, 6, 0};
  EXPECT_TRUE(PumpUntil([&] { return clock.failures > 0; }));
  clock.fails = false;
  EXPECT_TRUE(PumpUntil([&] { return Text(kClockPanel) == L" 9:06"; }));
}

TEST_F(StatusBarTest, SecondBarReplacesTheFirst) {
  bar.Create(window.Handle(), false);
  StatusBar second(formats, clock);
  second.Create(window.Handle(), false);
  EXPECT_EQ(bar.Handle(), nullptr);
  EXPECT_NE(second.Handle(), nullptr);
}

TEST_F(StatusBarTest, SetTextWritesCzechTextWithItsFlags) {
  bar.Create(window.Handle(), false);
  bar.SetText(L"Příliš žluťoučký kůň úpěl ďábelské ódy – „ÄÖÜ“", kMessagePanel, 0);
  EXPECT_EQ(Text(kMessagePanel), L"Příliš žluťoučký kůň úpěl ďábelské ódy – „ÄÖÜ“");
  EXPECT_EQ(Flags(kMessagePanel), 0);
  bar.SetText(L"Bez okraje", kMessagePanel, 256);
  EXPECT_EQ(Text(kMessagePanel), L"Bez okraje");
  EXPECT_EQ(Flags(kMessagePanel), SBT_NOBORDERS);
  bar.SetText(L"Vystouplý", kMessagePanel, 512);
  EXPECT_EQ(Text(kMessagePanel), L"Vystouplý");
  EXPECT_EQ(Flags(kMessagePanel), SBT_POPOUT);
}

TEST_F(StatusBarTest, SetTextKeepsWhatTheSystemCodePageLacks) {
  bar.Create(window.Handle(), false);
  bar.SetText(L"語", kMessagePanel, 0);
  EXPECT_EQ(Text(kMessagePanel), L"語");
}

TEST_F(StatusBarTest, LongTextsStayWhole) {
  bar.Create(window.Handle(), false);
  const std::wstring text(1000, L'ž');
  bar.SetText(text, kMessagePanel, 0);
  EXPECT_EQ(Text(kMessagePanel), text);
}

TEST_F(StatusBarTest, EveryIconComesInItsOwnSize) {
  bar.Create(window.Handle(), false);
  bar.DpiChanged(96);
  const std::pair<StatusIcon, const wchar_t*> icons[] = {
      {StatusIcon::Program, L"APLIKACE"},   {StatusIcon::Search, L"NAJDI"},     {StatusIcon::Help, L"NAPOVEDA"},
      {StatusIcon::Mail, L"MEIL"},          {StatusIcon::Computer, L"POCITAC"}, {StatusIcon::Internet, L"INTERNET"},
      {StatusIcon::Settings, L"NASTAVENI"}, {StatusIcon::Loading, L"NACITANI"}, {StatusIcon::List, L"SEZNAM"},
      {StatusIcon::Download, L"STAZENI"},   {StatusIcon::Memory, L"PAMET"}};
  for (const auto& [icon, name] : icons) {
    bar.SetIcon(kMessagePanel, -1, icon);
    ASSERT_NE(Icon(kMessagePanel), nullptr) << name;
    EXPECT_EQ(IconSize(Icon(kMessagePanel)).cx, 16) << name;
    EXPECT_EQ(IconSize(Icon(kMessagePanel)).cy, 16) << name;
    // The drawing made for 16 pixels, not a shrunk larger one.
    const OwnedIcon small(
        static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), name, IMAGE_ICON, 16, 16, LR_DEFAULTCOLOR)));
    EXPECT_EQ(IconPixels(Icon(kMessagePanel)), IconPixels(small.Get())) << name;
  }
}

TEST_F(StatusBarTest, IconsDiffer) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  const auto first = IconPixels(Icon(kMessagePanel));
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Mail);
  EXPECT_NE(IconPixels(Icon(kMessagePanel)), first);
}

TEST_F(StatusBarTest, TheSameIconIsNotLoadedAgain) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  const HICON first = Icon(kMessagePanel);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  EXPECT_EQ(Icon(kMessagePanel), first);
  // The form tells its resolution at every change of its size.
  bar.DpiChanged(forms::WindowDpi(window.Handle()));
  EXPECT_EQ(Icon(kMessagePanel), first);
}

TEST_F(StatusBarTest, IconsScaleWithTheResolution) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  bar.DpiChanged(144);
  EXPECT_EQ(IconSize(Icon(kMessagePanel)).cx, 24);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Mail);
  EXPECT_EQ(IconSize(Icon(kMessagePanel)).cx, 24);
  bar.DpiChanged(192);
  EXPECT_EQ(IconSize(Icon(kMessagePanel)).cx, 32);
  bar.DpiChanged(96);
  EXPECT_EQ(IconSize(Icon(kMessagePanel)).cx, 16);
}

TEST_F(StatusBarTest, OtherModesRemoveTheIcon) {
  bar.Create(window.Handle(), false);
  for (const std::int16_t mode : std::initializer_list<std::int16_t>{0, 1, 2, -2}) {
    bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
    ASSERT_NE(Icon(kMessagePanel), nullptr);
    bar.SetIcon(kMessagePanel, mode, StatusIcon::Search);
    EXPECT_EQ(Icon(kMessagePanel), nullptr) << mode;
  }
}

// A name that no icon has, or a number that no panel has, does not compile.
static_assert(!std::is_constructible_v<StatusIcon, const wchar_t*> && !std::is_aggregate_v<StatusIcon>);
static_assert(!std::is_convertible_v<int, StatusPanel>);

TEST_F(StatusBarTest, NoneIsNoIcon) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::None);
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
}

TEST_F(StatusBarTest, OtherPanelsMayHaveIconsToo) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kClockPanel, -1, StatusIcon::Search);
  EXPECT_NE(Icon(kClockPanel), nullptr);
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
}

TEST_F(StatusBarTest, EmptyTextRemovesTheMessagesIcon) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  bar.SetText(L"Najde", kMessagePanel, 0);
  EXPECT_NE(Icon(kMessagePanel), nullptr);
  bar.SetText(L"", kMessagePanel, 256);
  EXPECT_EQ(Text(kMessagePanel), L"");
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
  EXPECT_EQ(Flags(kMessagePanel), SBT_NOBORDERS);
}

TEST_F(StatusBarTest, EmptyTextInAnyPanelMeansTheMessagesIcon) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kClockPanel, -1, StatusIcon::Search);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  bar.SetText(L"", kClockPanel, 0);
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
  EXPECT_NE(Icon(kClockPanel), nullptr);
}

TEST_F(StatusBarTest, TextKeepsTheIcon) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  const HICON icon = Icon(kMessagePanel);
  bar.SetText(L"Jiný text", kMessagePanel, 0);
  EXPECT_EQ(Icon(kMessagePanel), icon);
}

TEST_F(StatusBarTest, TenThousandIconsLeaveNoHandle) {
  bar.Create(window.Handle(), false);
  const StatusIcon icons[] = {StatusIcon::Program, StatusIcon::Search, StatusIcon::Mail, StatusIcon::Memory};
  const auto set = [&](int times) {
    for (int i = 0; i < times; ++i) {
      bar.SetIcon(kMessagePanel, -1, icons[i % 4]);
      if (i % 10 == 0) bar.SetText(i % 20 == 0 ? L"" : L"Text", kMessagePanel, 0);
    }
    bar.SetIcon(kMessagePanel, -1, icons[0]);
  };
  set(100);
  const HandleCount before = CountHandles();
  set(10000);
  EXPECT_EQ(CountHandles(), before);
}

TEST_F(StatusBarTest, ManyBarsLeaveNoHandle) {
  const auto repeat = [&](int times) {
    for (int i = 0; i < times; ++i) {
      bar.Create(window.Handle(), i % 2 == 0);
      bar.SetIcon(kMessagePanel, -1, StatusIcon::Mail);
      bar.DpiChanged(144);
      bar.Destroy();
    }
  };
  repeat(10);
  const HandleCount before = CountHandles();
  repeat(300);
  EXPECT_EQ(CountHandles(), before);
}

TEST_F(StatusBarTest, ParentStillGetsEveryMessage) {
  bar.Create(window.Handle(), false);
  window.messages.clear();
  EXPECT_EQ(SendMessageW(window.Handle(), WM_APP, 1, 2), 4711);
  HighlightEntry(1);
  CloseMenu();
  SendMessageW(window.Handle(), WM_COMMAND, 7, 0);
  EXPECT_EQ(window.messages, (std::vector<UINT>{WM_APP, WM_MENUSELECT, WM_MENUSELECT, WM_COMMAND}));
}

TEST_F(StatusBarTest, ParentStillGetsItsTextWhole) {
  bar.Create(window.Handle(), false);
  SetWindowTextW(window.Handle(), L"Žluťoučký kůň");
  wchar_t text[64] = {};
  GetWindowTextW(window.Handle(), text, 64);
  EXPECT_STREQ(text, L"Žluťoučký kůň");
}

TEST_F(StatusBarTest, DestroyUndoesTheSubclassing) {
  const LONG_PTR procedure = GetWindowLongPtrW(window.Handle(), GWLP_WNDPROC);
  bar.Create(window.Handle(), false);
  EXPECT_NE(GetWindowLongPtrW(window.Handle(), GWLP_WNDPROC), procedure);
  const HWND handle = bar.Handle();
  bar.Destroy();
  EXPECT_EQ(GetWindowLongPtrW(window.Handle(), GWLP_WNDPROC), procedure);
  EXPECT_TRUE(IsWindowUnicode(window.Handle()));
  EXPECT_FALSE(IsWindow(handle));
  EXPECT_EQ(bar.Handle(), nullptr);
}

TEST_F(StatusBarTest, DestroyStopsTheClock) {
  bar.Create(window.Handle(), false);
  bar.Destroy();
  // A timer that is started later and takes longer tells that the bar's own would have come by now.
  const UINT_PTR reference = SetTimer(nullptr, 0, 1500, nullptr);
  int otherTimers = 0;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_TIMER && message.wParam == reference) break;
    if (message.message == WM_TIMER && message.hwnd == nullptr) ++otherTimers;
    DispatchMessageW(&message);
  }
  KillTimer(nullptr, reference);
  EXPECT_EQ(otherTimers, 0);
}

TEST_F(StatusBarTest, DestroyTwiceIsHarmless) {
  bar.Create(window.Handle(), false);
  bar.Destroy();
  bar.Destroy();
  EXPECT_EQ(bar.Handle(), nullptr);
  EXPECT_EQ(SendMessageW(window.Handle(), WM_APP, 0, 0), 4711);
}

TEST_F(StatusBarTest, DestroyBeforeCreateIsHarmless) {
  bar.Destroy();
  EXPECT_EQ(bar.Handle(), nullptr);
}

TEST_F(StatusBarTest, OutlivesItsWindow) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  window.Destroy();
  EXPECT_EQ(bar.Handle(), nullptr);
  bar.SetText(L"Nikdo nečte", kMessagePanel, 0);
  bar.SetText(L"", kMessagePanel, 0);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Mail);
  bar.ParentResized();
  bar.DpiChanged(144);
  bar.Destroy();
  EXPECT_EQ(bar.Handle(), nullptr);
}

TEST_F(StatusBarTest, SetTextAfterDestroyDoesNothing) {
  bar.Create(window.Handle(), false);
  bar.Destroy();
  bar.SetText(L"Nikdo nečte", kMessagePanel, 0);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Mail);
  EXPECT_EQ(bar.Handle(), nullptr);
  bar.Create(window.Handle(), false);
  EXPECT_EQ(Text(kMessagePanel), L"");
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
}

}  // namespace
}  // namespace kvez::test
