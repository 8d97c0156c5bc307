// What one process does on a Windows of another language: this one, which asks for no code page of its own.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include "controls/button_rules.h"
#include "forms/input.h"
#include "mainwindow/list_menu.h"
#include "mainwindow/statusbar.h"
#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_formats.h"
#include "tests/abroad/abroad.h"
#include "tests/support/button_fixture.h"

namespace kvez::test {
namespace {

const std::wstring kCzech = L"Nápověda: Příliš žluťoučký kůň";

TEST(AbroadCodePage, IsTheOneOfTheSystem) {
  const std::string locale = SystemLocale();
  ASSERT_FALSE(locale.empty()) << "to be run by tests/support/abroad";
  EXPECT_EQ(GetACP(), locale == "ja_JP" ? 932U : 1252U) << "is the locale " << locale << ".UTF-8 generated?";
  EXPECT_EQ(GetUserDefaultLangID(), locale == "ja_JP" ? 0x411 : locale == "de_DE" ? 0x407 : 0x409);
}

TEST(AbroadCodePage, SpellsOnlyWhatItHas) {
  EXPECT_EQ(ToSystemCodePage(L"Tisk"), "Tisk");
  EXPECT_EQ(ToSystemCodePage(L""), "");
  for (const wchar_t* text : {L"Říčany", L"Nápověda", L"Řehoř", L"\xD800"}) {
    EXPECT_EQ(ToSystemCodePage(text), std::nullopt) << InWindows1250(text);
  }
}

TEST(AbroadCodePage, FilesOfItsOwnLettersStayInItAndCzechOnesAreInTheCzechOne) {
  const std::wstring own = SystemLocale() == "ja_JP" ? L"日曜日" : L"Größe";
  EXPECT_EQ(ToBytesForOthers(own), InSystemsOwn(own));
  EXPECT_EQ(ToBytesForOthers(kCzech), InWindows1250(kCzech));
  // What neither has becomes no letter that only looks like it.
  EXPECT_EQ(ToBytesForOthers(L"ř Ω ĉ"), "\xF8 ? ?");
}

TEST(AbroadCodePage, APathThatIsTooLongForTheCallIsNotSpelt) {
  EXPECT_TRUE(PathToSystemCodePage(std::wstring(259, L'a')));
  EXPECT_FALSE(PathToSystemCodePage(std::wstring(260, L'a')));
}

// On Windows 11 the process is Czech, and fonts go on reading bytes by the system's code page.
TEST(AbroadCodePage, TheFontReadsWhatIsDrawn) {
  LOGFONTW description{};
  description.lfHeight = -12;
  description.lfCharSet = RUSSIAN_CHARSET;
  const OwnedFont russian(CreateFontIndirectW(&description));
  const OwnedMemoryContext context(CreateCompatibleDC(nullptr));
  const ObjectSelection selection(context.Get(), russian.Get());
  EXPECT_EQ(DrawnToSystemCodePage(context.Get(), L"Tisk"), "Tisk");
  const std::wstring own = SystemLocale() == "ja_JP" ? L"日曜日" : L"Größe";
  EXPECT_NE(ToSystemCodePage(own), std::nullopt);
  EXPECT_EQ(DrawnToSystemCodePage(context.Get(), own), std::nullopt);
}

TEST(AbroadMenu, HasItsTexts) {
  const OwnedMenu menu = CreateListMenu();
  int row = 0;
  for (const ListMenuRow& wanted : ListMenuRows()) {
    wchar_t text[64] = {};
    GetMenuStringW(menu.Get(), static_cast<UINT>(row++), text, 64, MF_BYPOSITION);
    EXPECT_EQ(text, wanted.text);
  }
}

class AbroadStatusBar : public ::testing::Test {
 protected:
  void SetUp() override { bar.Create(form.Handle(), false); }

  std::wstring Text(StatusPanel panel) const {
    wchar_t text[256] = {};
    SendMessageW(bar.Handle(), SB_GETTEXTW, static_cast<WPARAM>(panel), reinterpret_cast<LPARAM>(text));
    return text;
  }
  int Room(StatusPanel panel) const {
    RECT place{};
    int borders[3] = {};
    SendMessageW(bar.Handle(), SB_GETRECT, static_cast<WPARAM>(panel), reinterpret_cast<LPARAM>(&place));
    SendMessageW(bar.Handle(), SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(borders));
    return static_cast<int>(place.right - place.left) - borders[2];
  }
  int Width(const std::wstring& text) const {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(bar.Handle(), WM_GETFONT, 0, 0));
    const OwnedMemoryContext context(CreateCompatibleDC(nullptr));
    const ObjectSelection selection(context.Get(), font);
    SIZE size{};
    GetTextExtentPoint32W(context.Get(), text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
  }

