// Servers that answer with anything but the data: hotel networks, dying machines, ones that never come to an end.

#include <gmock/gmock.h>
#include <windows.h>
// Stays below windows.h.
#include <shlobj.h>

#include "tests/program/update_fixture.h"
#include "tests/support/list_menu_driver.h"

namespace kvez::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kPage =
    "<!DOCTYPE html><html><head><title>Přihlášení</title></head><body>Vítejte v hotelu.</body></html>";

class BadServer : public UpdateFixture {
 protected:
  void SetUp() override {
    UpdateFixture::SetUp();
    for (int i = 0; i < 3; ++i) m_original.push_back(ReadBytes(Folder() / Name(i)));
    m_rows = static_cast<int>(ReadTable("obce.csv").size());
  }

  void ServePages() {
    for (int i = 0; i < 3; ++i) server.Serve(Name(i), {.body = kPage, .type = "text/html"});
  }
  void ExpectTheOldData(const Program& program) {
    EXPECT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC) == m_rows && !program.IsShown(kPicMPSCPI); }));
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(ReadBytes(Folder() / Name(i)) == m_original[static_cast<std::size_t>(i)]);
    EXPECT_THAT(KeptNames(), IsEmpty());
    EXPECT_TRUE(HasNoExpandedFiles());
  }
  /// Says yes to whatever comes until the program is at rest with a list. What systems say of such a download differs.
  static void SayYesToAll(const Program& program) {
    EXPECT_TRUE(WaitUntil(
        [&] {
          if (const auto dialog = program.OpenDialog()) {
            program.Answer(*dialog, GetDlgItem(dialog->window, IDYES) != nullptr ? IDYES : IDOK);
            return false;
          }
          return program.ListCount(kLstMPSC) > 0 && !program.IsShown(kPicMPSCPI);
        },
        60));
  }
  static DWORD StateOf(const Program& program) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(program.MainWindow(), nullptr), &info) ? info.flags : 0;
  }
  /// How much the system keeps of what was downloaded, in bytes.
  static std::uintmax_t CacheSize() {
    wchar_t folder[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_INTERNET_CACHE, nullptr, SHGFP_TYPE_CURRENT, folder);
    std::uintmax_t size = 0;
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, error)) {
      if (entry.is_regular_file(error)) size += entry.file_size(error);
    }
    return size;
  }

  std::vector<std::string> m_original;
  int m_rows = 0;
};

TEST_F(BadServer, ThatAnswersWithPagesLeavesTheWayBack) {
  ServePages();
  Program program(Exe());
  StartUpdate(program);
  EXPECT_THAT(AnswerMessages(program, 3), ElementsAre(kDamaged[0], kDamaged[1], kDamaged[2]));
  // The designed empty state comes first.
  const Dialog question = program.WaitDialog();
  EXPECT_EQ(program.ListCount(kLstMPSC), 0);
  EXPECT_EQ(program.ListCount(kLstMPSC + 2), 0);
  EXPECT_EQ(question.text, L"Přejete si vrátit předchozí databázi ?");
  EXPECT_THAT(KeptNames(), ElementsAre(L"vd1.kl_.old", L"vd2.kl_.old", L"vd3.kl_.old"));
  EXPECT_TRUE(program.Answer(question, IDYES));
  ExpectTheOldData(program);
  EXPECT_TRUE(WaitUntil([&] { return Status(program) == L"Byla zachována původní databáze."; }));
  EXPECT_TRUE(program.IsShown(kOptMPSC + 2));
  Close(program);
}

TEST_F(BadServer, IsForgottenOnlyWhenTheWayBackWasTaken) {
  ServePages();
  {
    Program program(Exe());
    StartUpdate(program);
    AnswerMessages(program, 3);
    DeclineThePreviousDatabase(program);
    Close(program);
  }
  Program again(Exe());
  AnswerMessages(again, 3);
  AnswerThePreviousDatabase(again, IDYES);
  ExpectTheOldData(again);
  Close(again);
}

TEST_F(BadServer, ThatSendsWithoutEndFillsNoDisk) {
  const std::uintmax_t before = CacheSize();
  for (int i = 0; i < 3; ++i) {
    server.Serve(Name(i), {.body = std::string(1 << 16, 'x'), .then = HttpAnswer::Then::Endless});
  }
  Program program(Exe());
  StartUpdate(program);
  ASSERT_TRUE(WaitUntil([&] { return server.SentBytes() > (20U << 20); }, 60));
  server.LetGo();
  EXPECT_NE(program.WaitDialog(60).window, nullptr);
  SayYesToAll(program);
  ExpectTheOldData(program);
  Close(program);
  EXPECT_LE(CacheSize(), before + (1U << 20));
}

TEST_F(BadServer, ThatSendsWithoutEndAndAProgramThatIsEndedLoseNothing) {
  const std::uintmax_t before = CacheSize();
  server.Serve(Name(0), {.body = std::string(1 << 16, 'x'), .then = HttpAnswer::Then::Endless});
  {
    Program program(Exe());
    StartUpdate(program);
    ASSERT_TRUE(WaitUntil([&] { return server.SentBytes() > (20U << 20); }, 60));
    program.Kill();
  }
  Program again(Exe());
  SayYesToAll(again);
  EXPECT_EQ(ReadBytes(Folder() / Name(0)).size(), m_original[0].size());
  EXPECT_TRUE(WaitUntil([&] { return again.ListCount(kLstMPSC) == m_rows; }));
  EXPECT_THAT(KeptNames(), IsEmpty());
  // What the system has kept of the part that came goes with the next download.
  server.LetGo();
  ServeSmallData();
  again.Click(kTlHAktualizace);
  EXPECT_TRUE(WaitUpdated(again));
  EXPECT_LE(CacheSize(), before + (1U << 20));
  Close(again);
}

