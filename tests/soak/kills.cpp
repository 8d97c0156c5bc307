#include "tests/soak/kills.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "mainwindow/control_ids.h"
#include "tests/program/download_base.h"
#include "tests/soak/console_text.h"
#include "tests/support/program_folder.h"

namespace kvez::soak {
namespace {

using namespace kvez::test;

using Clock = std::chrono::steady_clock;

constexpr double kStartSeconds = 60;
// Whatever a kill leaves behind, the next ones must not add to it.
constexpr int kMostFilesLeft = 5;

// Values that the program reads and that none of the works changes.
const std::map<std::wstring, std::wstring> kSettings = {
    {L"nastavení0", L"0"}, {L"nastavení1", L"0"}, {L"nastavení2", L"1"}, {L"zástupce", L"False"}};

double SecondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

void WaitExactly(double seconds) {
  const auto start = Clock::now();
  // The system sleeps by whole milliseconds, and a search takes ten.
  if (seconds > 0.002) Sleep(static_cast<DWORD>(seconds * 1000) - 1);
  while (SecondsSince(start) < seconds) std::this_thread::yield();
}

// Temporary names differ in their digits only.
std::string WithoutDigits(std::string name) {
  std::string kind;
  for (const char character : name) {
    const bool digit = std::isdigit(static_cast<unsigned char>(character)) != 0;
    if (!digit) kind += character;
    if (digit && (kind.empty() || kind.back() != '#')) kind += '#';
  }
  return kind;
}

class Kills {
 public:
  Kills(const std::string& name, Work& work, const std::filesystem::path& folder, const std::vector<DataSet>& sets,
        Soak& soak)
      : m_name(name), m_work(work), m_folder(folder), m_sets(sets), m_soak(soak), m_random(soak.seed) {}

  void Run(int times);

 private:
  bool StartAndLook();
  bool WaitLoaded();
  void LookAtFiles();
  void LookAtSettings();
  void NoteLeftBehind(std::map<std::string, int>& kinds) const;
  std::set<std::filesystem::path> Files() const;
  double Duration();
  void Lost(const std::string& what);
  void Report(int times);

  std::string m_name;
  Work& m_work;
  std::filesystem::path m_folder;
  const std::vector<DataSet>& m_sets;
  Soak& m_soak;
  std::mt19937 m_random;
  std::optional<Program> m_program;
  std::set<std::filesystem::path> m_filesBefore;
  std::map<std::string, int> m_leftByKill;      // kinds of files, and after how many kills one lay there
  std::map<std::string, int> m_leftAfterStart;  // the same after the next start
  std::map<std::string, int> m_said;            // by the next start
  int m_mixed = 0;
  int m_lost = 0;
  int m_kill = 0;
  double m_moment = 0;
};

void Kills::Lost(const std::string& what) {
  ++m_lost;
  std::printf("%s, kill %d after %.1f ms: %s\n", m_name.c_str(), m_kill, m_moment * 1000, what.c_str());
  std::fflush(stdout);
}

std::set<std::filesystem::path> Kills::Files() const {
  std::set<std::filesystem::path> files;
  auto places = m_work.Places();
  places.push_back(m_folder);
  for (const auto& place : places) {
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place, error)) files.insert(entry.path());
  }
  return files;
}

void Kills::NoteLeftBehind(std::map<std::string, int>& kinds) const {
  std::set<std::string> found;
  for (const auto& file : Files()) {
    if (!m_filesBefore.contains(file)) found.insert(WithoutDigits(file.filename().string()));
  }
  for (const std::string& kind : found) ++kinds[kind];
}

void Kills::LookAtSettings() {
  for (const auto& [key, value] : kSettings) {
    if (ReadSetting(key) != value) Lost("the setting " + Utf8(key) + " is " + Utf8(ReadSetting(key)));
    SaveSetting(key, value);
  }
}

// Each file is one of the old or of the new ones. That they belong together is looked at by the program itself.
void Kills::LookAtFiles() {
  std::set<std::size_t> owners;
  bool whole = true;
  for (int file = 0; file < 3; ++file) {
    const std::string bytes = ReadBytes(m_folder / DataFileName(file));
    const auto owner = std::find_if(m_sets.begin(), m_sets.end(), [&](const DataSet& set) {
      return set.files[static_cast<std::size_t>(file)] == bytes;
    });
    if (owner == m_sets.end()) {
      Lost(DataFileName(file) + " has " + std::to_string(bytes.size()) +
           " bytes and is neither the old nor the new one");
      whole = false;
    } else {
      owners.insert(static_cast<std::size_t>(owner - m_sets.begin()));
    }
  }
  if (whole && owners.size() > 1) ++m_mixed;
  if (!whole) WriteDataSet(m_sets.front(), m_folder);
}

