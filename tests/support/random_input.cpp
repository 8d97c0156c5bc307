#include "tests/support/random_input.h"

#include <iterator>
#include <string>

#include "mainwindow/control_ids.h"

namespace kvez::test {
namespace {

// The command buttons and the questions that they ask are out of reach of the keyboard, too: a stray Enter would end
// the program or print a list.
bool TakesKeys(const Program& program) {
  GUITHREADINFO information{};
  information.cbSize = sizeof information;
  GetGUIThreadInfo(GetWindowThreadProcessId(program.MainWindow(), nullptr), &information);
  const int id = GetDlgCtrlID(information.hwndFocus);
  return id < kTlHAktualizace || id > kTlHStorno;
}

// Like Settle, and quicker while nothing is open, as most of the time.
void BringToFront(const Program& program) {
  DWORD_PTR ignored = 0;
  SendMessageTimeoutW(program.MainWindow(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 2000, &ignored);
  GUITHREADINFO information{};
  information.cbSize = sizeof information;
  GetGUIThreadInfo(0, &information);
  if (information.hwndActive != program.MainWindow() || (information.flags & GUI_INMENUMODE) != 0) {
    RandomInput::Settle(program);
  }
}

}  // namespace

void RandomInput::SendEvent(const Program& program) {
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
      SendKey(program, kKeys[Pick(0, static_cast<int>(std::size(kKeys)) - 1)]);
      break;
    case 6:
      PressKey(kModes[Pick(0, 2)], true);
      break;
    case 7:
      HurryPointer(PlaceBesideCommands(program));
      break;
    default:
      HurryPointer(PlaceBesideCommands(program));
      ClickInPlace(Pick(0, 9) == 0);
      break;
  }
}

void RandomInput::SendKey(const Program& program, WORD key) {
  const bool shift = Pick(0, 7) == 0;
  const bool presses = key == VK_RETURN || key == VK_SPACE;
  if (presses && !TakesKeys(program)) return;
  PressKey(key, false, shift);
  // A key that still waited may have moved the focus to a button whose question the next letter would answer.
  if (presses) WorkOff(program);
}

POINT RandomInput::PlaceBesideCommands(const Program& program) {
  // The corner of the screen, when there is no such place: the program has ended, or something lies on its window.
  constexpr POINT kNone{};
  RECT area{};
  if (!GetClientRect(program.MainWindow(), &area)) return kNone;
  for (int tries = 0; tries < 1000; ++tries) {
    POINT point{Pick(0, area.right - 1), Pick(0, area.bottom - 1)};
    ClientToScreen(program.MainWindow(), &point);
    const HWND target = WindowFromPoint(point);
    const int id = GetDlgCtrlID(target);
    const bool isCommand = id >= kTlHAktualizace && id <= kTlHStorno;
    if (!isCommand && GetAncestor(target, GA_ROOT) == program.MainWindow()) return point;
  }
  return kNone;
}

void RandomInput::BringUpAbout(const Program& program) {
  program.Click(kTlHOaplikaci);
  WaitUntil([&] { return program.IsShown(kFraMPSCO); });
  program.Click(kTlHStorno);
  WaitUntil([&] { return !program.IsShown(kFraMPSCO); });
}

bool RandomInput::Settle(const Program& program) {
  return WaitUntil(
             [&] {
               if (program.HasEnded()) return true;  // will never settle; said at once
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
             60.0) &&
         !program.HasEnded();
}

// Messages overtake input that still waits, and a waiting Enter would answer the next question. Keys keep their
// order: when letters that nothing else sends have arrived, nothing waits any more. The change of the mode brings the
// focus into the empty field.
bool RandomInput::WorkOff(const Program& program) {
  static constexpr wchar_t kMark[] = L"xzx";
  return WaitUntil(
             [&] {
               if (!Settle(program)) return program.HasEnded();
               SetForegroundWindow(program.MainWindow());
               PressKey('P', true);
               PressKey('M', true);
               TypeText(kMark);
               return HoldsWithin(2.0, [&] { return program.Text(kTxtMPSC) == kMark; });
             },
             60.0) &&
         !program.HasEnded();
}

}  // namespace kvez::test
