#include "tests/soak/works.h"

#include <random>

#include "mainwindow/control_ids.h"
#include "tests/program/download_base.h"
#include "tests/soak/kills.h"
#include "tests/soak/search_messages.h"
#include "tests/support/folder_dialog.h"
#include "tests/support/http_server.h"
#include "tests/support/list_menu_driver.h"
#include "tests/support/printed_pages.h"
#include "tests/support/program_folder.h"

namespace kvez::soak {
namespace {

using namespace kvez::test;

constexpr int kKills = 200;

std::filesystem::path TemporaryFiles() { return std::filesystem::temp_directory_path(); }

class Start : public Work {
 public:
  explicit Start(std::wstring exe) : m_exe(std::move(exe)) {}

  bool Prepare(std::optional<Program>& program) override {
    program.reset();
    return true;
  }
  void Begin(std::optional<Program>& program) override { program.emplace(m_exe); }
  bool IsDone(const Program& program) override { return program.IsReady(); }

 private:
  std::wstring m_exe;
};

class Search : public Work {
 public:
  bool Prepare(std::optional<Program>& program) override {
    TypeSearch(*program, L"*a*");
    return true;
  }
  void Begin(std::optional<Program>& program) override { PostEnter(*program); }
  bool IsDone(const Program& program) override { return !program.Text(kLblPSCV + 1).empty(); }
};

// Over an older file of the same name, which is there until the new one is.
class Export : public Work {
 public:
  explicit Export(std::filesystem::path folder) : m_folder(std::move(folder)) {
    std::filesystem::create_directories(m_folder);
  }

  bool Prepare(std::optional<Program>& program) override {
    WriteBytes(m_folder / kFile, kOlder);
    SearchFor(*program, L"*a*");
    if (!ChooseFromListMenu(*program, MenuCommand::Export)) return false;
    if (!program->Answer(program->WaitDialog(), IDYES)) return false;
    m_dialog = WaitFolderDialog(program->ProcessId());
    return m_dialog != nullptr && SelectFolder(m_dialog, m_folder.wstring());
  }
  void Begin(std::optional<Program>&) override { PostMessageW(GetDlgItem(m_dialog, IDOK), BM_CLICK, 0, 0); }
  bool IsDone(const Program& program) override {
    const auto dialog = program.OpenDialog();
    return dialog && dialog->text.starts_with(L"Export do souboru");
  }
  std::string Damage() override {
    const std::string text = ReadBytes(m_folder / kFile);
    if (text == kOlder) return {};
    // The first one was not disturbed. Only the moment, in the last lines, may differ.
    if (m_whole.empty()) m_whole = text;
    const std::size_t rows = m_whole.rfind("\r\n\r\n\r\n", m_whole.rfind("\r\n\r\n\r\n") - 1);
    const bool whole =
        text.compare(0, rows, m_whole, 0, rows) == 0 && text.ends_with(m_whole.substr(m_whole.rfind('\n')));
    return whole ? "" : "the older export is gone and the new one has " + std::to_string(text.size()) + " bytes";
  }
  std::vector<std::filesystem::path> Places() const override { return {m_folder, TemporaryFiles()}; }

 private:
  static constexpr const char* kFile = "vdkvez.txt";
  static inline const std::string kOlder = "An older list.\r\n";

  std::filesystem::path m_folder;
  HWND m_dialog = nullptr;
  std::string m_whole;
};

class Print : public Work {
 public:
  bool Prepare(std::optional<Program>& program) override {
    SearchFor(*program, L"Nová Ves*");
    if (!ChooseFromListMenu(*program, MenuCommand::Print)) return false;
    m_question = program->WaitDialog();
    m_begun = false;
    return m_question.window != nullptr;
  }
  void Begin(std::optional<Program>&) override { PostMessageW(GetDlgItem(m_question.window, IDYES), BM_CLICK, 0, 0); }
  bool IsDone(const Program& program) override {
    const bool shown = program.IsShown(kPicMPSCPI);
    m_begun = m_begun || shown;
    return m_begun && !shown;
  }
  bool StillWorks(std::optional<Program>& program) override {
    const PrintQueue queue;
    if (!Prepare(program) || !program->Answer(m_question, IDYES)) return false;
    return queue.WaitForDocument().pages > 1;
  }
  std::vector<std::filesystem::path> Places() const override { return {TemporaryFiles()}; }

 private:
  Dialog m_question;
  bool m_begun = false;
};

// Each time the server has the set that the program has not.
class Update : public Work {
 public:
  Update(std::filesystem::path folder, const std::vector<DataSet>& sets) : m_folder(std::move(folder)), m_sets(sets) {}

  std::wstring Base() const { return m_server.Base(); }

  bool Prepare(std::optional<Program>& program) override {
    const int present = program->ListCount(kLstMPSC);
    m_wanted = present == m_sets.front().municipalities ? &m_sets.back() : &m_sets.front();
    for (int file = 0; file < 3; ++file) {
      m_server.Serve(DataFileName(file), {.body = m_wanted->files[static_cast<std::size_t>(file)]});
    }
    return true;
  }
  void Begin(std::optional<Program>& program) override {
    const HWND button = program->Control(kTlHAktualizace);
    PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
  }
  bool IsDone(const Program& program) override {
    return program.ListCount(kLstMPSC) == m_wanted->municipalities && !program.IsShown(kPicMPSCPI);
  }
  bool StillWorks(std::optional<Program>& program) override {
    Prepare(program);
    Begin(program);
    return WaitUntil([&] { return IsDone(*program); }, 60);
  }
  std::vector<std::filesystem::path> Places() const override { return {TemporaryFiles()}; }

 private:
  std::filesystem::path m_folder;
  const std::vector<DataSet>& m_sets;
  const DataSet* m_wanted = nullptr;
  HttpServer m_server;
};

}  // namespace

void KillEverywhere(Soak& soak) {
  const auto folder = soak.work / "kvez";
  const int times = soak.Times(kKills);
  const DataSet set = ReadDataSet(soak.program);
  const auto fresh = [&] { CopyProgram(soak.program, folder); };

  fresh();
  Start start((folder / "kvez.exe").wstring());
  KillDuring("start", start, folder, {set}, times, soak);
  Search search;
  KillDuring("search", search, folder, {set}, times, soak);
  Export writing(soak.work / "export");
  KillDuring("export", writing, folder, {set}, times, soak);
  Print print;
  KillDuring("print", print, folder, {set}, times, soak);

  const std::vector<DataSet> sets = {set, Enlarged(set)};
  Update update(folder, sets);
  if (!ReplaceDownloadBase(folder / "kvez.exe", update.Base())) {
    return soak.limits.Fail("the download address does not stand in kvez.exe");
  }
  KillDuring("update", update, folder, sets, times, soak);
}

}  // namespace kvez::soak
