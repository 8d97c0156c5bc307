#include "tests/windows/statusbar_fixture.h"

namespace kvez::test {
namespace {

TEST_F(StatusBarTest, ExplainsEveryMenuEntry) {
  bar.Create(window.Handle(), false);
  const std::pair<unsigned, const wchar_t*> entries[] = {
      {1, L"Vytiskne seznam vybraných obcí."},
      {2, L"Uloží seznam vybraných obcí do textového souboru."},
      {4, L"Vloží seznam vybraných obcí do schránky."},
      {5, L"Odešle seznam vybraných obcí e-mailem."},
      {7, L"Adresář není k dispozici."},
      {8, L"Základní školy nejsou k dispozici."},
  };
  for (const auto& [command, text] : entries) {
    HighlightEntry(command, command >= 7 ? MF_GRAYED | MF_DISABLED : 0U);
    EXPECT_EQ(Text(kMessagePanel), text);
  }
  HighlightEntry(SC_CLOSE, MF_SYSMENU);
  EXPECT_EQ(Text(kMessagePanel), L"Ukončení programu");
}

TEST_F(StatusBarTest, ClosingTheMenuPutsBackTextFlagsAndIcon) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Program);
  bar.SetText(L"Poslední aktualizace databáze byla provedena 16.listopad 2026.", kMessagePanel, 512);
  const HICON icon = Icon(kMessagePanel);
  HighlightEntry(1);
  EXPECT_EQ(Text(kMessagePanel), L"Vytiskne seznam vybraných obcí.");
  EXPECT_EQ(Flags(kMessagePanel), 0);
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
  HighlightEntry(2);
  CloseMenu();
  EXPECT_EQ(Text(kMessagePanel), L"Poslední aktualizace databáze byla provedena 16.listopad 2026.");
  EXPECT_EQ(Flags(kMessagePanel), 512);
  EXPECT_EQ(Icon(kMessagePanel), icon);
}

TEST_F(StatusBarTest, ClosingTheMenuPutsBackAnEmptyPanel) {
  bar.Create(window.Handle(), false);
  bar.SetText(L"", kMessagePanel, 256);
  HighlightEntry(4);
  CloseMenu();
  EXPECT_EQ(Text(kMessagePanel), L"");
  EXPECT_EQ(Flags(kMessagePanel), 256);
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
}

TEST_F(StatusBarTest, EntriesWithoutExplanationShowTheMessage) {
  bar.Create(window.Handle(), false);
  bar.SetText(L"Zpráva", kMessagePanel, 0);
  HighlightEntry(1);
  HighlightEntry(3, MF_SEPARATOR);
  EXPECT_EQ(Text(kMessagePanel), L"Zpráva");
  HighlightEntry(1);
  HighlightEntry(99);
  EXPECT_EQ(Text(kMessagePanel), L"Zpráva");
  // The number is the place of a submenu here, not a command.
  HighlightEntry(1, MF_POPUP);
  EXPECT_EQ(Text(kMessagePanel), L"Zpráva");
}

TEST_F(StatusBarTest, ClosingAMenuThatWasNotExplainedLeavesTheMessage) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  bar.SetText(L"Zpráva", kMessagePanel, 512);
  const HICON icon = Icon(kMessagePanel);
  CloseMenu();
  EXPECT_EQ(Text(kMessagePanel), L"Zpráva");
  EXPECT_EQ(Flags(kMessagePanel), 512);
  EXPECT_EQ(Icon(kMessagePanel), icon);
}

TEST_F(StatusBarTest, MessageOfTheMeantimeAppearsWhenTheMenuCloses) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  bar.SetText(L"Stará zpráva", kMessagePanel, 512);
  HighlightEntry(1);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Mail);
  bar.SetText(L"Nová zpráva", kMessagePanel, 256);
  EXPECT_EQ(Text(kMessagePanel), L"Vytiskne seznam vybraných obcí.");
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
  CloseMenu();
  EXPECT_EQ(Text(kMessagePanel), L"Nová zpráva");
  EXPECT_EQ(Flags(kMessagePanel), 256);
  EXPECT_NE(Icon(kMessagePanel), nullptr);
}