bool Kills::WaitLoaded() {
  return WaitUntil(
      [this] {
        if (const auto dialog = m_program->OpenDialog()) {
          ++m_said[Utf8(dialog->text)];
          // Whoever is offered help takes it.
          m_program->Answer(*dialog, GetDlgItem(dialog->window, IDYES) != nullptr ? IDYES : IDOK);
          return false;
        }
        return m_program->HasEnded() || m_program->IsReady();
      },
      kStartSeconds);
}

// The next start works and shows one of the lists, whole.
bool Kills::StartAndLook() {
  m_program.emplace((m_folder / "kvez.exe").wstring());
  if (!WaitLoaded() || m_program->HasEnded()) {
    Lost("the next start does not work");
    m_program->Kill();
    return false;
  }
  const int municipalities = m_program->ListCount(kLstMPSC);
  const int districts = m_program->ListCount(kLstMPSC + 2);
  const bool known =
      std::any_of(m_sets.begin(), m_sets.end(),
                  [&](const DataSet& set) { return set.municipalities == municipalities; }) &&
      std::any_of(m_sets.begin(), m_sets.end(), [&](const DataSet& set) { return set.districts == districts; });
  if (!known) {
    Lost("the next start shows " + std::to_string(municipalities) + " municipalities and " + std::to_string(districts) +
         " districts");
  }
  LookAtFiles();
  NoteLeftBehind(m_leftAfterStart);
  return known;
}

// How long the work takes, so that the kills fall into it.
double Kills::Duration() {
  double longest = 0;
  for (int round = 0; round < 3; ++round) {
    if (!StartAndLook() || !m_work.Prepare(m_program)) continue;
    const auto start = Clock::now();
    m_work.Begin(m_program);
    if (WaitUntil([this] { return m_work.IsDone(*m_program); }, kStartSeconds)) {
      longest = std::max(longest, SecondsSince(start));
    }
    m_program->Kill();
    m_work.Damage();
  }
  return longest;
}

void Kills::Run(int times) {
  for (const auto& [key, value] : kSettings) SaveSetting(key, value);
  m_filesBefore = Files();
  const double duration = Duration();
  if (duration == 0) return m_soak.limits.Fail(m_name + ": the work could not be done");
  std::printf("\n%s takes %.0f ms\n", m_name.c_str(), duration * 1000);
  m_leftByKill.clear();
  m_leftAfterStart.clear();
  std::uniform_real_distribution<double> moment(0, duration * 1.1);
  for (m_kill = 1; m_kill <= times; ++m_kill) {
    if (!StartAndLook()) continue;
    if (!m_work.Prepare(m_program)) {
      Lost("the work cannot begin");
      m_program->Kill();
      continue;
    }
    m_moment = moment(m_random);
    m_work.Begin(m_program);
    WaitExactly(m_moment);
    m_program->Kill();
    NoteLeftBehind(m_leftByKill);
    LookAtSettings();
    if (const std::string damage = m_work.Damage(); !damage.empty()) Lost(damage);
  }
  if (StartAndLook() && !m_work.StillWorks(m_program)) Lost("it cannot be done any more");
  m_program.reset();
  Report(times);
}

void Kills::Report(int times) {
  const auto print = [](const char* what, const std::map<std::string, int>& kinds) {
    if (kinds.empty()) return;
    std::printf("  %s:\n", what);
    for (const auto& [kind, count] : kinds) std::printf("    %s, %d times\n", kind.c_str(), count);
  };
  print("left behind by a kill", m_leftByKill);
  print("still there after the next start", m_leftAfterStart);
  print("said by the next start", m_said);
  if (m_mixed > 0) std::printf("  some files old, some new: %d times\n", m_mixed);
  m_soak.limits.AtMost(m_name + ", lost by " + std::to_string(times) + " kills", m_lost, 0, "");
  const auto left = Files().size() - std::min(Files().size(), m_filesBefore.size());
  m_soak.limits.AtMost(m_name + ", files left at the end", static_cast<double>(left), kMostFilesLeft, "");
}

}  // namespace

void KillDuring(const std::string& name, Work& work, const std::filesystem::path& folder,
                const std::vector<DataSet>& sets, int times, Soak& soak) {
  Kills(name, work, folder, sets, soak).Run(times);
}

}  // namespace kvez::soak
