// What the main window does, and what it leaves alone, in the middle of something: a download, a print, a question.

#include <gmock/gmock.h>

#include "forms/input_gate.h"
#include "tests/windows/main_window_test.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Question = fakes::MessageDialogFake::Question;
using Strings = std::vector<std::wstring>;

const Question kExit{L"Přejete si program ukončit ?", L"Kvez"};

class InputGate : public MainWindowTest {
 protected:
  static void ClickOn(const forms::Control& control) {
    test::PointAt(test::CenterOf(control.Handle()));
    test::PressButton();
    test::ReleaseButton();
  }
  /// Everything that a command can be started with, one after the other.
  void TryEveryCommand() {
    frmhlavni& window = *m_window;
    for (const tlText* button : {&window.tlHVyhledej, &window.tlHAktualizace, &window.tlHNapoveda, &window.tlHOaplikaci,
                                 &window.tlHNastaveni, &window.tlHKonec}) {
      ClickOn(*button);
      // At once: what comes next might close it again.
      EXPECT_FALSE(window.fraMPSCO.Visible());
      EXPECT_FALSE(frmnastaveni::SettingsOpen);
    }
    for (const forms::OptionButton& option : window.optMPSC) ClickOn(option);
    ClickOn(window.txtMPSC[0]);
    PressKey(VK_RETURN);
    PressKey(VK_F1);
    for (const WORD key : std::initializer_list<WORD>{'P', 'O'}) PressKey(key, true);
    for (const WORD key : std::initializer_list<WORD>{'V', 'A', 'N', 'O', 'S', 'K'}) {
      PressKey(key, false, false, true);
      EXPECT_FALSE(window.fraMPSCO.Visible());
    }
    test::PointAt(test::CenterOf(window.lstMPSC[kListResult].Handle()));
    test::PressButton(test::MouseButton::Right);
    test::ReleaseButton(test::MouseButton::Right);
  }
  void ExpectThatNothingWasStarted() {
    frmhlavni& window = *m_window;
    EXPECT_FALSE(window.fraMPSCO.Visible());
    EXPECT_FALSE(frmnastaveni::SettingsOpen);
    EXPECT_TRUE(window.optMPSC[kModeName].Value());
    EXPECT_EQ(Rows(window.lstMPSC[kListResult]), Strings{L"Mikulov"});
    EXPECT_THAT(m_commands.help.shown, IsEmpty());
  }
  /// The window with a PSČ typed into the light-blue field, whose search is far away.
  frmhlavni& OpenWithADeferredSearch() {
    SetSetting(2, L"1");
    frmhlavni& window = OpenInFront();
    window.tmrMPSC.SetInterval(600'000);
    ClickOn(window.optMPSC[kModePostal]);
    ClickOn(window.txtMPSC[1]);
    TypeText(L"6914");
    return window;
  }
  void Search(const std::wstring& text) {
    ClickOn(m_window->txtMPSC[0]);
    m_window->txtMPSC[0].SelectAll();
    TypeText(text);
    PressKey(VK_RETURN);
  }
  /// Presses an access key that ends the window: no key comes behind it.
  void PressUntilClosed(WORD key) {
    test::PressKey(key, false, false, true);
    EXPECT_TRUE(test::PumpUntil([this] { return !m_window->IsOpen(); }));
  }
  void OnFirstDownload(const std::function<void()>& action) {
    m_commands.downloader.onDownload = [this, action](const std::wstring&, const std::wstring&) {
      if (m_commands.downloader.downloads.size() == 1) action();
    };
  }
};

TEST_F(InputGate, IsOpenWhileNothingGoesOn) {
  frmhlavni& window = OpenInFront();
  EXPECT_TRUE(forms::TakesInput(window));
  EXPECT_TRUE(forms::TakesPointer(window));
  EnableWindow(window.Handle(), FALSE);
  EXPECT_FALSE(forms::TakesInput(window));
  EnableWindow(window.Handle(), TRUE);
  {
    const forms::InputPause pause(window);
    const forms::InputPause inner(window);
    EXPECT_FALSE(forms::TakesInput(window));
  }
  EXPECT_TRUE(forms::TakesInput(window));
}

TEST_F(InputGate, AnotherActiveWindowTakesThePointerOnly) {
  frmhlavni& window = OpenInFront();
  test::TestForm other;
  ASSERT_TRUE(test::ShowActive(other));
  EXPECT_TRUE(forms::TakesInput(window));
  EXPECT_FALSE(forms::TakesPointer(window));
}

TEST_F(InputGate, TheSystemMenuClosesIt) {
  frmhlavni& window = OpenInFront();
  bool seen = false;
  const test::MessageWatch watch(window.Handle(), WM_INITMENUPOPUP, [&] {
    seen = true;
    EXPECT_FALSE(forms::TakesInput(window));
    test::PressKey(VK_ESCAPE);
    test::PressKey(VK_ESCAPE);
  });
  PostMessageW(window.Handle(), WM_SYSCOMMAND, SC_KEYMENU, L' ');
  EXPECT_TRUE(test::PumpUntil([&] { return seen; }));
  EXPECT_TRUE(test::PumpUntil([&] { return forms::TakesInput(window); }));
}

TEST_F(InputGate, NoCommandStartsInsideADownload) {
  OpenInFront();
  Search(L"Mikulov");
  OnFirstDownload([this] { TryEveryCommand(); });
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  PressKey('A', false, false, true);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(3));
  ExpectThatNothingWasStarted();
}

