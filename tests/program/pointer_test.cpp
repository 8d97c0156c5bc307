// The pointer's ways through the real program: the selection that follows it, and clicks where windows lie on each
// other.

#include "tests/program/foreign_window.h"
#include "tests/program/keyboard_path.h"

namespace kvez::test {
namespace {

constexpr int kFirstCheckBox = 300;

class PointerPath : public KeyboardPath {
 protected:
  void SetUp() override {
    KeyboardPath::SetUp();
    SaveSetting(L"nastavení0", L"1");
  }

  /// Types a letter into the field, which comes after all input that was sent before.
  bool InputHasArrived() {
    const std::wstring before = program->Text(kText);
    TypeText(L"x");
    return WaitUntil([&] {
      const std::wstring now = program->Text(kText);
      return now != before && now.ends_with(L"x");
    });
  }

  HWND OpenSettings() {
    Alt('S');
    HWND settings = nullptr;
    EXPECT_TRUE(WaitUntil([&] {
      settings = FindWindowW(L"KvezNastaveni", nullptr);
      return settings != nullptr && GetForegroundWindow() == settings;
    }));
    return settings;
  }

  static void MoveTo(HWND window, POINT upperLeft) {
    SetWindowPos(window, nullptr, upperLeft.x, upperLeft.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(WaitUntil([&] {
      RECT bounds{};
      GetWindowRect(window, &bounds);
      return bounds.left == upperLeft.x && bounds.top == upperLeft.y;
    }));
  }

  /// Moves a window so that the middle of one of its controls comes to a place of the screen.
  static void LayOver(HWND window, HWND control, POINT place) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    const POINT middle = CentreOf(control);
    MoveTo(window, {bounds.left + place.x - middle.x, bounds.top + place.y - middle.y});
  }
};

TEST_F(PointerPath, EveryListSelectsWhatThePointerComesTo) {
  SearchFor(L"lhota");
  ASSERT_GT(program->ListCount(kResult), 5);
  for (const int list : {kAll, kResult, kDistricts}) {
    if (list == kDistricts) {
      PressKey('O', true);
      ASSERT_TRUE(WaitUntil([&] { return program->IsShown(kDistricts); }));
    }
    for (const int row : {2, 4}) {
      HoverRow(list, row);
      EXPECT_TRUE(WaitUntil([&] { return program->ListIndex(list) == row; })) << "list " << list << " row " << row;
    }
  }
}

TEST_F(PointerPath, AWindowThatGoesAwaySelectsNothingUnderTheRestingPointer) {
  const HWND settings = OpenSettings();
  ASSERT_NE(settings, nullptr);
  const POINT row = Row(kAll, 4);
  LayOver(settings, GetDlgItem(settings, kFirstCheckBox), row);
  MovePointer({row.x - 20, row.y});
  MovePointer(row);
  PressKey(VK_ESCAPE);
  // The key that opened them has taken the focus there. Before it is back the next key has nowhere to go.
  ASSERT_TRUE(WaitFocus(kTlHNastaveni));
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(settings) && GetForegroundWindow() == program->MainWindow(); }));
  PressKey('M', true);
  ASSERT_TRUE(WaitFocus(kText));
  EXPECT_TRUE(InputHasArrived());
  EXPECT_EQ(program->ListIndex(kAll), -1);
  // One pixel by hand does.
  MovePointer({row.x + 1, row.y});
  EXPECT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) == 4; }));
}

TEST_F(PointerPath, AWindowInTheBackgroundKeepsWhatWasTyped) {
  PressKey('P', true);
  TypeText(L"692 01");
  ASSERT_TRUE(WaitText(kText, L"692 01"));
  const ForeignWindow other;
  HoverRow(kAll, 3);
  HoverRow(kAll, 5);
  // Back in front, what is typed comes after the pointer's ways.
  SetForegroundWindow(program->MainWindow());
  ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == program->MainWindow(); }));
  ASSERT_TRUE(WaitFocus(kText));
  PressKey(VK_END);
  PressKey(VK_BACK);
  EXPECT_TRUE(WaitText(kText, L"692 0"));
  EXPECT_EQ(program->ListIndex(kAll), -1);
  EXPECT_TRUE(program->IsChecked(kOptMPSC));
}

