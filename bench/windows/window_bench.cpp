// What the user of the window waits for: the start, the filling of the long list, a search of everything.
//
//   kvez_window_bench KVEZ_EXE BARE_EXE
//   kvez_window_bench --starts KVEZ_EXE OTHER_KVEZ_EXE
//
// Prints each figure beside its limit; of two programs, by how much the other one starts later. Pairs are measured in
// turn in one run, because machines are noisy: of starts, which wait for other processes hundreds of times, the median
// counts; of the rest the best, which nothing else has disturbed.

#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "bench/limits.h"
#include "bench/windows/one_frame.h"
#include "bench/windows/stopwatch.h"
#include "bench/windows/windows_machine.h"
#include "mainwindow/frmhlavni.h"
#include "platform/windows/windows_automation.h"
#include "platform/windows/windows_downloader.h"
#include "platform/windows/windows_file_operations.h"
#include "platform/windows/windows_help_viewer.h"
#include "platform/windows/windows_shell.h"
#include "tests/support/program_driver.h"

namespace {

using namespace kvez;
using namespace kvez::bench;
using namespace kvez::test;

constexpr int kRounds = 15;
constexpr int kStarts = 25;

// The starts of one program: from the start of the process to the moment when the user may type. The end of the process
// is not counted.
class Starts {
 public:
  explicit Starts(const char* what) : m_what(what) {}

  // A start that failed is said and does not count.
  void Measure(const std::function<bool()>& start, const std::function<bool()>& waitReady) {
    bool ready = false;
    const double seconds = Seconds([&] {
      ready = start();
      // Each look at a starting program takes time from it, so nobody looks before it may be ready.
      if (!m_seconds.empty()) Sleep(static_cast<DWORD>(Best(m_seconds) * 750));
      ready = ready && waitReady();
    });
    if (ready) m_seconds.push_back(seconds);
    if (!ready) std::printf("the %s did not start: error %lu\n", m_what, GetLastError());
  }

  double Milliseconds() const { return Median(m_seconds) * 1000; }

 private:
  const char* m_what;
  std::vector<double> m_seconds;
};

void StartProgram(const std::wstring& exe, Starts& starts) {
  std::optional<Program> program;
  const auto start = [&] {
    program.emplace(exe);
    return true;
  };
  starts.Measure(start, [&] { return program->WaitReady(); });
}

void StartBareWindow(const std::wstring& exe, const std::wstring& folder, Starts& starts) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  std::wstring command = L"\"" + exe + L"\" \"" + folder + L"\"";
  const auto start = [&] {
    return CreateProcessW(exe.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &process) != FALSE;
  };
  const auto waitReady = [] {
    return WaitUntil([] {
      const HWND window = FindWindowW(L"KvezBareWindow", nullptr);
      return window != nullptr && WindowText(window) == L"hotovo";
    });
  };
  starts.Measure(start, waitReady);
  TerminateProcess(process.hProcess, 0);
  WaitForSingleObject(process.hProcess, 10000);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

void MeasureStart(const std::wstring& exe, const std::wstring& bare, Limits& limits) {
  Starts program("program");
  Starts bareWindow("bare window");
  for (int round = 0; round < kStarts; ++round) {
    StartProgram(exe, program);
    StartBareWindow(bare, std::filesystem::path(exe).parent_path().wstring(), bareWindow);
  }
  std::printf("start: program %.0f ms, bare window %.0f ms\n", program.Milliseconds(), bareWindow.Milliseconds());
  limits.AtMost("start to ready, against a bare window", program.Milliseconds() / bareWindow.Milliseconds(), 1.5, "x");
}

void CompareStarts(const std::wstring& exe, const std::wstring& otherExe) {
  Starts program("program");
  Starts other("other program");
  for (int round = 0; round < kStarts; ++round) {
    StartProgram(exe, program);
    StartProgram(otherExe, other);
  }
  std::printf("start: program %.0f ms, other program %.0f ms, which is %+.1f %%\n", program.Milliseconds(),
              other.Milliseconds(), (other.Milliseconds() / program.Milliseconds() - 1) * 100);
}

void FillBare(HWND list, const std::vector<std::wstring>& names) {
  std::size_t characters = 0;
  for (const std::wstring& name : names) characters += name.size();
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_INITSTORAGE, names.size(), static_cast<LPARAM>(characters * sizeof(wchar_t)));
  for (const std::wstring& name : names) SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

void MeasureFilling(frmhlavni& window, clspsc& database, Limits& limits) {
  std::vector<std::wstring> names;
  for (int row = 0; row < window.lstMPSC[kListAll].ListCount(); ++row) {
    names.push_back(window.lstMPSC[kListAll].List(row));
  }
  const HWND bare =
      CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY,
                      0, 0, 200, 200, window.Handle(), nullptr, nullptr, nullptr);
  NoProgress progress;
  ListBoxAdapter list(window.lstMPSC[kListAll]);
  std::vector<double> ours;
  std::vector<double> plain;
  for (int round = 0; round < kRounds; ++round) {
    ours.push_back(Seconds([&] { database.pscVyberVse(list, progress); }));
    plain.push_back(Seconds([&] { FillBare(bare, names); }));
  }
  DestroyWindow(bare);
  std::printf("filling %zu rows: ours %.1f ms, bare %.1f ms\n", names.size(), Best(ours) * 1000, Best(plain) * 1000);
  limits.AtMost("filling the list of all, against a bare filling", Best(ours) / Best(plain), 1.3, "x");
}

void MeasureWindow(const std::wstring& exe, Limits& limits) {
  WindowsMachine machine;
  clspsc database(machine.Platform(), std::filesystem::path(exe).parent_path().wstring());
  WindowsDownloader downloader(machine.clock);
  WindowsHelpViewer help([] { return HWND{}; });
  WindowsShell shell;
  WindowsAutomation automation;
  WindowsFileOperations files;
  frmhlavni window(database, machine.Platform(),
                   {downloader, help, files, {machine.settings, shell, automation, std::wstring(), std::wstring()}});
  machine.window = window.Handle();
  window.Load();
  forms::DoEvents();
  MeasureFilling(window, database, limits);
  MeasureOneFrame(window, database, limits);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count == 4 && std::wstring_view(arguments[1]) == L"--starts") {
    CompareStarts(arguments[2], arguments[3]);
    return 0;
  }
  if (count != 3) {
    std::printf("usage: kvez_window_bench KVEZ_EXE BARE_EXE | --starts KVEZ_EXE OTHER_KVEZ_EXE\n");
    return 1;
  }
  Limits limits;
  MeasureStart(arguments[1], arguments[2], limits);
  MeasureWindow(arguments[1], limits);
  // The program's file comes with its resources, its libraries are the system's.
  limits.AtMost("size of kvez.exe", static_cast<double>(std::filesystem::file_size(arguments[1])), 1000000, "B");
  return limits.Finish();
}
