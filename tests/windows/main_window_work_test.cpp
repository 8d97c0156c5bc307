// The window behind a download that lasts: it is painted, takes no input, and Escape ends the download.

#include <gmock/gmock.h>

#include "forms/input_gate.h"
#include "tests/support/waiting.h"
#include "tests/windows/main_window_test.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class LongDownload : public MainWindowTest {
 protected:
  /// What happens inside the download of this number, from 1 on.
  void Inside(std::size_t number, const std::function<void()>& action) {
    m_commands.downloader.onDownload = [this, number, action](const std::wstring&, const std::wstring&) {
      if (m_commands.downloader.downloads.size() == number) action();
    };
  }
  /// As the downloader does: asks until the answer is this one. False when it waits in vain.
  bool AskUntil(const std::function<bool(bool goesOn)>& isAnswer) {
    return test::WaitUntil([&] { return isAnswer(m_commands.downloader.watch(m_bytes, m_total)); });
  }
  bool GoesOnUntil(const std::function<bool()>& condition) {
    return AskUntil([&](bool goesOn) { return goesOn && condition(); });
  }
  bool IsEnded() {
    return AskUntil([](bool goesOn) { return !goesOn; });
  }
  /// Whether the progress bar is filled there.
  bool IsFilled(int percent) const {
    const forms::PictureBox& bar = m_window->picZpravaI;
    RECT client{};
    GetClientRect(bar.Handle(), &client);
    const HDC context = GetDC(bar.Handle());
    const COLORREF color = GetPixel(context, client.right * percent / 100, client.bottom / 2);
    ReleaseDC(bar.Handle(), context);
    return color == bar.ForeColor();
  }
  test::StatusBarView Status() const { return test::StatusBarView(m_window->Handle()); }

  std::uint64_t m_bytes = 0;
  std::uint64_t m_total = 0;
};

TEST_F(LongDownload, PaintsTheWindowAndShowsItsProgress) {
  frmhlavni& window = OpenInFront();
  int painted = 0;
  const test::MessageWatch watch(window.lstMPSC[kListAll].Handle(), WM_PAINT, [&] { ++painted; });
  Inside(2, [&] {
    EXPECT_TRUE(window.picMPSCPI.Visible());
    EXPECT_EQ(window.lblZpravaI.Caption(), L"Strpení prosím, stahuji. Ukončí to klávesa Esc.");
    painted = 0;
    InvalidateRect(window.lstMPSC[kListAll].Handle(), nullptr, TRUE);
    m_bytes = 500;
    m_total = 1000;
    EXPECT_TRUE(GoesOnUntil([&] { return painted > 0; }));
    EXPECT_TRUE(IsFilled(40));
    EXPECT_FALSE(IsFilled(60));
    m_total = 0;
    m_bytes = 100'000'000;
    EXPECT_TRUE(GoesOnUntil([&] { return IsFilled(90); })) << "nobody knows how much will come";
    EXPECT_EQ(Status().Text(), L"Bylo zahájeno stažení aktuálního datového souboru dodací pošty.");
  });
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  PressKey('A', false, false, true);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(3));
  EXPECT_FALSE(window.picMPSCPI.Visible());
}

TEST_F(LongDownload, EscapeEndsTheUpdateAndBringsTheOldFilesBack) {
  frmhlavni& window = OpenInFront();
  const fakes::Bytes districts = m_machine.disk.files[kFolder + L"\\vd3.kl_"];
  Inside(2, [&] {
    m_machine.disk.files[kFolder + L"\\vd3.kl_"] = {1, 2, 3};
    test::PressKey(VK_ESCAPE);
    EXPECT_TRUE(IsEnded());
  });
  PressKey('A', false, false, true);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(2)) << "the third was not begun";
  EXPECT_THAT(m_machine.messages.messages, SizeIs(1));
  EXPECT_EQ(m_machine.messages.messages.back().text, L"Aktualizace databáze nebyla úspěšná.");
  EXPECT_EQ(Status().Text(), L"Byla zachována původní databáze.");
  EXPECT_TRUE(m_machine.disk.files[kFolder + L"\\vd3.kl_"] == districts);
  EXPECT_EQ(m_database.pscCelkem(), 6);
  EXPECT_FALSE(window.picMPSCPI.Visible());
  EXPECT_TRUE(forms::TakesInput(window));
}