TEST_F(PointerPath, ThePointerOnTheLowestRowDoesNotMakeTheListRun) {
  RECT client{};
  GetClientRect(program->Control(kAll), &client);
  const auto height = static_cast<int>(SendMessageW(program->Control(kAll), LB_GETITEMHEIGHT, 0, 0));
  const int lowest = client.bottom / height;
  ASSERT_GT(client.bottom % height, 2) << "the lowest row is whole here";
  POINT place{40, (lowest * height + client.bottom) / 2};
  ClientToScreen(program->Control(kAll), &place);
  HoverRow(kAll, lowest - 1);
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) == lowest - 1; }));
  for (int i = 0; i < 6; ++i) {
    MovePointer({place.x + i, place.y});
    Sleep(0);
  }
  PressKey('M', true);
  // The mode has taken the selection away; what the pointer still selects would come after it.
  MovePointer({place.x + 10, place.y});
  ASSERT_TRUE(WaitFocus(kText));
  EXPECT_TRUE(InputHasArrived());
  EXPECT_EQ(program->ListIndex(kAll), -1);
  EXPECT_EQ(SendMessageW(program->Control(kAll), LB_GETTOPINDEX, 0, 0), 0);
}

TEST_F(PointerPath, TheRowUnderThePointerIsShownThoughItIsStillSelected) {
  SearchFor(L"klentnice");
  HoverRow(kAll, 3);
  ASSERT_TRUE(WaitUntil([&] { return program->ListIndex(kAll) == 3; }));
  const std::wstring name = program->Text(kLblNPSCHT);
  HoverRow(kResult, 0);
  ASSERT_TRUE(WaitUntil([&] { return program->Text(kLblNPSCHT) == L"Klentnice"; }));
  ASSERT_EQ(program->ListIndex(kAll), 3);
  HoverRow(kAll, 3);
  EXPECT_TRUE(WaitUntil([&] { return program->Text(kLblNPSCHT) == name; }));
}

TEST_F(PointerPath, AClickOnTheSettingsOverAButtonBelongsToTheSettings) {
  MovePointer(CentreOf(program->Control(kTlHKonec)));
  ASSERT_TRUE(WaitUntil([&] { return StatusText(program->StatusBar(), 2) == L"Ukončení programu"; }));
  const HWND settings = OpenSettings();
  ASSERT_NE(settings, nullptr);
  const POINT place = CentreOf(program->Control(kTlHKonec));
  // The pointer is brought to the button again, and the window comes over it afterwards.
  MovePointer({place.x - 100, place.y + 60});
  MovePointer(place);
  const HWND box = GetDlgItem(settings, kFirstCheckBox + 2);
  LayOver(settings, box, place);
  ClickAt(place);
  EXPECT_TRUE(WaitUntil([] { return ReadSetting(L"nastavení2") == L"1"; }));
  EXPECT_FALSE(program->OpenDialog().has_value());
  EXPECT_EQ(GetForegroundWindow(), settings);
}

TEST_F(PointerPath, AClickOnAButtonOfAWindowInTheBackgroundBringsItToTheFrontAndActs) {
  const ForeignWindow other;
  // The pointer rests on the button first, which so holds it.
  MovePointer(CentreOf(program->Control(kTlHOaplikaci)));
  ASSERT_TRUE(WaitUntil([&] { return StatusText(program->StatusBar(), 2) == L"Kontakt na autora."; }));
  ClickAt(CentreOf(program->Control(kTlHOaplikaci)));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == program->MainWindow(); }));
  EXPECT_TRUE(WaitUntil([&] { return program->IsShown(kFraMPSCO); }));
  EXPECT_TRUE(WaitFocus(kText1));
}

TEST_F(PointerPath, AReleaseWithoutItsPressOpensNoMenu) {
  SearchFor(L"lhota");
  MovePointer(CentreOf(program->Control(kLblMPSCN)));
  INPUT press{};
  press.type = INPUT_MOUSE;
  press.mi.dwFlags = MOUSEEVENTF_RIGHTDOWN;
  SendInput(1, &press, sizeof press);
  MovePointer(Row(kResult, 1));
  INPUT release = press;
  release.mi.dwFlags = MOUSEEVENTF_RIGHTUP;
  SendInput(1, &release, sizeof release);
  PressKey('M', true);
  ASSERT_TRUE(WaitFocus(kText));
  EXPECT_TRUE(InputHasArrived());
  EXPECT_EQ(OpenMenu(), nullptr);
  // Both in the list do, the second time as well.
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(OpenListMenu(*program));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitUntil([] { return OpenMenu() == nullptr; }));
  }
}

}  // namespace
}  // namespace kvez::test
