// The program on a machine that has no more memory for it.

#include <gmock/gmock.h>

#include <cwctype>
#include <fstream>
#include <iterator>

#include "tests/program/update_fixture.h"

namespace kvez::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// How much memory for data a process of the machine below may have. Wine has no limits of its own.
class MemoryLimit : public UpdateFixture, public testing::WithParamInterface<int> {
 protected:
  /// The machine shows its processes as folders. The one that is meant has the program's path in its command line.
  std::filesystem::path ProcessFolder() const {
    const std::string wanted = std::filesystem::path(Exe()).string();
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(L"Z:\\proc", error)) {
      if (std::iswdigit(entry.path().filename().wstring()[0]) == 0) continue;
      if (ReadBytes(entry.path() / "cmdline").starts_with(wanted)) return entry.path();
    }
    return {};
  }
  /// The number behind a word at the start of a line.
  static std::uint64_t Number(const std::filesystem::path& file, const std::string& word) {
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
      if (!line.starts_with(word)) continue;
      const std::size_t digits = line.find_first_of("0123456789", word.size());
      return digits == std::string::npos ? ~std::uint64_t{0} : std::stoull(line.substr(digits));
    }
    return 0;
  }
  static bool SetLimit(const std::filesystem::path& process, std::uint64_t bytes) {
    const std::wstring limit = bytes == ~std::uint64_t{0} ? L"unlimited" : std::to_wstring(bytes);
    std::wstring command =
        L"Z:\\usr\\bin\\prlimit --pid " + process.filename().wstring() + L" --data=" + limit + L":unlimited";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &information)) {
      return false;
    }
    return WaitUntil([&] { return Number(process / "limits", "Max data size") == bytes; });
  }
};

constexpr std::uint64_t kMebibyte = 1 << 20;

TEST_P(MemoryLimit, ThatAnOversizedFileExceedsEndsInAnEmptyListAndTheNextGoodUpdateIsRight) {
  fakes::Bytes oversized;
  constexpr int kMany = 1'300'000;
  for (int i = 0; i < kMany; ++i) fakes::AppendMunicipality(oversized, i % 100'000, L"Libňatov", L"Trutnov");
  ASSERT_GT(oversized.size(), 20 * kMebibyte);
  server.Serve(Name(0), {.body = Text(oversized)});

  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  TypeText(L"praha");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) > 0; }));
  const auto process = ProcessFolder();
  ASSERT_FALSE(process.empty());
  const std::uint64_t used = Number(process / "status", "VmData:") * 1024;
  ASSERT_GT(used, kMebibyte);
  ASSERT_TRUE(SetLimit(process, used + static_cast<std::uint64_t>(GetParam()) * kMebibyte));

  program.Click(kTlHAktualizace);
  EXPECT_THAT(AnswerMessages(program, 1), ElementsAre(kDamaged[0]));
  DeclineThePreviousDatabase(program);
  EXPECT_FALSE(program.IsShown(kPicMPSCPI));
  for (int list = 0; list < 2; ++list) EXPECT_EQ(program.ListCount(kLstMPSC + list), 0) << list;
  EXPECT_EQ(program.Text(kLblPSCV), L"Seznam je prázdný.");
  EXPECT_TRUE(HasNoExpandedFiles());

  ASSERT_TRUE(SetLimit(process, ~std::uint64_t{0}));
  ServeSmallData();
  program.Click(kTlHAktualizace);
  EXPECT_TRUE(WaitUpdated(program));
  EXPECT_EQ(program.ListTexts(kLstMPSC + 2), std::vector<std::wstring>{L"Trutnov"});
  EXPECT_THAT(KeptNames(), IsEmpty());
  Close(program);
}

// In mebibytes beyond what it has: not enough for the file, and not enough for its records.
INSTANTIATE_TEST_SUITE_P(, MemoryLimit, testing::Values(32, 64),
                         [](const auto& limit) { return std::to_string(limit.param) + "MiB"; });

}  // namespace
}  // namespace kvez::test
