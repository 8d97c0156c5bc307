#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/core/data_bytes.h"
#include "tests/program/download_base.h"
#include "tests/program/program_test.h"
#include "tests/program/small_data.h"
#include "tests/support/http_server.h"

namespace kvez::test {

inline const std::wstring kDamaged[] = {L"Soubor se seznamem PSČ je poškozen nebo neexistuje !",
                                        L"Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !",
                                        L"Soubor se seznamem okresů je poškozen nebo neexistuje !"};

inline std::string Text(const fakes::Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

/// The program with the address of a server of the test's own in it.
class UpdateFixture : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    ASSERT_TRUE(ReplaceDownloadBase(Exe(), server.Base()))
        << "The built-in download address must stand once in kvez.exe and have at least " << server.Base().size()
        << " characters.";
    ServeSmallData();
  }

  void ServeSmallData() {
    for (int file = 0; file < 3; ++file) server.Serve(Name(file), {.body = SmallData(file)});
  }

  static std::string Name(int file) { return DataFileName(file); }
  static std::wstring Status(const Program& program) { return StatusText(program.StatusBar(), 2); }

  void StartUpdate(const Program& program) {
    ASSERT_TRUE(program.WaitReady());
    program.Click(kTlHAktualizace);
  }
  /// Waits until exactly these municipalities are listed. Counted first: a whole list takes seconds to read.
  static bool WaitListed(const Program& program, const std::vector<std::wstring>& names) {
    return WaitUntil([&] {
      return !program.IsShown(kPicMPSCPI) && program.ListCount(kLstMPSC) == static_cast<int>(names.size()) &&
             program.ListTexts(kLstMPSC) == names;
    });
  }
  /// Waits until the update has loaded the data that the server gives.
  static bool WaitUpdated(const Program& program) { return WaitListed(program, {L"Libňatov", L"Úpice"}); }
  /// The texts of the messages that come one after the other, each answered, until the program is at rest again.
  std::vector<std::wstring> AnswerMessages(const Program& program, std::size_t count) {
    std::vector<std::wstring> texts;
    while (texts.size() < count) {
      const Dialog dialog = program.WaitDialog();
      if (dialog.window == nullptr) break;
      EXPECT_EQ(dialog.caption, L"Kvez");
      texts.push_back(dialog.text);
      program.Answer(dialog, IDOK);
    }
    WaitUntil([&] { return !program.IsShown(kPicMPSCPI); });
    return texts;
  }
  /// Answers the question that comes when an update has left no municipalities.
  static void AnswerThePreviousDatabase(const Program& program, int button) {
    const Dialog question = program.WaitDialog();
    EXPECT_EQ(question.text, L"Přejete si vrátit předchozí databázi ?");
    EXPECT_EQ(question.caption, L"Kvez");
    EXPECT_TRUE(program.Answer(question, button));
  }
  static void DeclineThePreviousDatabase(const Program& program) { AnswerThePreviousDatabase(program, IDNO); }

  /// The names of what is kept in the folder.
  std::vector<std::wstring> KeptNames() const {
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
      if (entry.path().extension() == L".old") names.push_back(entry.path().filename().wstring());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  static void Close(Program& program) {
    PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
    EXPECT_EQ(program.WaitForEnd(), DWORD{0});
  }

  HttpServer server;
};

}  // namespace kvez::test
