#include "tests/soak/wrong_servers.h"

#include <windows.h>
// Stays below windows.h.
#include <shlobj.h>

#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "mainwindow/control_ids.h"
#include "tests/program/download_base.h"
#include "tests/soak/console_text.h"
#include "tests/soak/data_set.h"
#include "tests/soak/process_size.h"
#include "tests/support/http_server.h"
#include "tests/support/program_driver.h"
#include "tests/support/program_folder.h"

namespace kvez::soak {
namespace {

using namespace kvez::test;

// Each wrong server so often.
constexpr int kRounds = 20;
constexpr double kRestSeconds = 120;
constexpr double kMebibyte = 1024 * 1024;

class WrongServers {
 public:
  explicit WrongServers(Soak& soak) : m_soak(soak), m_folder(soak.work / "wrong") {}

  void Run();

 private:
  struct Kind {
    const char* name;
    std::function<void()> serve;
    // What ends an answer that would not end by itself has been reached.
    std::function<bool()> isEnough = {};
  };

  std::vector<Kind> Kinds();
  void ServeAll(const HttpAnswer& answer);
  void ServeSet(const DataSet& set);
  void StartUpdate();
  bool ComesToRest(const std::function<bool()>& isEnough = {});
  bool UpdatesRightly();
  void LookAround(const char* kind);
  void Lost(const char* kind, const char* what);
  static double CacheMebibytes();

  Soak& m_soak;
  std::filesystem::path m_folder;
  HttpServer m_server;
  std::vector<DataSet> m_sets;
  std::optional<Program> m_program;
  std::map<std::string, int> m_said;
  std::size_t m_served = 0;  // by the good server last
  int m_round = 0;
  int m_lost = 0;
};

void WrongServers::ServeAll(const HttpAnswer& answer) {
  for (int file = 0; file < 3; ++file) m_server.Serve(DataFileName(file), answer);
}

void WrongServers::ServeSet(const DataSet& set) {
  for (int file = 0; file < 3; ++file) {
    m_server.Serve(DataFileName(file), {.body = set.files[static_cast<std::size_t>(file)]});
  }
}

std::vector<WrongServers::Kind> WrongServers::Kinds() {
  using Then = HttpAnswer::Then;
  const std::string page = "<html><head><title>Hotel</title></head><body>Log in first.</body></html>";
  const std::string noise(1 << 16, 'x');
  const auto enough = [this] { return m_server.SentBytes() > (8U << 20); };
  const auto asked = [this] { return !m_server.Requests().empty(); };
  return {
      {"not found", [=, this] { ServeAll({.status = 404, .body = page, .type = "text/html"}); }},
      {"a page", [=, this] { ServeAll({.body = page, .type = "text/html"}); }},
      {"cut off",
       [this] {
         for (int file = 0; file < 3; ++file) {
           const std::string& whole = m_sets.front().files[static_cast<std::size_t>(file)];
           m_server.Serve(DataFileName(file), {.body = whole, .sent = whole.size() / 2});
         }
       }},
      {"without end", [=, this] { ServeAll({.body = noise, .then = Then::Endless}); }, enough},
      {"silent", [=, this] { ServeAll({.body = noise, .sent = 100, .then = Then::Stall}); }, asked},
      {"another type",
       [this] {
         for (int file = 0; file < 3; ++file) {
           m_server.Serve(DataFileName(file), {.body = m_sets.back().files[static_cast<std::size_t>(file)],
                                               .type = "text/html; charset=utf-8"});
         }
       }},
      {"one of three",
       [=, this] {
         ServeAll({.status = 404, .body = page, .type = "text/html"});
         m_server.Serve(DataFileName(0), {.body = m_sets.back().files[0]});
       }},
  };
}

// The folders that the system keeps downloads in.
double WrongServers::CacheMebibytes() {
  wchar_t folder[MAX_PATH] = {};
  SHGetFolderPathW(nullptr, CSIDL_INTERNET_CACHE, nullptr, SHGFP_TYPE_CURRENT, folder);
  double size = 0;
  std::error_code error;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, error)) {
    if (entry.is_regular_file(error)) size += static_cast<double>(entry.file_size(error));
  }
  return size / kMebibyte;
}

void WrongServers::StartUpdate() {
  const HWND button = m_program->Control(kTlHAktualizace);
  PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
  PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
}

