// The expansion on Windows: its three ways answer alike, and two programs in one folder wait for each other.

#ifdef _WIN32

#include "platform/windows/windows_lz_library.h"

#include <windows.h>

#include <array>
#include <functional>
#include <thread>
#include <utility>

#include "platform/portable/memory_lz_library.h"
#include "platform/portable/szdd.h"
#include "platform/windows/utf8_console.h"
#include "platform/windows/windows_files.h"
#include "tests/core/loaded_database.h"
#include "tests/tool/tool_test.h"
#include "tools/files.h"

namespace kvez {
namespace {

class WindowsLzTest : public ToolTest {
 protected:
  struct Answer {
    std::int32_t result = 0;
    Bytes bytes;
    friend bool operator==(const Answer&, const Answer&) = default;
  };

  /// What a library makes of a file, read back by its own or the system's means.
  Answer Ask(LzLibrary& lz, Files& files, const Bytes& file) {
    folder.Write("vd_", file);
    const std::int32_t source = lz.OpenFile(Path(L"vd_"), LzMode::Read);
    const std::int32_t target = lz.OpenFile(Path(L"vd.bin"), LzMode::Create);
    Answer answer{lz.Copy(source, target), {}};
    lz.Close(source);
    lz.Close(target);
    if (answer.result >= 0) answer.bytes = files.Read(Path(L"vd.bin")).value_or(Bytes{'?'});
    EXPECT_GE(lz.OpenFile(Path(L"vd.bin"), LzMode::Delete), 0);
    return answer;
  }

  void ExpectSameAnswers(const Bytes& file, const std::string& what) {
    MemoryLzLibrary native;
    WindowsLzLibrary system;
    LongPathLzLibrary longPath;
    WindowsFiles files;
    const Answer expected = Ask(native, native, file);
    EXPECT_EQ(Ask(system, files, file), expected) << what << ": " << expected.result;
    EXPECT_EQ(Ask(longPath, files, file), expected) << what << ": " << expected.result;
    EXPECT_EQ(NamesIn(""), "vd_") << what;
  }

  /// A file that another program holds until the library under test has paused for the third time, or for ever.
  class Holder {
   public:
    explicit Holder(const std::filesystem::path& path)
        : m_file(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_ALWAYS, 0, nullptr)) {
      EXPECT_NE(m_file, INVALID_HANDLE_VALUE);
    }
    ~Holder() { LetGo(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    Patience UntilThirdPause() {
      return {[this] {
                if (++pauses == 3) LetGo();
              },
              20};
    }
    Patience InVain() {
      return {[this] { ++pauses; }, 20};
    }

    int pauses = 0;

   private:
    void LetGo() {
      if (m_file != INVALID_HANDLE_VALUE) CloseHandle(std::exchange(m_file, INVALID_HANDLE_VALUE));
    }
    HANDLE m_file;
  };
};

TEST_F(WindowsLzTest, AllThreeAnswerAlikeForTheDamageCorpus) {
  std::size_t count = 0;
  for (const char* corpus : {"szdd", "records"}) {
    const auto damaged = std::filesystem::path(KVEZ_SOURCE_DIR) / "tests" / "core" / "damaged" / corpus;
    for (const auto& entry : std::filesystem::directory_iterator(damaged)) {
      ExpectSameAnswers(ReadWholeFile(entry.path()), entry.path().filename().string());
      ++count;
    }
  }
  EXPECT_GT(count, 50U);
}

TEST_F(WindowsLzTest, AllThreeAnswerAlikeForEveryCutAndEveryByteTooMany) {
  const std::string text = "Brno Brno Brno, Praha 1, Praha 2, Praha 3";
  const Bytes whole = CompressSzdd(Bytes(text.begin(), text.end()), 'n');
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    ExpectSameAnswers(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)),
                      std::to_string(length));
  }
  for (const std::size_t more : {1U, 2U, 3U, 17U, 4096U}) {
    Bytes longer = whole;
    longer.resize(longer.size() + more);
    ExpectSameAnswers(longer, "longer by " + std::to_string(more));
  }
  for (std::size_t at = 8; at < whole.size(); ++at) {
    Bytes flipped = whole;
    flipped[at] = static_cast<std::uint8_t>(flipped[at] ^ 0x11U);
    ExpectSameAnswers(flipped, "flipped at " + std::to_string(at));
  }
}

// Two programs in one folder

