#include "tests/soak/long_runs.h"

#include <array>
#include <map>
#include <random>

#include "mainwindow/control_ids.h"
#include "tests/program/download_base.h"
#include "tests/soak/process_size.h"
#include "tests/soak/search_messages.h"
#include "tests/support/program_folder.h"
#include "tests/support/random_input.h"

namespace kvez::soak {
namespace {

using namespace kvez::test;

constexpr int kSearches = 30000;
constexpr int kTexts = 500;
constexpr int kEvents = 10000;
constexpr int kBatch = 50;
constexpr std::array<unsigned, 3> kSeeds = {20251, 20252, 20253};

class Texts {
 public:
  Texts(const Program& program, unsigned seed) : m_random(seed) {
    std::vector<std::wstring> names;
    const int rows = program.ListCount(kLstMPSC);
    for (int i = 0; i < kTexts; ++i) names.push_back(program.ListText(kLstMPSC, Pick(rows)));
    for (const std::wstring& name : names) m_texts.push_back(MadeOf(name));
    m_texts.insert(m_texts.end(), {L"*a*", L"Nikde", L"Praha*", L"*ves"});
  }

  const std::wstring& Any() { return m_texts[static_cast<std::size_t>(Pick(static_cast<int>(m_texts.size())))]; }

 private:
  // A part of a name with wildcards where they may stand.
  std::wstring MadeOf(const std::wstring& name) {
    const std::wstring part = name.substr(0, static_cast<std::size_t>(1 + Pick(static_cast<int>(name.size()))));
    switch (Pick(5)) {
      case 0:
        return name;
      case 1:
        return part + L"*";
      case 2:
        return L"?" + name.substr(name.size() / 2);
      case 3:
        return L"*" + part.substr(part.size() / 2) + L"*";
      default:
        return name.substr(0, 1) + L"*" + name.substr(name.size() - 1);
    }
  }
  int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }

  std::mt19937 m_random;
  std::vector<std::wstring> m_texts;
};

std::optional<Program> FreshProgram(Soak& soak, const wchar_t* downloadBase) {
  const auto folder = soak.work / "kvez";
  CopyProgram(soak.program, folder);
  if (!ReplaceDownloadBase(folder / "kvez.exe", downloadBase)) return std::nullopt;
  std::optional<Program> program(std::in_place, (folder / "kvez.exe").wstring());
  if (!program->WaitReady()) return std::nullopt;
  return program;
}

// An update that the keyboard may start ends at a port where nobody listens.
constexpr const wchar_t* kNobody = L"http://127.0.0.1:9/";

void SendEvents(unsigned seed, Soak& soak) {
  const std::string what = std::to_string(soak.Times(kEvents)) + " events, seed " + std::to_string(seed);
  ClearSettings();
  SaveSetting(L"nastavení0", L"1");
  SaveSetting(L"nastavení2", L"1");
  auto program = FreshProgram(soak, kNobody);
  if (!program) return soak.limits.Fail(what + ": the program does not start");
  RandomInput::BringUpAbout(*program);
  program->Focus(kTxtMPSC);
  RandomInput input(seed);
  const int events = soak.Times(kEvents);
  ProcessSize before;
  bool warm = false;
  for (int event = 0; event < events; ++event) {
    input.SendEvent(*program);
    if (event % kBatch != kBatch - 1) continue;
    if (!RandomInput::Settle(*program)) {
      return soak.limits.Fail(what + ": the program is gone after event " + std::to_string(event));
    }
    SetForegroundWindow(program->MainWindow());
    // Each look of a control brings objects of the system along when it first comes up, and the last ones come late.
    if (!warm && event >= events * 3 / 5) {
      before = SizeOf(*program);
      warm = true;
      Print("after the warm-up", before);
    }
  }
  if (!RandomInput::WorkOff(*program)) return soak.limits.Fail(what + ": the program does not answer at the end");
  const ProcessSize after = SizeOf(*program);
  Print("at the end", after);
  LimitGrowth(what, before, after, soak.limits);
}

}  // namespace

void SearchLong(Soak& soak) {
  const int searches = soak.Times(kSearches);
  const std::string what = std::to_string(searches) + " searches";
  std::printf("\n%s\n", what.c_str());
  ClearSettings();
  const auto program = FreshProgram(soak, kNobody);
  if (!program) return soak.limits.Fail(what + ": the program does not start");
  Texts texts(*program, soak.seed);
  std::map<std::wstring, int> found;
  ProcessSize before;
  int different = 0;
  for (int search = 0; search < searches && !program->HasEnded(); ++search) {
    const std::wstring& text = texts.Any();
    SearchFor(*program, text);
    const int rows = program->ListCount(kLstMPSC + 1);
    if (found.try_emplace(text, rows).first->second != rows) ++different;
    if (search == searches / 10) {
      before = SizeOf(*program);
      Print("after the warm-up", before);
    }
  }
  if (program->HasEnded()) return soak.limits.Fail(what + ": the program is gone");
  const ProcessSize after = SizeOf(*program);
  Print("at the end", after);
  soak.limits.AtMost(what + ", with other rows than before", different, 0, "");
  LimitGrowth(what, before, after, soak.limits);
}

void SendRandomEvents(Soak& soak) {
  for (const unsigned seed : kSeeds) {
    std::printf("\nrandom events, seed %u\n", seed);
    SendEvents(seed, soak);
  }
}

}  // namespace kvez::soak
