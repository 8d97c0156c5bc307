// kvez_demo: drives the real program like a user, for the commands that show it.
//
//   kvez_demo search EXE TEXT   starts the program, searches by name, prints the count sentence, leaves it running
//   kvez_demo update            presses Aktualizace in the running program, prints what it says at the end
//   kvez_demo close             ends the running program through its exit question
//   kvez_demo stage EXE STAGE   starts the program, brings it to a stage (stages.h), prints the place of its windows on
//                               the screen as WxH+X+Y, leaves it there
//   kvez_demo contrast          gives the system the colours of a dark contrast theme, until the session ends
//   kvez_demo kill              ends the running program at once, in whatever stage it is
//
// Exit status 0, or 1 with what went wrong on the error output.

#include <cstdio>
#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "tests/program/demo/stages.h"
#include "tests/support/program_driver.h"
#include "tests/support/system_look.h"

namespace {

using namespace kvez;
using namespace kvez::test;

void PrintUtf8(std::FILE* stream, const std::wstring& text) {
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(), size, nullptr, nullptr);
  std::fprintf(stream, "%s\n", bytes.c_str());
}

int Fail(const Program* program, const std::wstring& what) {
  PrintUtf8(stderr, what);
  if (program != nullptr) {
    if (const auto dialog = program->OpenDialog()) PrintUtf8(stderr, L"A dialog is open: " + dialog->text);
  }
  return 1;
}

int Search(const std::wstring& exe, const std::wstring& text) {
  Program program(exe);
  if (!program.WaitReady()) return Fail(&program, L"The program did not get ready: " + exe);
  program.Focus(kTxtMPSC);
  TypeText(text);
  if (!WaitUntil([&] { return program.Text(kTxtMPSC) == text; })) {
    return Fail(&program, L"The text did not arrive: " + program.Text(kTxtMPSC));
  }
  PressKey(VK_RETURN);
  if (!WaitUntil([&] { return !program.Text(kLblPSCV + 1).empty(); })) {
    return Fail(&program, L"The search gave no count.");
  }
  PrintUtf8(stdout, program.Text(kLblPSCV + 1));
  program.Release();
  return 0;
}

int Update() {
  auto program = Program::Running();
  if (!program) return Fail(nullptr, L"The program does not run.");
  program->Click(kTlHAktualizace);
  const auto said = [&] { return StatusText(program->StatusBar(), 2); };
  const auto isUpdated = [&] {
    // The sentence about the list that was there before is gone only when the new list is in.
    return program->Text(kLblPSCV + 1).empty() && said().starts_with(L"Poslední aktualizace databáze byla provedena ");
  };
  if (!WaitUntil(isUpdated)) return Fail(&*program, L"The update did not come to its end; the last words: " + said());
  PrintUtf8(stdout, said());
  program->Release();
  return 0;
}

int Close() {
  auto program = Program::Running();
  if (!program) return Fail(nullptr, L"The program does not run.");
  PostMessageW(program->MainWindow(), WM_CLOSE, 0, 0);
  if (!program->Answer(program->WaitDialog(), IDYES)) return Fail(&*program, L"The exit question did not close.");
  if (program->WaitForEnd() != DWORD{0}) return Fail(&*program, L"The program did not end with 0.");
  return 0;
}

struct Bounds {
  DWORD processId;
  RECT all;
};

BOOL CALLBACK AddBounds(HWND window, LPARAM parameter) {
  auto& bounds = *reinterpret_cast<Bounds*>(parameter);
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  RECT own{};
  if (processId != bounds.processId || !IsWindowVisible(window) || !GetWindowRect(window, &own)) return TRUE;
  const RECT before = bounds.all;
  UnionRect(&bounds.all, &before, &own);
  return TRUE;
}

// The place on the screen that holds all windows of the program.
RECT WindowsOf(const Program& program) {
  Bounds bounds{program.ProcessId(), {}};
  EnumWindows(&AddBounds, reinterpret_cast<LPARAM>(&bounds));
  const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  RECT visible{};
  IntersectRect(&visible, &bounds.all, &screen);
  return visible;
}

int Stage(const std::wstring& exe, const std::wstring& stage) {
  // No tooltip and no hint of a hovered control in the picture.
  MovePointer({0, 0});
  Program program(exe);
  if (!ReachStage(program, stage)) return Fail(&program, L"The program did not get to the stage " + stage);
  MovePointer({0, 0});
  program.Release();
  const RECT bounds = WindowsOf(program);
  std::printf("%ldx%ld+%ld+%ld\n", bounds.right - bounds.left, bounds.bottom - bounds.top, bounds.left, bounds.top);
  return 0;
}

int Kill() {
  auto program = Program::Running();
  if (program) program->Kill();
  return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  const std::vector<std::wstring> words(arguments + 1, arguments + count);
  if (words.size() == 3 && words[0] == L"search") return Search(words[1], words[2]);
  if (words.size() == 1 && words[0] == L"update") return Update();
  if (words.size() == 1 && words[0] == L"close") return Close();
  if (words.size() == 3 && words[0] == L"stage") return Stage(words[1], words[2]);
  if (words.size() == 1 && words[0] == L"kill") return Kill();
  if (words.size() == 1 && words[0] == L"contrast") {
    SetSystemColors(kDarkContrast);
    return 0;
  }
  return Fail(nullptr, L"usage: kvez_demo search EXE TEXT | update | close | stage EXE STAGE | kill | contrast");
}
