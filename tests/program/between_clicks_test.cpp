// What goes on between two clicks: a command in the middle of another, a window above a window, the end in between.

#include <gmock/gmock.h>

#include <fstream>
#include <future>
#include <iterator>
#include <thread>

#include "tests/program/download_base.h"
#include "tests/program/foreign_window.h"
#include "tests/program/program_test.h"
#include "tests/program/small_data.h"
#include "tests/support/folder_dialog.h"
#include "tests/support/http_server.h"
#include "tests/support/list_menu_driver.h"
#include "tests/support/mail_client.h"
#include "tests/support/temporary_folder.h"
#include "text/windows1250.h"

namespace kvez::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr int kFoundList = kLstMPSC + 1;
constexpr int kLightBlueField = kTxtMPSC + 1;
constexpr const wchar_t* kExitQuestion = L"Přejete si program ukončit ?";

class BetweenClicks : public ProgramTest {
 protected:
  static HWND Settings() { return FindWindowW(L"KvezNastaveni", nullptr); }

  static void Search(const Program& program, const std::wstring& text) {
    program.Focus(kTxtMPSC);
    TypeText(text);
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitUntil([&] { return !program.Text(kLblPSCV + 1).empty(); }));
  }

  /// Sends a message from a thread of its own: its answer may come only when a question is answered.
  static std::future<LRESULT> Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    // Not waited for at the end of a test that fails: the answer may never come.
    std::packaged_task<LRESULT()> task([=] { return SendMessageW(window, message, wParam, lParam); });
    std::future<LRESULT> answer = task.get_future();
    std::thread(std::move(task)).detach();
    return answer;
  }

  static std::wstring ReadFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    return FromWindows1250({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  }

  static std::size_t CountOf(const std::wstring& part, const std::wstring& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::wstring::npos; at = text.find(part, at + 1)) ++count;
    return count;
  }
};

TEST_F(BetweenClicks, TheExitQuestionIsModalToTheSettingsAndTheMainWindow) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Click(kTlHNastaveni);
  ASSERT_TRUE(WaitUntil([] { return Settings() != nullptr && GetForegroundWindow() == Settings(); }));
  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  const Dialog question = program.WaitDialog();
  ASSERT_EQ(question.text, kExitQuestion);
  EXPECT_FALSE(IsWindowEnabled(program.MainWindow()));
  EXPECT_FALSE(IsWindowEnabled(Settings()));
  EXPECT_TRUE(program.Answer(question, IDNO));
  EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(program.MainWindow()) && IsWindowEnabled(Settings()); }));
  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

TEST_F(BetweenClicks, TheSessionEndsOverAQuestionThatASentMessageHasBrought) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  auto closing = Send(program.MainWindow(), WM_CLOSE);
  ASSERT_EQ(program.WaitDialog().text, kExitQuestion);
  auto ending = Send(program.MainWindow(), WM_ENDSESSION, TRUE, static_cast<LPARAM>(ENDSESSION_CRITICAL));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

TEST_F(BetweenClicks, TheSessionEndsWithTheSettingsOpenAndKeepsTheShortcutThatIsWanted) {
  SaveSetting(L"zástupce", L"True");
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Click(kTlHNastaveni);
  ASSERT_TRUE(WaitUntil([] { return Settings() != nullptr; }));
  auto query = Send(program.MainWindow(), WM_QUERYENDSESSION);
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  EXPECT_EQ(query.get(), TRUE);
  auto ending = Send(program.MainWindow(), WM_ENDSESSION, TRUE);
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
  EXPECT_EQ(Settings(), nullptr);
}

TEST_F(BetweenClicks, AnEndOfTheSessionThatIsRefusedOrCalledOffLeavesAProgramThatWorks) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  for (const int answer : {IDNO, IDYES}) {
    auto query = Send(program.MainWindow(), WM_QUERYENDSESSION);
    EXPECT_TRUE(program.Answer(program.WaitDialog(), answer));
    EXPECT_EQ(query.get(), answer == IDYES ? TRUE : FALSE);
    SendMessageW(program.MainWindow(), WM_ENDSESSION, FALSE, 0);
  }
  Search(program, L"klentnice");
  EXPECT_EQ(program.ListCount(kFoundList), 1);
}