TEST_F(LongDownload, EscapeEndsTheDownloadOfTheHelp) {
  OpenInFront();
  m_machine.messages.answers = {true};
  Inside(1, [&] {
    test::PressKey(VK_ESCAPE);
    EXPECT_TRUE(IsEnded());
  });
  m_commands.downloader.results = {{L"kvez.chm", 1}};
  PressKey(VK_F1);
  EXPECT_THAT(m_machine.messages.messages, SizeIs(1));
  EXPECT_EQ(m_machine.messages.messages.back().text, L"Stažení souboru nápovědy nebylo úspěšné.");
  EXPECT_THAT(m_commands.help.shown, IsEmpty());
  EXPECT_FALSE(m_window->picMPSCPI.Visible());
  EXPECT_EQ(Status().Text(), L"");
}

TEST_F(LongDownload, LooksAfterTheWindowOnceInTwentyMilliseconds) {
  const frmhlavni& window = OpenInFront();
  bool isHandled = false;
  constexpr UINT kMessage = WM_APP + 900;
  const test::MessageWatch watch(window.Handle(), kMessage, [&] { isHandled = true; });
  Inside(1, [&] {
    fakes::ClockFake& clock = m_machine.output.clock;
    m_commands.downloader.watch(0, 0);
    clock.step = 0;
    PostMessageW(window.Handle(), kMessage, 0, 0);
    clock.milliseconds += 19;
    m_commands.downloader.watch(0, 0);
    EXPECT_FALSE(isHandled);
    clock.milliseconds += 1;
    m_commands.downloader.watch(0, 0);
    EXPECT_TRUE(isHandled);
  });
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  PressKey('A', false, false, true);
  EXPECT_TRUE(isHandled);
}

// What is typed and clicked meanwhile goes nowhere, then or later.
TEST_F(LongDownload, TakesNoInput) {
  frmhlavni& window = OpenInFront();
  const HWND list = window.lstMPSC[kListAll].Handle();
  bool moved = false;
  const test::MessageWatch watch(list, WM_MOUSEMOVE, [&] { moved = true; });
  Inside(1, [&] {
    test::TypeText(L"x");
    test::MovePointer(test::CenterOf(list));
    EXPECT_TRUE(GoesOnUntil([&] { return moved; }));
    test::ClickInPlace();
    test::PressKey(VK_ESCAPE);
    EXPECT_TRUE(IsEnded()) << "the last one: all else has been seen before it";
  });
  PressKey('A', false, false, true);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"");
  EXPECT_EQ(window.lstMPSC[kListAll].ListIndex(), -1);
  PressKey('M', true);
  TypeText(L"y");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"y") << "and now it takes it again";
}

// The button that has started it holds the pointer until it is left, and would clear the status bar then.
TEST_F(LongDownload, ButtonThatThePointerLeavesLetsTheStatusBarAlone) {
  frmhlavni& window = OpenInFront();
  test::PointAt(test::CenterOf(window.tlHAktualizace.Handle()));
  ASSERT_EQ(GetCapture(), window.tlHAktualizace.Handle());
  Inside(3, [&] {
    test::MovePointer(test::FarAway());
    EXPECT_TRUE(GoesOnUntil([] { return GetCapture() == nullptr; }));
    EXPECT_EQ(Status().Text(), L"Bylo zahájeno stažení aktuálního datového souboru PSČ.");
    EXPECT_TRUE(Status().ShowsIcon(L"STAZENI"));
  });
  PressKey('A', false, false, true);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(3));
}

TEST_F(LongDownload, EndsWithTheSession) {
  frmhlavni& window = OpenInFront();
  Inside(1, [&] {
    SendMessageW(window.Handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(IsEnded());
  });
  test::PressKey('A', false, false, true);
  EXPECT_TRUE(test::PumpUntil([&] { return !window.IsOpen(); }));
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(1));
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
}

}  // namespace
}  // namespace kvez
