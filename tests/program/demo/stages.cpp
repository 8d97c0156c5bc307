#include "tests/program/demo/stages.h"

#include "mainwindow/control_ids.h"
#include "tests/support/folder_dialog.h"
#include "tests/support/list_menu_driver.h"
#include "tests/support/printed_pages.h"

namespace kvez::test {
namespace {

constexpr int kPostal = kOptMPSC;
constexpr int kDistrict = kOptMPSC + 2;
constexpr int kResult = kLstMPSC + 1;
constexpr int kDistricts = kLstMPSC + 2;

bool HasResult(const Program& program) {
  return WaitUntil([&] { return program.ListCount(kResult) > 0; });
}

bool SearchFor(const Program& program, const std::wstring& text) {
  program.Focus(kTxtMPSC);
  TypeText(text);
  if (!WaitUntil([&] { return program.Text(kTxtMPSC) == text; })) return false;
  PressKey(VK_RETURN);
  return HasResult(program);
}

// On a row that is in view, counted from 0.
POINT Row(const Program& program, int list, int row) {
  RECT bounds{};
  GetWindowRect(program.Control(list), &bounds);
  const auto height = static_cast<int>(SendMessageW(program.Control(list), LB_GETITEMHEIGHT, 0, 0));
  return {bounds.left + 40, bounds.top + 2 + row * height + height / 2};
}

bool ClickRow(const Program& program, int list, int row) {
  ClickAt(Row(program, list, row));
  return WaitUntil([&] { return program.ListIndex(list) == row; });
}

// Over the selected row, with the row of the clipboard chosen and explained.
bool ShowListMenu(const Program& program) {
  constexpr int kSelected = 3;
  if (!SearchFor(program, L"Praha*") || !ClickRow(program, kResult, kSelected)) return false;
  ClickAt(Row(program, kResult, kSelected), true);
  if (!WaitUntil([] { return OpenMenu() != nullptr; })) return false;
  for (int row = 0; row < 3; ++row) PressKey(VK_DOWN);
  return WaitUntil([&] { return StatusText(program.StatusBar(), 2) == L"Vloží seznam vybraných obcí do schránky."; });
}

bool StopWhileLoading(const Program& program) {
  const bool loading = WaitUntil([&] {
    return program.MainWindow() != nullptr && program.IsShown(kPicMPSCPI) &&
           KnownText(program.Control(kLblZpravaI)) == L"Strpení prosím, vytvářím seznam obcí.";
  });
  if (!loading) return false;
  const HANDLE thread =
      OpenThread(THREAD_SUSPEND_RESUME, FALSE, GetWindowThreadProcessId(program.MainWindow(), nullptr));
  if (thread == nullptr) return false;
  SuspendThread(thread);
  CloseHandle(thread);
  return true;
}

bool WithoutData(const Program& program) {
  for (int message = 0; message < 3; ++message) {
    if (!program.Answer(program.WaitDialog(), IDOK)) return false;
  }
  return program.WaitReady();
}

bool Choose(const Program& program, MenuCommand command) {
  return SearchFor(program, L"Praha*") && ChooseFromListMenu(program, command) &&
         program.Answer(program.WaitDialog(), IDYES);
}

bool ShowFolderDialog(const Program& program) {
  if (!Choose(program, MenuCommand::Export)) return false;
  const HWND dialog = WaitFolderDialog(program.ProcessId());
  return dialog != nullptr && SelectFolder(dialog, L"C:\\Program Files");
}

bool Print(const Program& program) {
  const PrintQueue queue;
  return Choose(program, MenuCommand::Print) && queue.WaitForDocument().pages > 0;
}

}  // namespace

bool ReachStage(Program& program, const std::wstring& stage) {
  if (stage == L"loading") return StopWhileLoading(program);
  if (stage == L"chybi") return WithoutData(program);
  if (!program.WaitReady()) return false;
  SetForegroundWindow(program.MainWindow());
  if (stage == L"start") return true;
  if (stage == L"nazev") return SearchFor(program, L"Lednic*") && ClickRow(program, kResult, 0);
  if (stage == L"psc") {
    program.Click(kPostal);
    return WaitUntil([&] { return program.IsChecked(kPostal); }) && SearchFor(program, L"692 01") &&
           ClickRow(program, kResult, 1);
  }
  if (stage == L"okres") {
    program.Click(kDistrict);
    if (!WaitUntil([&] { return program.IsShown(kDistricts); }) || !ClickRow(program, kDistricts, 4)) return false;
    program.Click(kTlHVyhledej);
    return HasResult(program);
  }
  if (stage == L"oaplikaci") {
    program.Click(kTlHOaplikaci);
    return WaitUntil([&] { return program.IsShown(kFraMPSCO); });
  }
  if (stage == L"nastaveni") {
    program.Click(kTlHNastaveni);
    return WaitUntil([] { return FindWindowW(nullptr, L"Kvez - nastavení") != nullptr; });
  }
  if (stage == L"slozka") return ShowFolderDialog(program);
  if (stage == L"tisk") return Print(program);
  return stage == L"nabidka" && ShowListMenu(program);
}

}  // namespace kvez::test