// Whatever is said is read, and whatever is offered is taken, until the program is at rest with a list.
bool WrongServers::ComesToRest(const std::function<bool()>& isEnough) {
  // The program may not answer before.
  if (isEnough && !WaitUntil(isEnough, kRestSeconds)) return false;
  m_server.LetGo();
  return WaitUntil(
      [&] {
        if (const auto dialog = m_program->OpenDialog()) {
          ++m_said[Utf8(dialog->text)];
          m_program->Answer(*dialog, GetDlgItem(dialog->window, IDYES) != nullptr ? IDYES : IDOK);
          return false;
        }
        if (m_program->HasEnded()) return true;
        const std::wstring status = StatusText(m_program->StatusBar(), 2);
        const bool isBusy = status.starts_with(L"Bylo zahájeno stažení") || status.starts_with(L"Stažení") ||
                            m_program->IsShown(kPicMPSCPI);
        return !isBusy && !m_server.Requests().empty() && m_program->ListCount(kLstMPSC) > 0;
      },
      kRestSeconds);
}

// To the set that the program has not.
bool WrongServers::UpdatesRightly() {
  const bool hasFirst = m_program->ListCount(kLstMPSC) == m_sets.front().municipalities;
  m_served = hasFirst ? 1 : 0;
  const DataSet& set = m_sets[m_served];
  ServeSet(set);
  StartUpdate();
  return WaitUntil(
      [&] {
        return m_program->HasEnded() ||
               (m_program->ListCount(kLstMPSC) == set.municipalities &&
                m_program->ListCount(kLstMPSC + 2) == set.districts && !m_program->IsShown(kPicMPSCPI));
      },
      kRestSeconds);
}

void WrongServers::Lost(const char* kind, const char* what) {
  ++m_lost;
  std::printf("round %d, %s: %s\n", m_round, kind, what);
  std::fflush(stdout);
}

void WrongServers::LookAround(const char* kind) {
  // What was kept goes a moment after the list is there.
  const bool isClean = WaitUntil(
      [this] {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
          const auto ending = entry.path().extension();
          if (ending == L".old" || ending == L".bin") return false;
        }
        return true;
      },
      5);
  if (!isClean) Lost(kind, "a file is left behind");
  for (int file = 0; file < 3; ++file) {
    if (ReadBytes(m_folder / DataFileName(file)) != m_sets[m_served].files[static_cast<std::size_t>(file)]) {
      Lost(kind, "a file is not the one that was served last");
    }
  }
}

void WrongServers::Run() {
  const int rounds = m_soak.Times(kRounds);
  const std::string what = std::to_string(rounds) + " rounds of wrong servers";
  std::printf("\n%s\n", what.c_str());
  ClearSettings();
  CopyProgram(m_soak.program, m_folder);
  const DataSet set = ReadDataSet(m_soak.program);
  m_sets = {set, Enlarged(set)};
  if (!ReplaceDownloadBase(m_folder / "kvez.exe", m_server.Base())) return m_soak.limits.Fail(what + ": no address");
  m_program.emplace((m_folder / "kvez.exe").wstring());
  if (!m_program->WaitReady()) return m_soak.limits.Fail(what + ": the program does not start");
  ProcessSize before;
  double cacheBefore = 0;
  for (m_round = 0; m_round < rounds; ++m_round) {
    for (const Kind& kind : Kinds()) {
      m_server.Forget();
      kind.serve();
      StartUpdate();
      if (!ComesToRest(kind.isEnough)) Lost(kind.name, "it does not come to rest");
      m_server.Forget();
      if (!UpdatesRightly()) Lost(kind.name, "the next good update is not right");
      if (m_program->HasEnded()) return m_soak.limits.Fail(what + ": the program is gone after " + kind.name);
      LookAround(kind.name);
    }
    if (m_round > 0) continue;
    before = SizeOf(*m_program);
    cacheBefore = CacheMebibytes();
    Print("after the first round", before);
  }
  const ProcessSize after = SizeOf(*m_program);
  Print("at the end", after);
  for (const auto& [text, times] : m_said) std::printf("  %d times: %s\n", times, text.c_str());
  m_soak.limits.AtMost(what + ", lost", m_lost, 0, "");
  m_soak.limits.AtMost(what + ", kept of downloads", CacheMebibytes() - cacheBefore, 1, "MiB");
  LimitGrowth(what, before, after, m_soak.limits);
}

}  // namespace

void UpdateFromWrongServers(Soak& soak) { WrongServers(soak).Run(); }

}  // namespace kvez::soak
