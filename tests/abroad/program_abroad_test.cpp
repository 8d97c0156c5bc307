// The real program on a Windows of another language, which does not follow the code page that the program asks for, by
// a user whose name that language cannot spell.

#include <windows.h>
// Stay below windows.h.
#include <shlobj.h>

#include <gmock/gmock.h>

#include "mainwindow/clock_texts.h"
#include "platform/windows/windows_formats.h"
#include "tests/abroad/abroad.h"
#include "tests/program/download_base.h"
#include "tests/program/program_test.h"
#include "tests/support/folder_dialog.h"
#include "tests/support/list_menu_driver.h"
#include "tests/support/mail_client.h"
#include "tests/support/printed_pages.h"

namespace kvez::test {
namespace {

constexpr int kResult = kLstMPSC + 1;
constexpr int kShortcutBox = 301;
const std::wstring kWanted = L"Říčany";
const std::wstring kFound = L"Název začíná \"Říčany\".";

/// The program of all tests here: it is started once, and finds the list once.
struct Visit {
  std::filesystem::path home = L"C:\\users\\Řehoř";
  std::filesystem::path folder = home / L"Kvez";
  std::filesystem::path desktop = home / L"Plocha";
  MailClientRegistration mailClient{0, (home / "mail.txt").wstring()};
  PrintQueue queue;
  std::optional<Program> program;
};

/// Takes the Czech code page out of the program's manifest: what is left asks for none.
bool ForgetCodePage(const std::filesystem::path& exe) {
  const std::string mark = "cs-CZ</activeCodePage>";
  std::string bytes = ReadBytes(exe);
  const auto place = bytes.find(mark);
  if (place == std::string::npos || bytes.find(mark, place + 1) != std::string::npos) return false;
  WriteBytes(exe, bytes.replace(place, 5, 5, ' '));
  return true;
}

void PutDesktop(const std::filesystem::path& desktop) {
  const std::wstring path = desktop.wstring();
  for (const wchar_t* branch : {L"User Shell Folders", L"Shell Folders"}) {
    const std::wstring key = std::wstring(L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\") + branch;
    RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"Desktop", REG_SZ, path.c_str(),
                    static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
  }
}

class ProgramAbroad : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_FALSE(SystemLocale().empty()) << "to be run by tests/support/abroad";
    visit = std::make_unique<Visit>();
    CopyProgram(Native(KVEZ_PROGRAM_FOLDER), visit->folder);
    std::filesystem::copy_file(Native(KVEZ_PROGRAM_FOLDER) / "kvez.chm", visit->folder / "kvez.chm");
    std::filesystem::create_directory(visit->desktop);
    PutDesktop(visit->desktop);
    ASSERT_TRUE(ForgetCodePage(visit->folder / "kvez.exe"));
    ClearSettings();
    visit->program.emplace((visit->folder / "kvez.exe").wstring());
    ASSERT_TRUE(visit->program->WaitReady());
    visit->program->Focus(kTxtMPSC);
    TypeText(kWanted + L"*");
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitUntil([] { return visit->program->ListCount(kResult) > 0; }));
  }
  static void TearDownTestSuite() { visit.reset(); }

  void SetUp() override { ASSERT_TRUE(visit && visit->program && !visit->program->HasEnded()); }

  static Program& TheProgram() { return *visit->program; }
  static std::wstring Status(int panel) { return StatusText(TheProgram().StatusBar(), panel); }

  static void Choose(MenuCommand command) {
    ASSERT_TRUE(ChooseFromListMenu(TheProgram(), command));
    ASSERT_TRUE(TheProgram().Answer(TheProgram().WaitDialog(), IDYES));
  }

  /// The list text up to its date, from the tables of data/.
  static std::wstring BeginningOfList() {
    std::map<std::wstring, std::wstring> postOffices;
    for (const TableRow& row : ReadTable("posty.csv")) postOffices.emplace(row[0], row[1]);
    std::wstring text = kFound + L"\r\n\r\nPSČ ; POŠTA ; OBEC ; OKRES\r\n";
    for (const TableRow& row : ReadTable("obce.csv")) {
      if (!row[1].starts_with(kWanted)) continue;
      text += L"\r\n" + row[0].substr(0, 3) + L" " + row[0].substr(3) + L" ; " + postOffices[row[0]] + L" ; " + row[1] +
              L" ; " + row[2];
    }
    return text + L"\r\n\r\n\r\n";
  }
  /// A file with the list is in Windows-1250, but for the name of the day where that lacks it.
  static void ExpectList(const std::filesystem::path& file) {
    const std::string bytes = ReadBytes(file);
    const std::string beginning = InWindows1250(BeginningOfList());
    EXPECT_EQ(bytes.substr(0, beginning.size()), beginning);
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const std::wstring day = WindowsFormats().Date({now.wYear, now.wMonth, now.wDay, 0, 0, 0}, L"dddd, d.mmmm yyyy");
    EXPECT_THAT(bytes, ::testing::HasSubstr("\r\n" + InWindows1250(day) + " "));
    EXPECT_TRUE(bytes.ends_with(InWindows1250(L"\r\nKvez, © 2026 vývojáři programu Kvez, licence MIT")));
  }

