// Damaged data files and violent ends: the designed messages, and a window that works with what there is.

#include <array>
#include <fstream>
#include <optional>

#include "tests/program/program_test.h"

namespace kvez::test {
namespace {

constexpr std::array<const wchar_t*, 3> kMessages = {
    L"Soubor se seznamem PSČ je poškozen nebo neexistuje !",
    L"Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !",
    L"Soubor se seznamem okresů je poškozen nebo neexistuje !"};

enum class Damage { Missing, Empty, Cut, Unreadable, TargetBlocked };

struct Case {
  const char* name;
  Damage damage;
  int file;  // 0 to 2
};

class Faults : public ProgramTest {
 protected:
  std::filesystem::path DataFile(int file, const wchar_t* extension) const {
    return Folder() / (L"vd" + std::to_wstring(file + 1) + extension);
  }

  void Do(Damage damage, int file) const {
    const auto path = DataFile(file, L".kl_");
    switch (damage) {
      case Damage::Missing:
        std::filesystem::remove(path);
        break;
      case Damage::Empty:
        std::filesystem::resize_file(path, 0);
        break;
      case Damage::Cut:
        std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
        break;
      case Damage::Unreadable:
        // A folder under the file's name can be opened by nobody, whatever the user's rights.
        std::filesystem::remove(path);
        std::filesystem::create_directory(path);
        break;
      case Damage::TargetBlocked:
        // The same for the expanded file, as in a folder that is not writable.
        std::filesystem::create_directory(DataFile(file, L".bin"));
        break;
    }
  }

  // Answers the message of each damaged file in its turn and waits for the window.
  static void ExpectMessages(const Program& program, const std::vector<int>& files) {
    for (const int file : files) {
      const Dialog dialog = program.WaitDialog();
      EXPECT_EQ(dialog.caption, L"Kvez");
      EXPECT_EQ(dialog.text, kMessages[static_cast<std::size_t>(file)]);
      ASSERT_TRUE(program.Answer(dialog, IDOK));
    }
    ASSERT_TRUE(program.WaitReady());
  }
};

class FaultyFile : public Faults, public ::testing::WithParamInterface<Case> {};

TEST_P(FaultyFile, GivesItsMessageAndAWindowThatWorks) {
  const auto& [name, damage, file] = GetParam();
  Do(damage, file);
  Program program(Exe());
  ExpectMessages(program, {file});
  const bool municipalities = file != 0;
  EXPECT_EQ(program.ListCount(kLstMPSC) > 0, municipalities);
  EXPECT_EQ(program.IsShown(kOptMPSC + 2), file != 2);
  // A failed reading leaves no expanded file behind; what blocks its name is not the program's to remove.
  if (damage != Damage::TargetBlocked) {
    EXPECT_TRUE(HasNoExpandedFiles());
  }
  program.Focus(kTxtMPSC);
  TypeText(L"lednice");
  WaitUntil([&] { return program.Text(kTxtMPSC) == L"lednice"; });
  ASSERT_EQ(program.Text(kTxtMPSC), L"lednice");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return !program.Text(kLblPSCV + 1).empty(); }));
  EXPECT_EQ(program.ListCount(kLstMPSC + 1) > 0, municipalities);
}

INSTANTIATE_TEST_SUITE_P(
    , FaultyFile,
    ::testing::Values(Case{"MunicipalitiesMissing", Damage::Missing, 0}, Case{"OfficesMissing", Damage::Missing, 1},
                      Case{"DistrictsMissing", Damage::Missing, 2}, Case{"MunicipalitiesEmpty", Damage::Empty, 0},
                      Case{"OfficesEmpty", Damage::Empty, 1}, Case{"DistrictsEmpty", Damage::Empty, 2},
                      Case{"MunicipalitiesCut", Damage::Cut, 0}, Case{"OfficesCut", Damage::Cut, 1},
                      Case{"DistrictsCut", Damage::Cut, 2}, Case{"MunicipalitiesUnreadable", Damage::Unreadable, 0},
                      Case{"OfficesUnreadable", Damage::Unreadable, 1},
                      Case{"DistrictsUnreadable", Damage::Unreadable, 2},
                      Case{"MunicipalitiesBlocked", Damage::TargetBlocked, 0}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

TEST_F(Faults, EverythingMissing) {
  for (const int file : {0, 1, 2}) Do(Damage::Missing, file);
  Program program(Exe());
  ExpectMessages(program, {0, 1, 2});
  EXPECT_EQ(program.Text(kLblPSCV), L"Seznam je prázdný.");
  EXPECT_EQ(StatusText(program.StatusBar(), 2), L"Vyhledá obce odpovídající zadanému textu.");
  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

class Killed : public Faults {
 protected:
  /// Starts the program and kills it while it shows that message. False when the message was gone before it was seen:
  /// then the loading has ended by itself.
  bool KillWhile(const std::wstring& message) const {
    Program victim(Exe());
    HWND panel = nullptr;
    HWND label = nullptr;
    bool wasLoading = false;
    bool seen = false;
    // Some messages stand for some milliseconds only, so nobody sleeps between two looks.
    WaitUntil([&] {
      for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < 1000 && !victim.HasEnded();) {
        if (panel == nullptr) panel = victim.Control(kPicMPSCPI);
        if (label == nullptr) label = victim.Control(kLblZpravaI);
        if (panel == nullptr || label == nullptr) continue;
        const bool loading = (GetWindowLongPtrW(panel, GWL_STYLE) & WS_VISIBLE) != 0;
        seen = loading && KnownText(label) == message;
        if (seen || (wasLoading && !loading)) return true;
        wasLoading = loading;
      }
      return victim.HasEnded();
    });
    victim.Kill();
    return seen;
  }

  void ExpectASoundStart() const {
    Program program(Exe());
    ASSERT_TRUE(program.WaitReady());
    EXPECT_EQ(program.ListCount(kLstMPSC), static_cast<int>(ReadTable("obce.csv").size()));
    EXPECT_TRUE(HasNoExpandedFiles());
  }
};

TEST_F(Killed, AtOnceItStartsSoundlyNextTime) {
  for (int again = 0; again < 3; ++again) Program(Exe()).Kill();
  ExpectASoundStart();
}

class KilledInStep : public Killed, public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(KilledInStep, OfItsLoadingItStartsSoundlyNextTime) {
  constexpr int kKills = 3;
  constexpr int kMostStarts = 30;
  int kills = 0;
  for (int start = 0; start < kMostStarts && kills < kKills; ++start) kills += KillWhile(GetParam()) ? 1 : 0;
  EXPECT_EQ(kills, kKills) << "The program did not show its message in " << kMostStarts << " starts.";
  ExpectASoundStart();
}

INSTANTIATE_TEST_SUITE_P(, KilledInStep,
                         ::testing::Values(L"Strpení prosím, načítám databázi obcí.",
                                           L"Strpení prosím, načítám databázi pošt.",
                                           L"Strpení prosím, načítám databázi okresů.",
                                           L"Strpení prosím, vytvářím seznam obcí."),
                         [](const auto& step) { return "Number" + std::to_string(step.index + 1); });

}  // namespace
}  // namespace kvez::test