TEST_F(InputGate, NoCommandStartsInsideTheDownloadOfTheHelp) {
  frmhlavni& window = OpenInFront();
  Search(L"Mikulov");
  m_machine.messages.answers = {true};
  OnFirstDownload([this] { TryEveryCommand(); });
  m_commands.downloader.results = {{L"kvez.chm", 1}};
  PressKey(VK_F1);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(1));
  EXPECT_TRUE(window.IsOpen());
  ExpectThatNothingWasStarted();
}

TEST_F(InputGate, NoButtonOfAboutActsInsideADownload) {
  frmhlavni& window = OpenInFront();
  PressKey('O', false, false, true);
  ASSERT_TRUE(window.fraMPSCO.Visible());
  bool opened = false;
  for (tlText* button : {&window.tlHMeil, &window.tlHWWW, &window.tlHPCInfo}) {
    button->SetShellExecute([&](HWND, const char*, const char*, const char*, const char*, int) {
      opened = true;
      return HINSTANCE{};
    });
  }
  m_machine.messages.answers = {true};
  OnFirstDownload([&] {
    for (const tlText* button : {&window.tlHMeil, &window.tlHWWW, &window.tlHPCInfo, &window.tlHStorno}) {
      ClickOn(*button);
    }
  });
  PressKey(VK_F1);
  ASSERT_THAT(m_commands.downloader.downloads, SizeIs(1));
  EXPECT_FALSE(opened);
  EXPECT_TRUE(window.fraMPSCO.Visible());
}

TEST_F(InputGate, ClosingInADownloadIsAskedAboutWhenItIsOver) {
  frmhlavni& window = OpenInFront();
  OnFirstDownload([&] {
    PressKey(VK_F4, false, false, true);
    EXPECT_THAT(m_machine.messages.questions, IsEmpty());
  });
  PressKey('A', false, false, true);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(3));
  EXPECT_TRUE(test::PumpUntil([&] { return !m_machine.messages.questions.empty(); }));
  EXPECT_THAT(m_machine.messages.questions, ElementsAre(kExit));
  EXPECT_TRUE(window.IsOpen()) << "the answer was No";
  EXPECT_EQ(window.lstMPSC[kListAll].ListCount(), 6);
}

TEST_F(InputGate, ClosingInADownloadThatFailsComesAfterItsMessage) {
  frmhlavni& window = OpenInFront();
  OnFirstDownload([&] { SendMessageW(window.Handle(), WM_CLOSE, 0, 0); });
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  m_machine.messages.answers = {true};
  m_machine.messages.onShow = [&] {
    forms::DoEvents();
    EXPECT_TRUE(window.IsOpen());
  };
  PressKey('A', false, false, true);
  EXPECT_TRUE(test::PumpUntil([&] { return !window.IsOpen(); }));
  EXPECT_THAT(m_machine.messages.messages, SizeIs(1)) << "and none after the goodbye";
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(3));
}

TEST_F(InputGate, NothingIsDownloadedAfterAnAgreedEndOfTheSession) {
  frmhlavni& window = OpenInFront();
  m_machine.messages.answers = {true};
  OnFirstDownload([&] { EXPECT_EQ(SendMessageW(window.Handle(), WM_QUERYENDSESSION, 0, 0), TRUE); });
  PressKey('A', false, false, true);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(1));
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
  SendMessageW(window.Handle(), WM_ENDSESSION, FALSE, 0);
  PressKey('A', false, false, true);
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(4)) << "it was called off";
}

