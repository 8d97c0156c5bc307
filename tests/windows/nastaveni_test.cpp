// The settings window with real check boxes, over a database and a desktop of the test's own.
#include <gmock/gmock.h>
#include <windows.h>

#include <memory>
#include <vector>

#include "forms/message_loop.h"
#include "forms/mouse_pointer.h"
#include "settings/frmnastaveni.h"
#include "tests/core/fakes.h"
#include "tests/support/message_font.h"
#include "tests/windows/shortcut_fakes.h"

namespace kvez::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::wstring kLink = L"C:\\Plocha\\Kvez.lnk";

class Nastaveni : public testing::Test {
 protected:
  void TearDown() override {
    forms::Screen::SetMousePointer(forms::kPointerDefault);
    window.reset();
    EXPECT_FALSE(frmnastaveni::SettingsOpen);
  }

  frmnastaveni& Open() {
    window = std::make_unique<frmnastaveni>(
        database, ShortcutPlatform{settings, shell, automation, L"D:\\Programy\\Kvez", L"kvez"});
    window->Show();
    return *window;
  }
  void Store(int number, const std::wstring& text) {
    settings.values[FakeSettingsStore::Path(L"VD", L"VDKVEZ", L"nastavení" + std::to_wstring(number))] = text;
  }
  void Press(WORD key) {
    PostMessageW(window->FocusedControl() != nullptr ? window->FocusedControl()->Handle() : window->Handle(),
                 WM_KEYDOWN, key, 1);
    forms::DoEvents();
  }
  static RECT PixelsOf(const forms::Window& control) {
    RECT pixels{};
    GetWindowRect(control.Handle(), &pixels);
    MapWindowPoints(nullptr, GetParent(control.Handle()), reinterpret_cast<POINT*>(&pixels), 2);
    return pixels;
  }

  /// Each caption lies within its box.
  static void ExpectCaptionsFit(const frmnastaveni& opened) {
    for (const forms::CheckBox& box : opened.chkN) {
      const HDC context = GetDC(box.Handle());
      const HGDIOBJ previous = SelectObject(context, box.Font());
      wchar_t text[100] = {};
      const int length = GetWindowTextW(box.Handle(), text, 100);
      SIZE size{};
      GetTextExtentPoint32W(context, text, length, &size);
      SelectObject(context, previous);
      ReleaseDC(box.Handle(), context);
      const RECT pixels = PixelsOf(box);
      EXPECT_LE(size.cy, pixels.bottom - pixels.top);
      // The square and the gap behind it.
      EXPECT_LE(size.cx + opened.ToPixels(270), pixels.right - pixels.left);
    }
  }

  fakes::Machine machine;
  FakeSettingsStore settings;
  FakeShell shell;
  FakeAutomation automation;
  clspsc database{
      Platform{{machine.messages, settings, machine.lz, machine.files, machine.formats}, machine.output.Services()},
      L"C:\\Kvez"};
  std::unique_ptr<frmnastaveni> window;
};

TEST_F(Nastaveni, ShowsWhatIsStoredAndWritesNothing) {
  Store(0, L"1");
  Store(2, L"5");
  frmnastaveni& opened = Open();
  EXPECT_EQ(opened.chkN[0].Value(), 1);
  EXPECT_EQ(opened.chkN[1].Value(), 0);
  EXPECT_EQ(opened.chkN[2].Value(), 1);
  EXPECT_THAT(settings.writes, IsEmpty());
  EXPECT_THAT(shell.folders, IsEmpty());
  EXPECT_TRUE(frmnastaveni::SettingsOpen);
}

TEST_F(Nastaveni, ATickedShortcutIsNotMadeByOpening) {
  Store(1, L"1");
  EXPECT_EQ(Open().chkN[1].Value(), 1);
  EXPECT_THAT(automation.steps, IsEmpty());
  EXPECT_THAT(settings.writes, IsEmpty());
}