TEST_F(BetweenClicks, ClosingWhileItLoadsEndsWithoutAMessageAfterTheGoodbye) {
  for (const wchar_t* file : {L"vd1.kl_", L"vd2.kl_", L"vd3.kl_"}) std::filesystem::remove(Folder() / file);
  Program program(Exe());
  const Dialog first = program.WaitDialog();
  ASSERT_EQ(first.text, L"Soubor se seznamem PSČ je poškozen nebo neexistuje !");
  auto closing = Send(program.MainWindow(), WM_CLOSE);
  Dialog question;
  ASSERT_TRUE(WaitUntil([&] {
    const auto open = program.OpenDialog();
    if (open) question = *open;
    return open && open->text == kExitQuestion;
  }));
  EXPECT_TRUE(program.Answer(question, IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

TEST_F(BetweenClicks, TheSecondStartBringsTheMinimisedProgramBack) {
  Program first(Exe());
  ASSERT_TRUE(first.WaitReady());
  ShowWindow(first.MainWindow(), SW_MINIMIZE);
  ASSERT_TRUE(WaitUntil([&] { return IsIconic(first.MainWindow()); }));
  Program second(Exe());
  EXPECT_TRUE(second.Answer(second.WaitDialog(), IDOK));
  EXPECT_EQ(second.WaitForEnd(), DWORD{0});
  EXPECT_TRUE(WaitUntil([&] { return !IsIconic(first.MainWindow()) && GetForegroundWindow() == first.MainWindow(); }));
}

TEST_F(BetweenClicks, TheSecondStartShowsTheQuestionThatTheFirstAsks) {
  Program first(Exe());
  ASSERT_TRUE(first.WaitReady());
  PostMessageW(first.MainWindow(), WM_CLOSE, 0, 0);
  const Dialog question = first.WaitDialog();
  // Else the question would come to the front by itself when the message goes.
  const ForeignWindow other;
  Program second(Exe());
  EXPECT_TRUE(second.Answer(second.WaitDialog(), IDOK));
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == question.window; }));
  EXPECT_TRUE(first.Answer(question, IDNO));
}

TEST_F(BetweenClicks, AnExportHasTheRowsOfItsHeading) {
  SaveSetting(L"nastavení2", L"1");
  const auto folder = Folder() / L"výstup";
  std::filesystem::create_directory(folder);
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Click(kOptMPSC);
  ASSERT_TRUE(WaitUntil([&] { return program.IsChecked(kOptMPSC); }));
  program.Focus(kLightBlueField);
  TypeText(L"691");
  ASSERT_TRUE(WaitUntil([&] { return program.Text(kLblMPSCN) == L"Obce s PSČ začínající na  \"691\"."; }));
  const int rows = program.ListCount(kFoundList);
  TypeText(L"1");
  ASSERT_TRUE(ChooseFromListMenu(program, MenuCommand::Export));
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  const HWND dialog = WaitFolderDialog(program.ProcessId());
  ASSERT_NE(dialog, nullptr);
  // Longer than the deferred search would take.
  ASSERT_TRUE(SelectFolder(dialog, folder.wstring()));
  const ULONGLONG start = GetTickCount64();
  EXPECT_TRUE(WaitUntil([&] { return GetTickCount64() - start > 2000; }));
  ASSERT_TRUE(CloseFolderDialog(dialog, IDOK));
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDOK));
  const std::wstring text = ReadFile(folder / L"vdkvez.txt");
  EXPECT_TRUE(text.starts_with(L"Obce s PSČ začínající na  \"691\".\r\n"));
  EXPECT_EQ(CountOf(L"\r\n691 ", text), static_cast<std::size_t>(rows));
  // It was put off, not lost.
  EXPECT_TRUE(WaitUntil([&] { return program.Text(kLblMPSCN) == L"Obce s PSČ začínající na  \"6911\"."; }));
}

