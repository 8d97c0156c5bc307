// The update of the database in the real program, from a web server of the tests' own.

#include <gmock/gmock.h>

#include "tests/program/update_fixture.h"

namespace kvez::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Update = UpdateFixture;

TEST_F(Update, TakesTheNewFilesAndStartsAfresh) {
  // Theirs is the day of the download, whatever the server says of them.
  for (int file = 0; file < 3; ++file) {
    server.Serve(Name(file), {.body = SmallData(file), .header = "Last-Modified: Fri, 01 Nov 2024 12:00:00 GMT\r\n"});
  }
  const std::wstring before = Today();
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  TypeText(L"praha");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) > 0; }));
  StartUpdate(program);
  ASSERT_TRUE(WaitUpdated(program));
  EXPECT_THAT(server.Requests(), ElementsAre("vd3.kl_", "vd2.kl_", "vd1.kl_"));
  ASSERT_TRUE(
      WaitUntil([&] { return Status(program) == LastUpdateOf(before) || Status(program) == LastUpdateOf(Today()); }));
  EXPECT_EQ(program.ListCount(kLstMPSC + 1), 0);
  EXPECT_EQ(program.Text(kLblMPSCN), L"");
  EXPECT_EQ(program.Text(kLblPSCV), L"V seznamu jsou 2 obce.");
  EXPECT_EQ(program.Text(kLblPSCV + 1), L"");
  EXPECT_EQ(program.ListTexts(kLstMPSC + 2), std::vector<std::wstring>{L"Trutnov"});
  EXPECT_TRUE(program.IsChecked(kOptMPSC + 1));
  EXPECT_TRUE(program.IsEnabled(kTlHVyhledej));
  EXPECT_TRUE(HasNoExpandedFiles());
  Close(program);
}

TEST_F(Update, AgainAsksTheServerAgain) {
  Program program(Exe());
  StartUpdate(program);
  ASSERT_TRUE(WaitUpdated(program));
  fakes::Bytes newer;
  fakes::AppendMunicipality(newer, 54232, L"Batňovice", L"Trutnov");
  server.Serve("vd1.kl_", {.body = Text(newer)});
  program.Click(kTlHAktualizace);
  EXPECT_TRUE(WaitListed(program, {L"Batňovice"}));
}

TEST_F(Update, FromThePublishedFolderBringsTheWholeList) {
  const auto published = Native(KVEZ_BINARY_DIR) / "published";
  ASSERT_TRUE(std::filesystem::exists(published / "index.html")) << "The build did not publish: is chmcmd installed?";
  for (int i = 0; i < 3; ++i) {
    // What the folder has now is older.
    server.Serve(Name(i), {.body = ReadBytes(published / Name(i))});
    WriteBytes(Folder() / Name(i), i == 0 ? std::string("\1\0\0\0\1\0A\1\0B", 10) : ReadBytes(Folder() / Name(i)));
  }
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  ASSERT_EQ(program.ListTexts(kLstMPSC), std::vector<std::wstring>{L"A"});
  StartUpdate(program);
  const auto municipalities = ReadTable("obce.csv");
  ASSERT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC) == static_cast<int>(municipalities.size()); }));
  EXPECT_EQ(program.ListText(kLstMPSC, 0), municipalities[0][1]);
}

TEST_F(Update, ThePublishedPageTellsTheCounts) {
  std::string page = ReadBytes(Native(KVEZ_BINARY_DIR) / "published" / "index.html");
  const auto count = [](const char* table) {
    std::string digits = std::to_string(ReadTable(table).size());
    if (digits.size() > 3) digits.insert(digits.size() - 3, "&nbsp;");
    return digits + "</li>";
  };
  EXPECT_THAT(page, HasSubstr("jejich částí: " + count("obce.csv")));
  EXPECT_THAT(page, HasSubstr("dodávacích pošt: " + count("posty.csv")));
  EXPECT_THAT(page, HasSubstr("okresů: " + count("okresy.csv")));
  for (const char* file : {"vd1.kl_", "vd2.kl_", "vd3.kl_", "kvez.chm"}) {
    EXPECT_THAT(page, HasSubstr(std::string("<a href=\"") + file + "\">"));
  }
}

TEST_F(Update, ARefusedConnectionKeepsTheDatabase) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  const int rows = program.ListCount(kLstMPSC);
  server.Stop();
  StartUpdate(program);
  EXPECT_THAT(AnswerMessages(program, 1), ElementsAre(L"Aktualizace databáze nebyla úspěšná."));
  EXPECT_EQ(program.ListCount(kLstMPSC), rows);
  EXPECT_TRUE(WaitUntil([&] { return Status(program) == L"Byla zachována původní databáze."; }));
  EXPECT_TRUE(WaitUntil([&] { return Status(program).empty(); }));
  Close(program);
  Program again(Exe());
  ASSERT_TRUE(again.WaitReady());
  EXPECT_EQ(again.ListCount(kLstMPSC), rows);
}