TEST_F(Nastaveni, CaptionsAndPlacesAreTheDesignedOnes) {
  const frmnastaveni& opened = Open();
  EXPECT_EQ(opened.Caption(), L"Kvez - nastavení");
  EXPECT_EQ(opened.ClientWidth(), 5175);
  EXPECT_EQ(opened.ClientHeight(), 855);
  const wchar_t* captions[] = {L"Automaticky vybrat v seznamu položku pod kurzorem myši.",
                               L"Vytvořit zástupce na ploše.",
                               L"Světlemodré pole - automatické vyhledání po uvolnění klávesy."};
  const int tops[] = {60, 330, 600};
  for (std::size_t i = 0; i < 3; ++i) {
    wchar_t text[100] = {};
    GetWindowTextW(opened.chkN[i].Handle(), text, 100);
    EXPECT_EQ(std::wstring(text), captions[i]);
    EXPECT_EQ(opened.chkN[i].GetPlace(), (forms::Place{60, tops[i], 5055, 195}));
    EXPECT_EQ(opened.Controls().at(i), &opened.chkN[i]);
  }
}

TEST_F(Nastaveni, PlacesArePixelExactAtOrdinaryScaling) {
  const frmnastaveni& opened = Open();
  if (opened.Dpi() != 96) GTEST_SKIP() << "another scaling";
  const RECT pixels = PixelsOf(opened.chkN[1]);
  EXPECT_EQ(pixels.left, 4);
  EXPECT_EQ(pixels.top, 22);
  EXPECT_EQ(pixels.right - pixels.left, 337);
  EXPECT_EQ(pixels.bottom - pixels.top, 13);
}

TEST_F(Nastaveni, CaptionsFitTheirPlaces) { ExpectCaptionsFit(Open()); }

TEST_F(Nastaveni, CaptionsFitTheirPlacesInALargerFont) {
  const frmnastaveni& opened = Open();
  const auto letters = [&opened] {
    LOGFONTW font{};
    GetObjectW(opened.chkN[0].Font(), sizeof font, &font);
    return std::abs(static_cast<int>(font.lfHeight));
  };
  const int before = letters();
  {
    const test::UserMessageFont large(L"Tahoma", 16);
    ExpectCaptionsFit(opened);
    EXPECT_GT(letters(), before + before / 2);
  }
  EXPECT_EQ(letters(), before);
}

// The rows are no higher than the squares: centred on lower texts, these would lose their upper edges.
TEST_F(Nastaveni, SquaresAreDrawnWhole) {
  const frmnastaveni& opened = Open();
  forms::DoEvents();
  for (const forms::CheckBox& box : opened.chkN) {
    RedrawWindow(box.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    const RECT pixels = PixelsOf(box);
    const HDC context = GetDC(box.Handle());
    // Down the middle of a square: its two edges are alike.
    const int middle = opened.ToPixels(97);
    const COLORREF face = GetPixel(context, pixels.right - pixels.left - 1, 0);
    std::vector<COLORREF> square;
    for (int y = 0; y < pixels.bottom - pixels.top; ++y) {
      if (const COLORREF colour = GetPixel(context, middle, y); colour != face) square.push_back(colour);
    }
    ReleaseDC(box.Handle(), context);
    ASSERT_GT(square.size(), 2U);
    EXPECT_EQ(square.front(), square.back());
    EXPECT_NE(square.front(), square[square.size() / 2]);
  }
}

TEST_F(Nastaveni, AClickIsStoredAtOnce) {
  frmnastaveni& opened = Open();
  SendMessageW(opened.chkN[0].Handle(), BM_CLICK, 0, 0);
  SendMessageW(opened.chkN[2].Handle(), BM_CLICK, 0, 0);
  SendMessageW(opened.chkN[0].Handle(), BM_CLICK, 0, 0);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení0=1", L"nastavení2=1", L"nastavení0=0"));
  EXPECT_THAT(shell.folders, IsEmpty());
  EXPECT_THAT(automation.steps, IsEmpty());
}

TEST_F(Nastaveni, TwoQuickClicksAreTwoClicks) {
  frmnastaveni& opened = Open();
  const HWND box = opened.chkN[2].Handle();
  for (const UINT message : std::initializer_list<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
    SendMessageW(box, message, MK_LBUTTON, MAKELPARAM(5, 5));
  }
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení2=1", L"nastavení2=0"));
}

TEST_F(Nastaveni, TickingTheShortcutCreatesItAndStoresBothWishes) {
  shell.existing.insert(kLink);
  frmnastaveni& opened = Open();
  opened.chkN[1].SetValue(1);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení1=1", L"zástupce=True"));
  EXPECT_EQ(automation.steps.back(), L"Save()");
  EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerDefault);
}