  static std::unique_ptr<Visit> visit;
};

std::unique_ptr<Visit> ProgramAbroad::visit;

TEST_F(ProgramAbroad, ReadsItsFilesAndFindsByName) {
  EXPECT_EQ(TheProgram().ListCount(kLstMPSC), static_cast<int>(ReadTable("obce.csv").size()));
  EXPECT_EQ(TheProgram().Text(kLblMPSCN), kFound);
  for (const std::wstring& name : TheProgram().ListTexts(kResult)) EXPECT_TRUE(name.starts_with(kWanted));
}

TEST_F(ProgramAbroad, TheStatusBarSpeaksCzech) {
  PressKey('P', true);
  EXPECT_TRUE(WaitUntil([] { return Status(2) == L"Vyhledá obce se společným PSČ."; }));
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const auto date = WindowsFormats().Date({now.wYear, now.wMonth, now.wDay, 0, 0, 0}, L"dddd, d.m.yyyy");
  EXPECT_EQ(Status(1), DatePanelText(date));
}

TEST_F(ProgramAbroad, ExportsInWindows1250) {
  Choose(MenuCommand::Export);
  const HWND dialog = WaitFolderDialog(TheProgram().ProcessId());
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(FolderPrompt(dialog), L"Zadejte cestu kam si přejete soubor uložit.");
  ASSERT_TRUE(SelectFolder(dialog, visit->desktop.wstring()));
  ASSERT_TRUE(CloseFolderDialog(dialog, IDOK));
  const Dialog message = TheProgram().WaitDialog();
  EXPECT_EQ(message.text, L"Export do souboru \"vdkvez.txt\" je dokončen.");
  EXPECT_TRUE(TheProgram().Answer(message, IDOK));
  ExpectList(visit->desktop / "vdkvez.txt");
}

TEST_F(ProgramAbroad, MailsTheFileUnderACzechName) {
  Choose(MenuCommand::Mail);
  ASSERT_TRUE(WaitUntil([] { return visit->mailClient.Received().has_value(); }));
  const ReceivedMail mail = *visit->mailClient.Received();
  EXPECT_EQ(mail.names, InWindows1250(kFound));
  const auto sent = std::filesystem::path(std::wstring(mail.files.begin(), mail.files.end()));
  EXPECT_TRUE(std::filesystem::equivalent(sent, visit->folder / "meil.txt")) << mail.files;
  ExpectList(visit->folder / "meil.txt");
  EXPECT_FALSE(TheProgram().OpenDialog());
}

TEST_F(ProgramAbroad, Prints) {
  Choose(MenuCommand::Print);
  const PrintedDocument document = visit->queue.WaitForDocument();
  EXPECT_TRUE(WaitUntil([] { return !TheProgram().IsShown(kPicMPSCPI); }));
  ASSERT_EQ(document.pages, 1);
  std::vector<std::wstring> words;
  for (const PrintedWord& word : document.words) words.push_back(word.text);
  EXPECT_THAT(words, ::testing::IsSupersetOf({kWanted, std::wstring(L"PSČ"), std::wstring(L"Pošta")}));
}

TEST_F(ProgramAbroad, OpensTheHelp) {
  const auto helpWindow = [] { return FindWindowW(L"HH Parent", nullptr); };
  TheProgram().Focus(kTxtMPSC);
  PressKey(VK_F1);
  ASSERT_TRUE(WaitUntil([&] { return helpWindow() != nullptr && IsWindowVisible(helpWindow()); }));
  // The viewer reads the rest of the title by the code page of the system.
  EXPECT_TRUE(WindowText(helpWindow()).starts_with(L"Kvez "));
  PostMessageW(helpWindow(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(WaitUntil([&] { return helpWindow() == nullptr; }));
}

TEST_F(ProgramAbroad, PutsItsShortcutOnTheDesktopAndTakesItAway) {
  const auto window = [] { return FindWindowW(L"KvezNastaveni", L"Kvez - nastavení"); };
  const std::filesystem::path link = visit->desktop / "Kvez.lnk";
  TheProgram().Click(kTlHNastaveni);
  ASSERT_TRUE(WaitUntil([&] { return window() != nullptr && GetForegroundWindow() == window(); }));
  const auto tick = [&](const wchar_t* wish) {
    RECT bounds{};
    GetWindowRect(GetDlgItem(window(), kShortcutBox), &bounds);
    ClickAt({bounds.left + 6, (bounds.top + bounds.bottom) / 2});
    return WaitUntil([&] { return ReadSetting(L"zástupce") == wish; });
  };
  ASSERT_TRUE(tick(L"True"));
  ASSERT_TRUE(std::filesystem::exists(link));
  // The state of the window lies in the file at this place, the paths as they are.
  const std::string content = ReadBytes(link);
  EXPECT_EQ(content.at(0x3C), 4);
  const auto holds = [&](const std::wstring& text) {
    return content.find(std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2)) != std::string::npos;
  };
  EXPECT_TRUE(holds(visit->folder.wstring() + L"\\kvez.exe"));
  EXPECT_TRUE(tick(L"False"));
  EXPECT_FALSE(std::filesystem::exists(link));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return window() == nullptr; }));
}

}  // namespace
}  // namespace kvez::test