  TestForm form;
  WindowsFormats formats;
  WindowsClock clock;
  StatusBar bar{formats, clock};
};

TEST_F(AbroadStatusBar, ReadsWhatItWasTold) {
  bar.SetText(kCzech, kMessagePanel, 0);
  EXPECT_EQ(Text(kMessagePanel), kCzech);
  EXPECT_NE(Text(kDatePanel).find(formats.Date(clock.Now(), L"dddd")), std::wstring::npos);
}

TEST_F(AbroadStatusBar, TheDateFitsOnAnyDay) {
  for (const unsigned dpi : {96U, 144U, 192U}) {
    bar.DpiChanged(dpi);
    for (std::uint16_t day = 20; day < 27; ++day) {
      const std::wstring date = formats.Date({2026, 12, day, 0, 0, 0}, L"dddd, d.m.yyyy");
      EXPECT_GE(Room(kDatePanel), Width(date)) << InWindows1250(date) << " at " << dpi;
    }
    EXPECT_GE(Room(kClockPanel), Width(L"20:58")) << dpi;
  }
}

class AbroadButton : public ButtonOnScreen {
 protected:
  /// The caption as the system's wide calls draw it.
  Pixels Wanted(const std::wstring& caption) const {
    const HWND window = button.Handle();
    RECT client{};
    GetClientRect(window, &client);
    const HDC context = GetDC(window);
    {
      const ObjectSelection font(context, button.Font());
      const OwnedBrush back(CreateSolidBrush(kBack));
      FillRect(context, &client, back.Get());
      SetBkMode(context, TRANSPARENT);
      SetTextColor(context, kFore);
      RECT text{};
      const int length = static_cast<int>(caption.size());
      DrawTextW(context, caption.c_str(), length, &text, DT_CALCRECT | DT_SINGLELINE);
      const RECT place = CenteredText(client, {text.right, text.bottom});
      DrawStateW(context, nullptr, nullptr, reinterpret_cast<LPARAM>(caption.c_str()), static_cast<WPARAM>(length),
                 place.left, place.top, 0, 0, DST_PREFIXTEXT);
    }
    ReleaseDC(window, context);
    return Pixels::OfWindow(window);
  }
  Pixels Shown(const std::wstring& caption) {
    button.SetCaption(caption);
    return OnScreenNow();
  }
};

TEST_F(AbroadButton, ReadsWhatItsCaptionSays) {
  button.SetDEMove(true);  // no border
  for (const wchar_t* caption : {L"&Nápověda", L"&Vyhledej", L"O&bce k PSČ"}) {
    const Pixels shown = Shown(caption);
    EXPECT_TRUE(shown == Wanted(caption)) << InWindows1250(caption);
    EXPECT_GT(shown.Count(kFore), 0);
  }
}

TEST_F(AbroadButton, TellsLettersApartThatTheCodePageConfuses) {
  button.SetCaption(L"Rícany");
  button.SetCaption(L"Říčany");
  EXPECT_EQ(button.Caption(), L"Říčany");
  button.SetCaption(L"ŘÍČANY");
  EXPECT_EQ(button.Caption(), L"Říčany");  // a change of letter case only is none
}

TEST_F(AbroadButton, OpensWhatTheCodePageLacksByTheWideCall) {
  std::vector<std::wstring> wide;
  const auto narrowCall = [](HWND, const char*, const char*, const char*, const char*, int) { return HINSTANCE{}; };
  button.SetShellExecute(
      narrowCall, [&](HWND, const wchar_t*, const wchar_t* file, const wchar_t* parameters, const wchar_t*, int) {
        wide.push_back(std::wstring(file) + L"|" + parameters);
        return HINSTANCE{};
      });
  button.SetSEMode(3);
  for (const wchar_t* file : {L"msinfo32", L"C:\\Řehoř"}) {
    button.SetSEFile(file);
    EXPECT_TRUE(button.AccessKeyPress(VK_RETURN));
  }
  EXPECT_EQ(wide, std::vector<std::wstring>{L"C:\\Řehoř|"});
}

TEST_F(AbroadButton, ItsAccessKeyMayBeALetterThatTheCodePageLacks) {
  button.SetCaption(L"&Říčany");
  button.TakeEvents();
  EXPECT_FALSE(button.AccessKeyPress('R'));
  EXPECT_TRUE(button.HasAccessKey(L'ř'));
  EXPECT_TRUE(button.AccessKeyPress(forms::ToKeyAscii(L'ř')));
  EXPECT_EQ(button.TakeEvents(), std::vector<std::string>{"Click"});
}

}  // namespace
}  // namespace kvez::test