TEST_F(Nastaveni, ClearingTheShortcutDeletesIt) {
  Store(1, L"1");
  shell.existing.insert(kLink);
  Open().chkN[1].SetValue(0);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení1=0", L"zástupce=False"));
  EXPECT_THAT(shell.operations, ElementsAre(L"3|" + kLink + L"||20"));
}

TEST_F(Nastaveni, ClearingWithoutAShortcutDeletesNothingAndRecordsFalse) {
  Store(1, L"1");
  Open().chkN[1].SetValue(0);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení1=0", L"zástupce=False"));
  EXPECT_THAT(shell.operations, IsEmpty());
}

TEST_F(Nastaveni, EscapeCloses) {
  frmnastaveni& opened = Open();
  opened.chkN[2].SetValue(1);
  Press(VK_ESCAPE);
  EXPECT_FALSE(opened.IsOpen());
  EXPECT_FALSE(frmnastaveni::SettingsOpen);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení2=1"));
}

TEST_F(Nastaveni, NoOtherKeyCloses) {
  frmnastaveni& opened = Open();
  for (const WORD key : {WORD{VK_RETURN}, WORD{VK_F1}, WORD{'N'}, WORD{VK_DELETE}}) Press(key);
  EXPECT_TRUE(opened.IsOpen());
  EXPECT_THAT(settings.writes, IsEmpty());
}

TEST_F(Nastaveni, OpenedAgainItShowsTheLastClicks) {
  Open().chkN[0].SetValue(1);
  window->Unload();
  const frmnastaveni& again = Open();
  EXPECT_EQ(again.chkN[0].Value(), 1);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení0=1"));
}

TEST_F(Nastaveni, AStoredTextThatIsNoNumberStandsThereUntickedAndIsRepairedByAClick) {
  Store(0, L"1");
  Store(2, L"ano");
  frmnastaveni& opened = Open();
  EXPECT_TRUE(frmnastaveni::SettingsOpen);
  EXPECT_EQ(opened.chkN[0].Value(), 1);
  EXPECT_EQ(opened.chkN[2].Value(), 0);
  EXPECT_THAT(settings.writes, IsEmpty());
  opened.chkN[2].SetValue(1);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení2=1"));
}

TEST_F(Nastaveni, ATickThatCannotBeStoredGoesBack) {
  Store(0, L"1");
  frmnastaveni& opened = Open();
  settings.refusedKey = L"nastavení0";
  EXPECT_THROW(opened.chkN[0].SetValue(0), Error);
  EXPECT_EQ(opened.chkN[0].Value(), 1);
  settings.refusedKey = L"nastavení1";
  EXPECT_THROW(opened.chkN[1].SetValue(1), Error);
  EXPECT_EQ(opened.chkN[1].Value(), 0);
  // No shortcut without its setting.
  EXPECT_THAT(automation.steps, IsEmpty());
  settings.refusedKey = L"nastavení2";
  Store(2, L"ano");
  EXPECT_THROW(opened.chkN[2].SetValue(1), Error);
  EXPECT_EQ(opened.chkN[2].Value(), 0);
  EXPECT_THAT(settings.writes, IsEmpty());
  EXPECT_TRUE(frmnastaveni::SettingsOpen);
  settings.refusedKey.clear();
  opened.chkN[0].SetValue(0);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení0=0"));
}

TEST_F(Nastaveni, EachSettingHasItsCaption) {
  EXPECT_EQ(SettingCaption(0), L"Automaticky vybrat v seznamu položku pod kurzorem myši.");
  EXPECT_EQ(SettingCaption(1), L"Vytvořit zástupce na ploše.");
  EXPECT_EQ(SettingCaption(2), L"Světlemodré pole - automatické vyhledání po uvolnění klávesy.");
}

// The hourglass is put back only by a handler that reaches its end.
TEST_F(Nastaveni, AnErrorWhileMakingTheShortcutLeavesTheHourglass) {
  frmnastaveni& opened = Open();
  settings.refusedKey = L"zástupce";
  EXPECT_THROW(opened.chkN[1].SetValue(1), Error);
  EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerHourglass);
  EXPECT_THAT(settings.writes, ElementsAre(L"nastavení1=1"));
}

}  // namespace
}  // namespace kvez::test