TEST_F(WindowsLzTest, HeldFileIsWaitedFor) {
  folder.Write("vd_", CompressSzdd(Bytes(100, 'x'), 'n'));
  for (const auto& [name, mode] : {std::pair(L"vd_", LzMode::Read), std::pair(L"vd.bin", LzMode::Create)}) {
    Holder first(folder.Path() / name);
    WindowsLzLibrary system(first.UntilThirdPause());
    const std::int32_t handle = system.OpenFile(Path(name), mode);
    EXPECT_GE(handle, 0);
    EXPECT_EQ(first.pauses, 3);
    system.Close(handle);
    Holder second(folder.Path() / name);
    LongPathLzLibrary longPath(second.UntilThirdPause());
    const std::int32_t other = longPath.OpenFile(Path(name), mode);
    EXPECT_GE(other, 0);
    EXPECT_EQ(second.pauses, 3);
    longPath.Close(other);
  }
  Holder third(folder.Path() / "vd.bin");
  WindowsFiles files(third.UntilThirdPause());
  EXPECT_EQ(files.Read(Path(L"vd.bin")), Bytes());
  EXPECT_EQ(third.pauses, 3);
  // The system's library makes a "vd.bi_" when it cannot have the other.
  EXPECT_EQ(NamesIn(""), "vd.bin vd_");
}

TEST_F(WindowsLzTest, PatienceEnds) {
  folder.Write("vd_", CompressSzdd(Bytes(100, 'x'), 'n'));
  for (const auto& [name, mode] : {std::pair(L"vd_", LzMode::Read), std::pair(L"vd.bin", LzMode::Create)}) {
    Holder holder(folder.Path() / name);
    WindowsLzLibrary system(holder.InVain());
    EXPECT_LT(system.OpenFile(Path(name), mode), 0);
    EXPECT_EQ(holder.pauses, 20);
  }
  EXPECT_EQ(NamesIn(""), "vd.bin vd_");
}

TEST_F(WindowsLzTest, NobodyWaitsForAFileThatIsNotThere) {
  int pauses = 0;
  const Patience patience = {[&pauses] { ++pauses; }, 20};
  WindowsLzLibrary system(patience);
  LongPathLzLibrary longPath(patience);
  WindowsFiles files(patience);
  EXPECT_LT(system.OpenFile(Path(L"vd_"), LzMode::Read), 0);
  EXPECT_LT(longPath.OpenFile(Path(L"vd_"), LzMode::Read), 0);
  EXPECT_EQ(files.Read(Path(L"vd_")), std::nullopt);
  EXPECT_EQ(pauses, 0);
}

TEST_F(WindowsLzTest, ExpandedFileIsNobodyElsesWhileItIsWritten) {
  WindowsLzLibrary system;
  const std::int32_t handle = system.OpenFile(Path(L"vd.bin"), LzMode::Create);
  int pauses = 0;
  WindowsFiles files(Patience{[&] {
                                ++pauses;
                                system.Close(handle);
                              },
                              20});
  EXPECT_EQ(files.Read(Path(L"vd.bin")), Bytes());
  EXPECT_EQ(pauses, 1);
}

// The path that the system's library cannot take is opened without it, and closed without it.
TEST_F(WindowsLzTest, LongPathNeverReachesTheSystemsLibrary) {
  WindowsLzLibrary system;
  const std::int32_t handle = system.OpenFile(Path(std::wstring(130, L'x')), LzMode::Create);
  ASSERT_GE(handle, 0);
  SetLastError(ERROR_SUCCESS);
  system.Close(handle);
  EXPECT_EQ(GetLastError(), DWORD{ERROR_SUCCESS}) << "it was asked to close what it never opened";
}

TEST_F(WindowsLzTest, ManyProgramsInOneFolderAllLoadEverything) {
  BuildFiles();
  constexpr int kPrograms = 3;
  constexpr int kLoadings = 15;
  std::array<int, kPrograms> complete{};
  const auto load = [&](int program) {
    for (int i = 0; i < kLoadings; ++i) {
      fakes::Machine machine;
      WindowsLzLibrary lz;
      WindowsFiles files;
      fakes::ProgressWindowFake window;
      PostalDatabase database({machine.messages, machine.settings, lz, files, machine.formats}, Path(L"out"));
      database.pscNacti(window);
      database.pscpNacti(window);
      database.pscoNacti(window);
      const bool all = database.pscCelkem() == 3 && database.PostOffices().size() == 3 && database.pscoCelkem() == 3;
      complete[static_cast<std::size_t>(program)] += all && machine.messages.messages.empty() ? 1 : 0;
    }
  };
  std::vector<std::thread> programs;
  for (int program = 0; program < kPrograms; ++program) programs.emplace_back(load, program);
  for (std::thread& program : programs) program.join();
  EXPECT_EQ(complete, (std::array<int, kPrograms>{kLoadings, kLoadings, kLoadings}));
  EXPECT_EQ(NamesIn("out"), "vd1.kl_ vd2.kl_ vd3.kl_");
}

// What the tool writes to a console

TEST(Utf8ConsoleTest, ConsoleTakesUtf8AndIsPutBack) {
  // One of its own: the one that the tests were started from, if any, need not be a real one.
  FreeConsole();
  ASSERT_TRUE(AllocConsole());
  ASSERT_TRUE(SetConsoleOutputCP(1250));
  {
    const Utf8Console console;
    EXPECT_EQ(GetConsoleOutputCP(), static_cast<UINT>(CP_UTF8));
  }
  EXPECT_EQ(GetConsoleOutputCP(), 1250U);
  FreeConsole();
}

}  // namespace
}  // namespace kvez

#endif
