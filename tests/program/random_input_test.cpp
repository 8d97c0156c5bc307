// Ten thousand events that nobody would think of.

#include <random>

#include "tests/program/download_base.h"
#include "tests/program/program_test.h"

namespace kvez::test {
namespace {

constexpr int kEvents = 10000;
constexpr int kBatch = 50;
// Each look of a control brings objects of the system along when it first comes up, and the last ones come late.
constexpr int kWarmUp = kEvents * 3 / 5;
constexpr int kMostDeviceContexts = 64 + 20;  // those that the system keeps, and the program's own
constexpr unsigned kSeed = 20251;

class RandomInput : public ProgramTest {
 protected:
  // A point of the window, but none on a command button: those start other programs and downloads.
  POINT RandomPoint(const Program& program) {
    RECT area{};
    GetClientRect(program.MainWindow(), &area);
    for (;;) {
      POINT point{Pick(0, area.right - 1), Pick(0, area.bottom - 1)};
      ClientToScreen(program.MainWindow(), &point);
      const HWND target = WindowFromPoint(point);
      const int id = GetDlgCtrlID(target);
      const bool isCommand = id >= kTlHAktualizace && id <= kTlHStorno;
      if (!isCommand && GetAncestor(target, GA_ROOT) == program.MainWindow()) return point;
    }
  }

  // The command buttons and the questions that they ask are out of reach of the keyboard, too: a stray Enter would end
  // the program or print a list.
  static bool TakesKeys(const Program& program) {
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    GetGUIThreadInfo(GetWindowThreadProcessId(program.MainWindow(), nullptr), &information);
    const int id = GetDlgCtrlID(information.hwndFocus);
    return id < kTlHAktualizace || id > kTlHStorno;
  }

  void SendRandomEvent(const Program& program) {
    static constexpr WORD kKeys[] = {VK_RETURN, VK_TAB,  VK_SHIFT,  VK_UP,    VK_DOWN, VK_LEFT,  VK_RIGHT, VK_HOME,
                                     VK_END,    VK_BACK, VK_DELETE, VK_PRIOR, VK_NEXT, VK_SPACE, VK_ESCAPE};
    static constexpr wchar_t kLetters[] = L"abcčdehkopPřsš0123456789 *?-().,";
    static constexpr WORD kModes[] = {'P', 'M', 'O'};
    const int kind = Pick(0, 9);
    // What is typed or clicked goes to the window, not to a question in front of it; movements and mode keys go
    // anywhere.
    if (kind < 6 || kind > 7) BringToFront(program);
    switch (kind) {
      case 0:
      case 1:
      case 2:
        TypeText(std::wstring(1, kLetters[Pick(0, static_cast<int>(std::size(kLetters)) - 2)]));
        break;
      case 3:
      case 4:
      case 5:
        SendRandomKey(program, kKeys[Pick(0, static_cast<int>(std::size(kKeys)) - 1)]);
        break;
      case 6:
        PressKey(kModes[Pick(0, 2)], true);
        break;
      case 7:
        MovePointer(RandomPoint(program));
        break;
      default:
        ClickAt(RandomPoint(program), Pick(0, 9) == 0);
        break;
    }
  }

  void SendRandomKey(const Program& program, WORD key) {
    const bool shift = Pick(0, 7) == 0;
    const bool presses = key == VK_RETURN || key == VK_SPACE;
    if (!presses || TakesKeys(program)) PressKey(key, false, shift);
  }

  // Like Settle, and quicker while nothing is open, as most of the time.
  static void BringToFront(const Program& program) {
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(program.MainWindow(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 2000, &ignored);
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    GetGUIThreadInfo(0, &information);
    if (information.hwndActive != program.MainWindow() || (information.flags & GUI_INMENUMODE) != 0) Settle(program);
  }

  // Waits until the program has worked all input off; closes whatever has opened in front of it.
  static bool Settle(const Program& program) {
    return WaitUntil(
        [&] {
          if (program.HasEnded()) return false;
          DWORD_PTR ignored = 0;
          const bool answers =
              SendMessageTimeoutW(program.MainWindow(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 2000, &ignored) != 0;
          if (const auto dialog = program.OpenDialog()) {
            // No at a question, OK at a message.
            program.Answer(*dialog, GetDlgItem(dialog->window, IDNO) != nullptr ? IDNO : IDOK);
            return false;
          }
          // The keyboard reaches the command buttons, too.
          if (const HWND settings = FindWindowW(L"KvezNastaveni", nullptr)) {
            PostMessageW(settings, WM_CLOSE, 0, 0);
            return false;
          }
          GUITHREADINFO information{};
          information.cbSize = sizeof information;
          GetGUIThreadInfo(GetWindowThreadProcessId(program.MainWindow(), nullptr), &information);
          if ((information.flags & GUI_INMENUMODE) != 0) {
            PressKey(VK_ESCAPE);
            return false;
          }
          return answers;
        },
        60.0);
  }

  // Messages overtake input that still waits, and a waiting Enter would answer the next question. Keys keep their
  // order: when letters that nothing else sends have arrived, nothing waits any more. The change of the mode brings the
  // focus into the empty field.
  static bool WorkOffInput(const Program& program) {
    static constexpr wchar_t kMark[] = L"xzx";
    return WaitUntil(
        [&] {
          if (!Settle(program)) return false;
          SetForegroundWindow(program.MainWindow());
          PressKey('P', true);
          PressKey('M', true);
          TypeText(kMark);
          return HoldsWithin(2.0, [&] { return program.Text(kTxtMPSC) == kMark; });
        },
        60.0);
  }

  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

  std::mt19937 m_random{kSeed};
};

TEST_F(RandomInput, TenThousandEventsLeaveTheProgramAliveAndItsHandlesWhereTheyWere) {
  SaveSetting(L"nastavení0", L"1");
  SaveSetting(L"nastavení2", L"1");
  // An update that the keyboard may start ends at a port where nobody listens.
  ASSERT_TRUE(ReplaceDownloadBase(Exe(), L"http://127.0.0.1:9/"));
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  // Made when it is first shown, which may be late.
  program.Click(kTlHOaplikaci);
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kFraMPSCO); }));
  program.Click(kTlHStorno);
  ASSERT_TRUE(WaitUntil([&] { return !program.IsShown(kFraMPSCO); }));
  program.Focus(kTxtMPSC);

  GdiCount gdiAfterWarmUp;
  int windowsAfterWarmUp = 0;
  for (int event = 0; event < kEvents; ++event) {
    SendRandomEvent(program);
    if (event % kBatch != kBatch - 1) continue;
    ASSERT_TRUE(Settle(program)) << "after event " << event;
    SetForegroundWindow(program.MainWindow());
    if (event == kWarmUp - 1) {
      gdiAfterWarmUp = program.GdiObjects();
      windowsAfterWarmUp = program.Windows();
    }
  }
  ASSERT_TRUE(WorkOffInput(program));
  // What is shown at a moment may need a brush or a window more or less, but not more with every event.
  EXPECT_GT(gdiAfterWarmUp.others, 0);
  const GdiCount gdi = program.GdiObjects();
  EXPECT_NEAR(gdi.others, gdiAfterWarmUp.others, 20);
  EXPECT_LE(gdi.deviceContexts, kMostDeviceContexts);
  EXPECT_NEAR(program.Windows(), windowsAfterWarmUp, 5);

  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  const Dialog question = program.WaitDialog();
  EXPECT_EQ(question.text, L"Přejete si program ukončit ?");
  EXPECT_TRUE(program.Answer(question, IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

}  // namespace
}  // namespace kvez::test