class BetweenDownloads : public BetweenClicks {
 protected:
  void SetUp() override {
    BetweenClicks::SetUp();
    ASSERT_TRUE(ReplaceDownloadBase(Exe(), server.Base()));
    for (int file = 0; file < 3; ++file) {
      HttpAnswer answer{.body = SmallData(file)};
      if (file == 2) answer.until = release.get_future().share();
      server.Serve(DataFileName(file), answer);
    }
  }

  /// Starts an update, whose first download waits.
  void StartUpdate(const Program& program) {
    program.Click(kTlHAktualizace);
    ASSERT_TRUE(WaitUntil([&] { return server.Requests().size() == 1; }));
  }

  std::promise<void> release;
  HttpServer server;
};

TEST_F(BetweenDownloads, ClosingWaitsForTheEndAndThenAsks) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  StartUpdate(program);
  auto closing = Send(program.MainWindow(), WM_CLOSE);
  // It answers at once, and has asked nothing.
  ASSERT_TRUE(WaitUntil([&] { return closing.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
  EXPECT_FALSE(program.OpenDialog());
  release.set_value();
  const Dialog question = program.WaitDialog();
  EXPECT_EQ(question.text, kExitQuestion);
  EXPECT_THAT(server.Requests(), ElementsAre("vd3.kl_", "vd2.kl_", "vd1.kl_"));
  EXPECT_TRUE(program.Answer(question, IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
  EXPECT_EQ(server.Requests().size(), 3U);
}

TEST_F(BetweenDownloads, NothingIsDownloadedWhenTheSessionEnds) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  StartUpdate(program);
  auto query = Send(program.MainWindow(), WM_QUERYENDSESSION);
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  EXPECT_EQ(query.get(), TRUE);
  auto ending = Send(program.MainWindow(), WM_ENDSESSION, TRUE);
  ending.get();
  release.set_value();
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
  EXPECT_EQ(server.Requests().size(), 1U);
}

class BetweenMails : public BetweenClicks {
 protected:
  void SetUp() override {
    BetweenClicks::SetUp();
    m_client.emplace(0U, (m_records.Path() / "mail.txt").wstring());
  }

  /// Sends a list from a program in a folder of that name; the path that the mail client has got.
  std::string SendFrom(const wchar_t* folder) {
    MoveFolder(Folder() / folder);
    Program program(Exe());
    EXPECT_TRUE(program.WaitReady());
    Search(program, L"klentnice");
    EXPECT_TRUE(ChooseFromListMenu(program, MenuCommand::Mail));
    EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
    EXPECT_TRUE(WaitUntil([&] { return m_client->Received().has_value(); }));
    EXPECT_FALSE(program.OpenDialog());
    return m_client->Received() ? m_client->Received()->files : std::string();
  }

  TemporaryFolder m_records;
  std::optional<MailClientRegistration> m_client;
};

TEST_F(BetweenMails, AFolderWithTheDelimiterInItGoesByItsShortPath) {
  const std::string file = SendFrom(L"a;b");
  EXPECT_THAT(file, Not(HasSubstr(";")));
  EXPECT_THAT(ReadFile(std::filesystem::path(file)), StartsWith(L"Název obce \"klentnice\"."));
}

TEST_F(BetweenMails, AFolderThatTheCodePageCannotSpellGoesByItsShortPath) {
  const std::string file = SendFrom(L"Ωmega-日本");
  EXPECT_THAT(file, Not(HasSubstr("?")));
  EXPECT_THAT(ReadFile(std::filesystem::path(file)), StartsWith(L"Název obce \"klentnice\"."));
}

TEST_F(BetweenMails, AFileThatCannotBeWrittenAnewIsNotSent) {
  std::filesystem::create_directory(Folder() / L"meil.txt");
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  Search(program, L"klentnice");
  ASSERT_TRUE(ChooseFromListMenu(program, MenuCommand::Mail));
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  const Dialog error = program.WaitDialog();
  EXPECT_EQ(error.text, L"Nastala chyba při pokusu o odeslání souboru e-mailem.");
  EXPECT_EQ(error.caption, L"2");
  EXPECT_TRUE(program.Answer(error, IDOK));
  EXPECT_FALSE(m_client->Received());
}

}  // namespace
}  // namespace kvez::test
