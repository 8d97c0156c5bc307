// Two programs in one folder, as two sessions of a terminal server run them.

#include <atomic>
#include <thread>

#include "database/postal_database.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_lz_library.h"
#include "tests/core/fakes.h"
#include "tests/program/download_base.h"
#include "tests/program/program_test.h"

namespace kvez::test {
namespace {

/// Loads from a folder again and again, as another session's program would; this session has only one at a time.
class OtherProgram {
 public:
  explicit OtherProgram(std::wstring folder) : m_folder(std::move(folder)), m_thread([this] { Run(); }) {}
  ~OtherProgram() { End(); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  void End() {
    m_ends = true;
    if (m_thread.joinable()) m_thread.join();
  }
  int Loadings() const { return m_loadings; }
  int Incomplete() const { return m_incomplete; }

 private:
  void Run() {
    while (!m_ends) {
      fakes::Machine machine;
      WindowsLzLibrary lz;
      WindowsFiles files;
      fakes::ProgressWindowFake window;
      PostalDatabase database({machine.messages, machine.settings, lz, files, machine.formats}, m_folder);
      database.pscNacti(window);
      database.pscpNacti(window);
      database.pscoNacti(window);
      const bool complete = database.pscCelkem() > 0 && !database.PostOffices().empty() && database.pscoCelkem() > 0;
      if (!complete || !machine.messages.messages.empty()) ++m_incomplete;
      ++m_loadings;
    }
  }

  std::wstring m_folder;
  std::atomic<bool> m_ends = false;
  std::atomic<int> m_loadings = 0;
  std::atomic<int> m_incomplete = 0;
  std::thread m_thread;  // last: it uses all of the others
};

using TwoPrograms = ProgramTest;

TEST_F(TwoPrograms, InOneFolderBothLoadEverything) {
  const int municipalities = static_cast<int>(ReadTable("obce.csv").size());
  const int districts = static_cast<int>(ReadTable("okresy.csv").size());
  OtherProgram other(Folder().wstring());
  for (int start = 0; start < 5; ++start) {
    Program program(Exe());
    ASSERT_TRUE(program.WaitReady());
    EXPECT_FALSE(program.OpenDialog());
    EXPECT_EQ(program.ListCount(kLstMPSC), municipalities);
    EXPECT_EQ(program.ListCount(kLstMPSC + 2), districts);
  }
  ASSERT_TRUE(WaitUntil([&] { return other.Loadings() > 10; }));
  other.End();
  EXPECT_EQ(other.Incomplete(), 0) << "of " << other.Loadings();
  EXPECT_TRUE(HasNoExpandedFiles());
}

// Both real: the other one has a mark of its own in the session, as each session has.
TEST_F(TwoPrograms, StartedAtOnceInOneFolderBothLoadEverything) {
  const int municipalities = static_cast<int>(ReadTable("obce.csv").size());
  const int districts = static_cast<int>(ReadTable("okresy.csv").size());
  const auto other = Folder() / L"jina-relace.exe";
  std::filesystem::copy_file(Folder() / L"kvez.exe", other);
  ASSERT_TRUE(ReplaceProgramText(other, L"Local\\Kvez-jedina-instance", L"Local\\Kvez-jina-relace"));
  constexpr int kStarts = 10;
  for (int start = 0; start < kStarts; ++start) {
    const Program first(Exe());
    const Program second(other.wstring());
    for (const Program* program : {&first, &second}) {
      ASSERT_TRUE(program->WaitReady());
      EXPECT_FALSE(program->OpenDialog());
      EXPECT_EQ(program->ListCount(kLstMPSC), municipalities);
      EXPECT_EQ(program->ListCount(kLstMPSC + 2), districts);
    }
  }
  EXPECT_TRUE(HasNoExpandedFiles());
}

}  // namespace
}  // namespace kvez::test