TEST_F(InputGate, AnEndOfTheSessionInADownloadIsTheEnd) {
  frmhlavni& window = OpenInFront();
  OnFirstDownload([&] { SendMessageW(window.Handle(), WM_ENDSESSION, TRUE, 0); });
  PressUntilClosed('A');
  EXPECT_THAT(m_commands.downloader.downloads, SizeIs(1));
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
  EXPECT_FALSE(window.IsOpen());
}

TEST_F(InputGate, ClosingWhileItLoadsEndsWithoutAMessageAfterTheGoodbye) {
  m_machine.disk.files.clear();
  frmhlavni& window = Make();
  m_machine.messages.answers = {true};
  m_machine.messages.onShow = [&] { SendMessageW(window.Handle(), WM_CLOSE, 0, 0); };
  window.Load();
  EXPECT_FALSE(window.IsOpen());
  EXPECT_THAT(m_machine.messages.questions, ElementsAre(kExit));
  EXPECT_THAT(m_machine.messages.messages, SizeIs(1)) << "the one that it was closed over";
}

TEST_F(InputGate, NoWhileItLoadsLetsItLoad) {
  m_machine.disk.files.erase(kFolder + L"\\vd2.kl_");
  frmhlavni& window = Make();
  m_machine.messages.onShow = [&] { SendMessageW(window.Handle(), WM_CLOSE, 0, 0); };
  window.Load();
  EXPECT_TRUE(window.IsOpen());
  EXPECT_EQ(window.lstMPSC[kListAll].ListCount(), 6);
  EXPECT_TRUE(window.optMPSC[kModeName].Value());
}

TEST_F(InputGate, OneExitQuestionIsEnough) {
  frmhlavni& window = OpenInFront();
  m_machine.messages.onAsk = [&] {
    SendMessageW(window.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(SendMessageW(window.Handle(), WM_QUERYENDSESSION, 0, 0), FALSE);
  };
  PressKey('K', false, false, true);
  m_machine.messages.onAsk = nullptr;
  EXPECT_THAT(m_machine.messages.questions, ElementsAre(kExit));
  EXPECT_TRUE(window.IsOpen());
}

TEST_F(InputGate, TheSessionEndsOverAnOpenExitQuestion) {
  frmhlavni& window = OpenInFront();
  m_machine.messages.onAsk = [&] {
    EXPECT_EQ(SendMessageW(window.Handle(), WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_CRITICAL)), TRUE);
    SendMessageW(window.Handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_FALSE(window.IsOpen());
  };
  PressUntilClosed('K');
  EXPECT_EQ(m_database.pscCelkem(), 0);
  EXPECT_EQ(m_commands.help.closings, 1);
}

TEST_F(InputGate, TheDeferredSearchWaitsForAQuestionToEnd) {
  frmhlavni& window = OpenWithADeferredSearch();
  m_machine.messages.onAsk = [&] {
    window.tmrMPSC.SetInterval(1);
    int ticks = 0;
    const test::MessageWatch watch(window.Handle(), WM_TIMER, [&] { ++ticks; });
    EXPECT_TRUE(test::PumpUntil([&] { return ticks > 2; }));
    EXPECT_EQ(window.lblMPSCN.Caption(), L"");
  };
  PostMessageW(window.Handle(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(test::PumpUntil([&] { return !m_machine.messages.questions.empty(); }));
  m_machine.messages.onAsk = nullptr;
  EXPECT_TRUE(test::PumpUntil([&] { return window.lblMPSCN.Caption() == L"Obce s PSČ začínající na  \"6914\"."; }));
}

TEST_F(InputGate, TheDeferredSearchWaitsForAboutToClose) {
  frmhlavni& window = OpenWithADeferredSearch();
  ClickOn(window.tlHOaplikaci);
  ASSERT_TRUE(window.fraMPSCO.Visible());
  int ticks = 0;
  const test::MessageWatch watch(window.Handle(), WM_TIMER, [&] { ++ticks; });
  window.tmrMPSC.SetInterval(1);
  EXPECT_TRUE(test::PumpUntil([&] { return ticks > 2; }));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"");
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(test::PumpUntil([&] { return window.lblMPSCN.Caption() == L"Obce s PSČ začínající na  \"6914\"."; }));
}

}  // namespace
}  // namespace kvez