TEST_F(StatusBarTest, MessageEmptiedInTheMeantimeStaysEmpty) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  bar.SetText(L"Stará zpráva", kMessagePanel, 0);
  HighlightEntry(1);
  bar.SetText(L"", kMessagePanel, 256);
  EXPECT_EQ(Text(kMessagePanel), L"Vytiskne seznam vybraných obcí.");
  CloseMenu();
  EXPECT_EQ(Text(kMessagePanel), L"");
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
}

TEST_F(StatusBarTest, ClockGoesOnWhileAMenuIsExplained) {
  bar.Create(window.Handle(), false);
  HighlightEntry(1);
  clock.now = {2026, 11, 16, 10, 0, 0};
  EXPECT_TRUE(PumpUntil([&] { return Text(kClockPanel) == L"10:00"; }));
  EXPECT_EQ(Text(kMessagePanel), L"Vytiskne seznam vybraných obcí.");
}

TEST_F(StatusBarTest, RescalingWhileAMenuIsExplainedKeepsTheMessagesIcon) {
  bar.Create(window.Handle(), false);
  bar.SetIcon(kMessagePanel, -1, StatusIcon::Search);
  HighlightEntry(1);
  bar.DpiChanged(144);
  EXPECT_EQ(Icon(kMessagePanel), nullptr);
  CloseMenu();
  EXPECT_EQ(IconSize(Icon(kMessagePanel)).cx, 24);
}

TEST_F(StatusBarTest, MenuAfterDestroyIsHarmless) {
  bar.Create(window.Handle(), false);
  HighlightEntry(1);
  bar.Destroy();
  CloseMenu();
  bar.Create(window.Handle(), false);
  EXPECT_EQ(Text(kMessagePanel), L"");
}

// A real menu, its keys pressed by a timer that runs inside the menu's own message loop.
TEST_F(StatusBarTest, RealMenuIsExplainedWhileItIsOpen) {
  ShowWindow(window.Handle(), SW_SHOW);
  bar.Create(window.Handle(), false);
  bar.SetText(L"Zpráva", kMessagePanel, 0);
  const OwnedMenu popup(CreatePopupMenu());
  AppendMenuW(popup.Get(), MF_STRING, 1, L"Tisk");
  AppendMenuW(popup.Get(), MF_STRING, 2, L"Export");
  AppendMenuW(popup.Get(), MF_STRING | MF_GRAYED | MF_DISABLED, 7, L"Adresář");

  static std::vector<std::wstring> seen;
  static std::function<std::wstring()> read;
  static HWND owner;
  static int ticks;
  seen.clear();
  ticks = 0;
  owner = window.Handle();
  read = [this] { return Text(kMessagePanel); };
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) {
    if (!IsWindowVisible(FindWindowW(L"#32768", nullptr))) return;
    const std::wstring text = read();
    if (seen.empty() || seen.back() != text) {
      seen.push_back(text);
      PostMessageW(owner, WM_KEYDOWN, seen.size() < 4 ? VK_DOWN : VK_ESCAPE, 0);
    }
    // Some 20 seconds: a menu that stays silent must not hold up the tests.
    if (++ticks > 1000) EndMenu();
  });
  const int command = TrackPopupMenu(popup.Get(), TPM_RETURNCMD, 300, 300, 0, window.Handle(), nullptr);
  KillTimer(nullptr, timer);
  EXPECT_EQ(command, 0);
  EXPECT_EQ(seen, (std::vector<std::wstring>{L"Zpráva", L"Vytiskne seznam vybraných obcí.",
                                             L"Uloží seznam vybraných obcí do textového souboru.",
                                             L"Adresář není k dispozici."}));
  EXPECT_EQ(Text(kMessagePanel), L"Zpráva");
}

}  // namespace
}  // namespace kvez::test
