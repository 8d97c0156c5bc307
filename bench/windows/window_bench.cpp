// What the user of the window waits for: the start, the filling of the long list, a search of everything.
//
//   kvez_window_bench KVEZ_EXE BARE_EXE
//
// Prints each figure beside its limit. Pairs are measured in turn in one run, because machines are noisy: of starts,
// which wait for other processes hundreds of times, the median counts; of the rest the best, which nothing else has
// disturbed.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "bench/windows/windows_machine.h"
#include "mainwindow/frmhlavni.h"
#include "platform/windows/windows_automation.h"
#include "platform/windows/windows_downloader.h"
#include "platform/windows/windows_help_viewer.h"
#include "platform/windows/windows_shell.h"
#include "tests/support/program_driver.h"

namespace {

using namespace kvez;
using namespace kvez::test;

constexpr int kRounds = 15;
constexpr int kStarts = 25;

double Seconds(const std::function<void()>& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Best(const std::vector<double>& values) { return *std::min_element(values.begin(), values.end()); }

void Report(const char* what, double figure, double limit, const char* unit) {
  std::printf("%-52s %8.2f %-3s limit %6.2f  %s\n", what, figure, unit, limit, figure <= limit ? "ok" : "TOO SLOW");
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

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

  double Milliseconds() const {
    return m_seconds.empty() ? std::numeric_limits<double>::infinity() : Median(m_seconds) * 1000;
  }

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

void MeasureStart(const std::wstring& exe, const std::wstring& bare) {
  Starts program("program");
  Starts bareWindow("bare window");
  for (int round = 0; round < kStarts; ++round) {
    StartProgram(exe, program);
    StartBareWindow(bare, std::filesystem::path(exe).parent_path().wstring(), bareWindow);
  }
  std::printf("start: program %.0f ms, bare window %.0f ms\n", program.Milliseconds(), bareWindow.Milliseconds());
  Report("start to ready, against a bare window", program.Milliseconds() / bareWindow.Milliseconds(), 1.5, "x");
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

void MeasureWindow(const std::wstring& exe) {
  WindowsMachine machine;
  clspsc database(machine.Platform(), std::filesystem::path(exe).parent_path().wstring());
  WindowsDownloader downloader;
  WindowsHelpViewer help([] { return HWND{}; });
  WindowsShell shell;
  WindowsAutomation automation;
  frmhlavni window(database, machine.Platform(), machine.clock,
                   {downloader, help, {machine.settings, shell, automation, std::wstring(), std::wstring()}});
  window.Load();
  forms::DoEvents();

  std::vector<std::wstring> names;
  for (int row = 0; row < window.lstMPSC[kListAll].ListCount(); ++row)
    names.push_back(window.lstMPSC[kListAll].List(row));
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
  Report("filling the list of all, against a bare filling", Best(ours) / Best(plain), 1.3, "x");

  std::vector<double> searches;
  for (int round = 0; round < kRounds; ++round) {
    window.optMPSC[kModeName].SetValue(true);
    window.txtMPSC[0].SetText(L"*a*");
    searches.push_back(Seconds([&] {
      window.VyhledejSeznam();
      UpdateWindow(window.Handle());
      window.lstMPSC[kListResult].Refresh();
    }));
  }
  std::printf("search *a* found %d rows\n", window.lstMPSC[kListResult].ListCount());
  Report("search of everything (*a*), Enter to painted list", Best(searches) * 1000, 100, "ms");
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 3) {
    std::printf("usage: kvez_window_bench KVEZ_EXE BARE_EXE\n");
    return 1;
  }
  MeasureStart(arguments[1], arguments[2]);
  MeasureWindow(arguments[1]);
  return 0;
}