TEST_F(Update, AServerThatDiesInTheMiddleLeavesAProgramThatWorks) {
  const std::string whole = ReadBytes(Native(KVEZ_PROGRAM_FOLDER) / "vd1.kl_");
  server.Serve("vd1.kl_", {.body = whole, .sent = whole.size() / 2});
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  const int rows = program.ListCount(kLstMPSC);
  StartUpdate(program);
  // Some systems call such a download a failure, some do not notice; then the loading does.
  const auto messages = AnswerMessages(program, 1);
  ASSERT_EQ(messages.size(), 1U);
  if (messages[0] == kDamaged[0]) {
    DeclineThePreviousDatabase(program);
    EXPECT_EQ(program.ListCount(kLstMPSC), 0);
  } else {
    EXPECT_EQ(messages[0], L"Aktualizace databáze nebyla úspěšná.");
    EXPECT_EQ(program.ListCount(kLstMPSC), rows);
  }
  // The next one mends it.
  ServeSmallData();
  program.Click(kTlHAktualizace);
  EXPECT_TRUE(WaitUpdated(program));
  Close(program);
}

enum class Damage { Missing, Cut, Empty, Page };

struct DamageCase {
  int file;
  Damage damage;
};

std::string NameOf(const DamageCase& damaged) {
  constexpr const char* names[] = {"Missing", "Cut", "Empty", "Page"};
  return "Vd" + std::to_string(damaged.file + 1) + names[static_cast<int>(damaged.damage)];
}
void PrintTo(const DamageCase& damaged, std::ostream* stream) { *stream << NameOf(damaged); }

class UpdateDamage : public Update, public testing::WithParamInterface<DamageCase> {};

/// What is on the disk after such a download is for the loading to judge, and it says so with its own message.
TEST_P(UpdateDamage, IsSaidByTheLoading) {
  const auto [file, damage] = GetParam();
  const std::string page =
      "<!DOCTYPE html><html><head><title>Chyba</title></head><body>Stránka nenalezena.</body></html>";
  switch (damage) {
    case Damage::Missing:
      server.Serve(Name(file), {.status = 404, .body = page});
      break;
    case Damage::Cut: {
      const std::string whole = ReadBytes(Native(KVEZ_PROGRAM_FOLDER) / Name(file));
      server.Serve(Name(file), {.body = whole.substr(0, whole.size() / 2)});
      break;
    }
    case Damage::Empty:
      server.Serve(Name(file), {.body = ""});
      break;
    case Damage::Page:
      server.Serve(Name(file), {.body = page});
      break;
  }
  Program program(Exe());
  StartUpdate(program);
  const auto messages = AnswerMessages(program, 1);
  EXPECT_THAT(messages, ElementsAre(kDamaged[file]));
  if (file == 0) DeclineThePreviousDatabase(program);
  ASSERT_TRUE(WaitUntil([&] { return !Status(program).empty() && !program.OpenDialog(); }));
  EXPECT_TRUE(HasNoExpandedFiles());

  // The rest is there: municipalities without them nothing, districts without them no third mode.
  EXPECT_EQ(program.ListCount(kLstMPSC), file == 0 ? 0 : 2);
  if (file != 0) {
    EXPECT_EQ(program.IsShown(kOptMPSC + 2), file != 2);
  }

  ServeSmallData();
  program.Click(kTlHAktualizace);
  EXPECT_TRUE(WaitUpdated(program));
  EXPECT_TRUE(WaitUntil([&] { return program.IsShown(kOptMPSC + 2); }));
  Close(program);
}

INSTANTIATE_TEST_SUITE_P(, UpdateDamage,
                         testing::Values(DamageCase{0, Damage::Missing}, DamageCase{0, Damage::Cut},
                                         DamageCase{0, Damage::Empty}, DamageCase{0, Damage::Page},
                                         DamageCase{1, Damage::Missing}, DamageCase{1, Damage::Cut},
                                         DamageCase{1, Damage::Empty}, DamageCase{1, Damage::Page},
                                         DamageCase{2, Damage::Missing}, DamageCase{2, Damage::Cut},
                                         DamageCase{2, Damage::Empty}, DamageCase{2, Damage::Page}),
                         [](const auto& damaged) { return NameOf(damaged.param); });

}  // namespace
}  // namespace kvez::test
