#include "tests/soak/two_programs.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

#include "mainwindow/control_ids.h"
#include "tests/program/download_base.h"
#include "tests/soak/data_set.h"
#include "tests/support/http_server.h"
#include "tests/support/program_driver.h"
#include "tests/support/program_folder.h"

namespace kvez::soak {
namespace {

using namespace kvez::test;

constexpr int kStarts = 200;
constexpr int kUpdates = 100;
constexpr double kSeconds = 60;

class TwoPrograms {
 public:
  explicit TwoPrograms(Soak& soak)
      : m_soak(soak), m_folder(soak.work / "two"), m_first(m_folder / "kvez.exe"), m_second(m_folder / "jina.exe") {}

  void Run();

 private:
  bool IsWhole(const Program& program, const DataSet& set) const {
    return program.ListCount(kLstMPSC) == set.municipalities && program.ListCount(kLstMPSC + 2) == set.districts;
  }
  void StartAtOnce();
  void StartDuringUpdate();
  void Lost(const char* what);

  Soak& m_soak;
  std::filesystem::path m_folder;
  std::filesystem::path m_first;
  std::filesystem::path m_second;
  HttpServer m_server;
  std::vector<DataSet> m_sets;
  int m_number = 0;
  int m_lost = 0;
  int m_told = 0;  // the one that started in the middle of an update has found a half-written file, and said so
};

void TwoPrograms::Lost(const char* what) {
  ++m_lost;
  std::printf("two programs, number %d: %s\n", m_number, what);
  std::fflush(stdout);
}

void TwoPrograms::StartAtOnce() {
  const Program first(m_first.wstring());
  const Program second(m_second.wstring());
  for (const Program* program : {&first, &second}) {
    if (!program->WaitReady(kSeconds)) {
      Lost("one does not start, or says something");
    } else if (!IsWhole(*program, m_sets.front())) {
      Lost("one has not loaded everything");
    }
  }
}

void TwoPrograms::StartDuringUpdate() {
  const DataSet& wanted = m_sets[m_number % 2 == 0 ? 1 : 0];
  Program first(m_first.wstring());
  if (!first.WaitReady(kSeconds)) return Lost("the first does not start");
  for (int file = 0; file < 3; ++file) {
    m_server.Serve(DataFileName(file), {.body = wanted.files[static_cast<std::size_t>(file)]});
  }
  const HWND button = first.Control(kTlHAktualizace);
  PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
  PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
  std::mt19937 random(m_soak.seed + static_cast<unsigned>(m_number));
  Sleep(std::uniform_int_distribution<DWORD>(0, 300)(random));
  const Program second(m_second.wstring());
  bool told = false;
  const bool started = WaitUntil(
      [&] {
        // The way back is the business of the one that updates.
        if (const auto dialog = second.OpenDialog()) {
          told = true;
          second.Answer(*dialog, GetDlgItem(dialog->window, IDNO) != nullptr ? IDNO : IDOK);
          return false;
        }
        return second.IsReady();
      },
      kSeconds);
  m_told += told ? 1 : 0;
  if (!started) Lost("the second does not start");
  const int rows = second.ListCount(kLstMPSC);
  const bool known =
      std::any_of(m_sets.begin(), m_sets.end(), [rows](const DataSet& set) { return set.municipalities == rows; });
  if (started && !known && !(told && rows == 0)) Lost("the second shows what nobody has sent");
  if (!WaitUntil([&] { return IsWhole(first, wanted) && !first.IsShown(kPicMPSCPI); }, kSeconds)) {
    Lost("the update of the first is not right");
    WriteDataSet(wanted, m_folder);
  }
}

void TwoPrograms::Run() {
  ClearSettings();
  CopyProgram(m_soak.program, m_folder);
  const DataSet set = ReadDataSet(m_soak.program);
  m_sets = {set, Enlarged(set)};
  if (!ReplaceDownloadBase(m_first, m_server.Base())) return m_soak.limits.Fail("two programs: no address");
  std::filesystem::copy_file(m_first, m_second);
  // Each session has a mark of its own.
  if (!ReplaceProgramText(m_second, L"Local\\Kvez-jedina-instance", L"Local\\Kvez-jina-relace")) {
    return m_soak.limits.Fail("two programs: no mark of the instance");
  }
  const int starts = m_soak.Times(kStarts);
  std::printf("\n%d starts of two programs at once\n", starts);
  for (m_number = 1; m_number <= starts; ++m_number) StartAtOnce();
  const int updates = m_soak.Times(kUpdates);
  std::printf("%d starts while the other one updates\n", updates);
  for (m_number = 0; m_number < updates; ++m_number) StartDuringUpdate();
  std::printf("  half-written files told by the other one: %d times\n", m_told);
  int left = 0;
  for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
    const auto ending = entry.path().extension();
    if (ending == L".bin" || ending == L".old") ++left;
  }
  m_soak.limits.AtMost("two programs in one folder, lost", m_lost, 0, "");
  m_soak.limits.AtMost("two programs in one folder, files left at the end", left, 3, "");
}

}  // namespace

void RunTwoPrograms(Soak& soak) { TwoPrograms(soak).Run(); }

}  // namespace kvez::soak