TEST_F(BadServer, ThatFallsSilentIsWaitedForAndLosesNothing) {
  server.Serve(Name(0), {.body = std::string(4096, 'x'), .sent = 100, .then = HttpAnswer::Then::Stall});
  Program program(Exe());
  StartUpdate(program);
  ASSERT_TRUE(WaitUntil([&] { return server.Requests().size() == 3 && server.SentBytes() >= 100; }));
  server.LetGo();
  EXPECT_NE(program.WaitDialog(60).window, nullptr);
  SayYesToAll(program);
  EXPECT_EQ(program.ListCount(kLstMPSC), m_rows);
  // The next one mends whatever it has left on the disk.
  ServeSmallData();
  program.Click(kTlHAktualizace);
  EXPECT_TRUE(WaitUpdated(program));
  EXPECT_THAT(KeptNames(), IsEmpty());
  Close(program);
}

TEST_F(BadServer, ThatFallsSilentFreezesNothingAndEscapeEndsIt) {
  server.Serve(Name(2), {.body = std::string(65536, 'x'), .sent = 20000, .then = HttpAnswer::Then::Stall});
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  // Not by the pointer, which shall not rest on a button.
  program.Focus(kTxtMPSC);
  PressKey('A', false, false, true);
  ASSERT_TRUE(WaitUntil([&] { return server.SentBytes() >= 20000 && program.IsShown(kPicMPSCPI); }));
  EXPECT_EQ(program.Text(kLblZpravaI), L"Strpení prosím, stahuji. Ukončí to klávesa Esc.");
  EXPECT_EQ(Status(program), L"Bylo zahájeno stažení aktuálního datového souboru okresy.");
  // It answers, to the keys too. The Escape that closes the menu ends nothing else.
  PressKey(VK_SPACE, false, false, true);
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; }));
  for (const DWORD left : {DWORD{GUI_POPUPMENUMODE}, DWORD{GUI_INMENUMODE}}) {
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(WaitUntil([&] { return OpenMenu() == nullptr && (StateOf(program) & left) == 0; }));
  }
  RECT before{};
  GetWindowRect(program.MainWindow(), &before);
  SetWindowPos(program.MainWindow(), nullptr, before.left + 50, before.top + 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  EXPECT_TRUE(WaitUntil([&] {
    RECT now{};
    return GetWindowRect(program.MainWindow(), &now) && now.left == before.left + 50 && now.top == before.top + 30;
  }));
  EXPECT_FALSE(program.OpenDialog());
  EXPECT_EQ(server.Requests().size(), 1U);
  PressKey(VK_ESCAPE);
  const Dialog message = program.WaitDialog();
  EXPECT_EQ(message.text, L"Aktualizace databáze nebyla úspěšná.");
  EXPECT_TRUE(program.Answer(message, IDOK));
  EXPECT_TRUE(WaitUntil([&] { return Status(program) == L"Byla zachována původní databáze."; }));
  ExpectTheOldData(program);
  EXPECT_EQ(server.Requests().size(), 1U) << "the other two were not begun";
  Close(program);
}

TEST_F(BadServer, ThatNamesAnotherTypeIsNotBelievedButItsBytesAre) {
  fakes::Bytes municipalities;
  fakes::AppendMunicipality(municipalities, 54232, L"Libňatov", L"Trutnov");
  fakes::AppendMunicipality(municipalities, 54232, L"Úpice", L"Trutnov");
  server.Serve(Name(0), {.body = Text(municipalities), .type = "text/html; charset=utf-8"});
  Program program(Exe());
  StartUpdate(program);
  EXPECT_TRUE(WaitUpdated(program));
  Close(program);
}

TEST_F(BadServer, ThatHasOneFileOfThreeIsToldInNumbers) {
  for (const int other : {1, 2}) server.Serve(Name(other), {.body = m_original[static_cast<std::size_t>(other)]});
  fakes::Bytes municipalities;
  fakes::AppendMunicipality(municipalities, 99998, L"Libňatov", L"Trutnov");
  fakes::AppendMunicipality(municipalities, 99999, L"Úpice", L"Atlantida");
  server.Serve(Name(0), {.body = Text(municipalities)});
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  // Not by the pointer: resting on the button it brings up the button's hint, where the same is told.
  program.Focus(kTxtMPSC);
  PressKey('A', false, false, true);
  EXPECT_TRUE(WaitUpdated(program));
  const std::wstring sentence = L"Soubory k sobě nepatří: 2 obce bez pošty, 1 obec bez okresu.";
  EXPECT_TRUE(WaitUntil([&] { return Status(program) == sentence; }));
  EXPECT_TRUE(WaitUntil([&] { return Status(program).starts_with(L"Poslední aktualizace databáze"); }));
  Close(program);
}

}  // namespace
}  // namespace kvez::test
