// A found list leaves the program: through the real menu, folder dialog, clipboard, mail client and printer.
#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <map>

#include "platform/portable/portable_formats.h"
#include "tests/program/program_test.h"
#include "tests/support/folder_dialog.h"
#include "tests/support/list_menu_driver.h"
#include "tests/support/mail_client.h"
#include "tests/support/printed_pages.h"
#include "tests/support/temporary_folder.h"
#include "text/windows1250.h"

namespace kvez::test {
namespace {

using ::testing::AnyOf;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr int kResultList = kLstMPSC + 1;
constexpr const wchar_t* kMoment = L"dddd, d.mmmm yyyy HH:mm";
const std::wstring kHeading = L"Název začíná \"Nová Ves\".";
const std::wstring kTitleLine = L"Kvez, © 2026 vývojáři programu Kvez, licence MIT";

class HandOut : public ProgramTest {
 protected:
  struct Row {
    std::wstring code;
    std::wstring postOffice;
    std::wstring municipality;
    std::wstring district;
  };

  void SetUp() override {
    ProgramTest::SetUp();
    program.emplace(Exe());
    ASSERT_TRUE(program->WaitReady());
  }
  void TearDown() override {
    program.reset();
    ProgramTest::TearDown();
  }

  /// Searches by the beginning of the name; the rows that the list then has, from the tables of data/.
  std::vector<Row> Search() {
    const std::wstring beginning = L"Nová Ves";
    program->Focus(kTxtMPSC);
    TypeText(beginning + L"*");
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return !program->Text(kLblPSCV + 1).empty(); }));
    std::map<std::wstring, std::wstring> postOffices;
    for (const TableRow& row : ReadTable("posty.csv")) postOffices.emplace(row[0], row[1]);
    std::vector<Row> rows;
    for (const TableRow& row : ReadTable("obce.csv")) {
      if (!row[1].starts_with(beginning)) continue;
      rows.push_back({row[0].substr(0, 3) + L" " + row[0].substr(3), postOffices[row[0]], row[1], row[2]});
    }
    EXPECT_EQ(program->ListCount(kResultList), static_cast<int>(rows.size()));
    return rows;
  }

  /// Chooses from the menu and says yes to the question.
  void Choose(MenuCommand command, const std::wstring& question) {
    ASSERT_TRUE(ChooseFromListMenu(*program, command));
    const Dialog asked = program->WaitDialog();
    EXPECT_EQ(asked.text, question);
    EXPECT_EQ(asked.caption, L"Kvez");
    ASSERT_TRUE(program->Answer(asked, IDYES));
  }

  void ExpectMessage(const std::wstring& text, const std::wstring& caption = L"Kvez") {
    const Dialog message = program->WaitDialog();
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.caption, caption);
    EXPECT_TRUE(program->Answer(message, IDOK));
  }

  /// The command is over and has left no message behind: a key that was typed after it arrives.
  void ExpectThatItIsDone() {
    program->Focus(kTxtMPSC);
    const std::wstring before = program->Text(kTxtMPSC);
    PressKey(VK_END);
    TypeText(L"x");
    EXPECT_TRUE(WaitUntil([&] { return program->Text(kTxtMPSC) == before + L"x"; }));
    const auto message = program->OpenDialog();
    EXPECT_FALSE(message.has_value()) << ::testing::PrintToString(message->text);
  }

  static std::wstring Now(std::wstring_view picture) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return PortableFormats().Date({now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond}, picture);
  }

  /// The whole list text as it must be. `moment` is when it was made.
  static std::wstring ListText(const std::wstring& heading, const std::vector<Row>& rows, const std::wstring& moment) {
    std::wstring text = heading + L"\r\n\r\nPSČ ; POŠTA ; OBEC ; OKRES\r\n";
    for (const Row& row : rows) {
      text += L"\r\n" + row.code + L" ; " + row.postOffice + L" ; " + row.municipality + L" ; " + row.district;
    }
    return text + L"\r\n\r\n\r\n" + moment + L"\r\n\r\n\r\n" + kTitleLine;
  }

  /// The clock may have gone on to the next minute since `before`.
  static void ExpectListText(const std::wstring& text, const std::vector<Row>& rows, const std::wstring& before) {
    EXPECT_THAT(text, AnyOf(ListText(kHeading, rows, before), ListText(kHeading, rows, Now(kMoment))));
  }

  static std::wstring ReadFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    return FromWindows1250({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  }

  std::optional<Program> program;
};

TEST_F(HandOut, CopiesTheListForAnotherProgram) {
  const auto rows = Search();
  const std::wstring before = Now(kMoment);
  Choose(MenuCommand::Copy, L"Přejete si seznam vybraných obcí vložit do schránky ?");
  std::wstring text;
  ASSERT_TRUE(WaitUntil([&] {
    if (!OpenClipboard(nullptr)) return false;
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
      text = static_cast<const wchar_t*>(GlobalLock(memory));
      GlobalUnlock(memory);
    }
    CloseClipboard();
    return text.starts_with(kHeading);
  }));
  ExpectListText(text, rows, before);
  EXPECT_FALSE(program->OpenDialog());
}

TEST_F(HandOut, ExportsIntoTheChosenFolder) {
  const auto folder = Folder() / L"výstup žluťoučký";
  std::filesystem::create_directory(folder);
  const auto rows = Search();
  const std::wstring before = Now(kMoment);
  Choose(MenuCommand::Export, L"Přejete si seznam vybraných obcí exportovat do souboru ?");
  const HWND dialog = WaitFolderDialog(program->ProcessId());
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(FolderPrompt(dialog), L"Zadejte cestu kam si přejete soubor uložit.");
  ASSERT_TRUE(SelectFolder(dialog, folder.wstring()));
  ASSERT_TRUE(CloseFolderDialog(dialog, IDOK));
  ExpectMessage(L"Export do souboru \"vdkvez.txt\" je dokončen.");
  ExpectListText(ReadFile(folder / L"vdkvez.txt"), rows, before);
}

TEST_F(HandOut, CancellingTheFolderDialogExportsNothing) {
  // Where a file without a folder would go.
  const std::filesystem::path rootFile = std::filesystem::current_path().root_path() / L"vdkvez.txt";
  std::filesystem::remove(rootFile);
  Search();
  Choose(MenuCommand::Export, L"Přejete si seznam vybraných obcí exportovat do souboru ?");
  const HWND dialog = WaitFolderDialog(program->ProcessId());
  ASSERT_NE(dialog, nullptr);
  ASSERT_TRUE(CloseFolderDialog(dialog, IDCANCEL));
  ExpectThatItIsDone();
  EXPECT_FALSE(std::filesystem::exists(rootFile));
  EXPECT_FALSE(std::filesystem::exists(Folder() / L"vdkvez.txt"));
}

TEST_F(HandOut, AFolderThatIsNoneAsksForADisketteAndIsStillExportedTo) {
  const auto folder = Folder() / L"zmizelá";
  std::filesystem::create_directory(folder);
  Search();
  Choose(MenuCommand::Export, L"Přejete si seznam vybraných obcí exportovat do souboru ?");
  const HWND first = WaitFolderDialog(program->ProcessId());
  ASSERT_TRUE(SelectFolder(first, folder.wstring()));
  std::filesystem::remove(folder);
  ASSERT_TRUE(CloseFolderDialog(first, IDOK));
  ExpectMessage(L"Vložte prosím disketu.");
  const HWND second = WaitFolderDialog(program->ProcessId());
  std::filesystem::create_directory(folder);
  ASSERT_TRUE(CloseFolderDialog(second, IDCANCEL));
  ExpectMessage(L"Export do souboru \"vdkvez.txt\" je dokončen.");
  EXPECT_TRUE(std::filesystem::exists(folder / L"vdkvez.txt"));
}

TEST_F(HandOut, SaysThatTheExportIsDoneWhereNoFileCanBe) {
  const auto folder = Folder() / L"výstup";
  std::filesystem::create_directories(folder / L"vdkvez.txt");  // a folder in the file's place
  Search();
  Choose(MenuCommand::Export, L"Přejete si seznam vybraných obcí exportovat do souboru ?");
  const HWND dialog = WaitFolderDialog(program->ProcessId());
  ASSERT_TRUE(SelectFolder(dialog, folder.wstring()));
  ASSERT_TRUE(CloseFolderDialog(dialog, IDOK));
  ExpectMessage(L"Export do souboru \"vdkvez.txt\" je dokončen.");
  EXPECT_TRUE(std::filesystem::is_directory(folder / L"vdkvez.txt"));
}

TEST_F(HandOut, PrintsNothingWithoutAPrinter) {
  Search();
  Choose(MenuCommand::Print, L"Přejete si seznam vybraných obcí vytisknout ?");
  ExpectThatItIsDone();
  EXPECT_TRUE(WaitUntil([&] { return !program->IsShown(kPicMPSCPI); }));
}

class HandOutMail : public HandOut {
 protected:
  void SetUp() override {}

  /// Starts the program on a machine whose mail client gives that answer.
  void StartWithClient(unsigned answer) {
    m_client.emplace(answer, (m_records.Path() / "mail.txt").wstring());
    HandOut::SetUp();
  }

  TemporaryFolder m_records;
  std::optional<MailClientRegistration> m_client;
};

TEST_F(HandOutMail, HandsTheListToTheMailClient) {
  StartWithClient(0);
  const auto rows = Search();
  const std::wstring before = Now(kMoment);
  Choose(MenuCommand::Mail, L"Přejete si seznam vybraných obcí zaslat e-mailem ?");
  ASSERT_TRUE(WaitUntil([&] { return m_client->Received().has_value(); }));
  const ReceivedMail mail = *m_client->Received();
  EXPECT_EQ(mail.window, reinterpret_cast<ULONG_PTR>(program->MainWindow()));
  EXPECT_EQ(mail.delimiter, ";");
  EXPECT_EQ(mail.files, ToWindows1250((Folder() / L"meil.txt").wstring()));
  EXPECT_EQ(mail.names, ToWindows1250(kHeading));
  EXPECT_EQ(mail.reserved, 0U);
  ExpectListText(ReadFile(Folder() / L"meil.txt"), rows, before);
  EXPECT_FALSE(program->OpenDialog());
}

TEST_F(HandOutMail, ShowsTheCodeOfAMessageThatWasNotSent) {
  StartWithClient(1);
  Search();
  Choose(MenuCommand::Mail, L"Přejete si seznam vybraných obcí zaslat e-mailem ?");
  ExpectMessage(L"Nastala chyba při pokusu o odeslání souboru e-mailem.", L"1");
}

TEST_F(HandOutMail, ShowsTheCodeOfAMachineWithoutAMailClient) {
  HandOut::SetUp();
  Search();
  Choose(MenuCommand::Mail, L"Přejete si seznam vybraných obcí zaslat e-mailem ?");
  ExpectMessage(L"Nastala chyba při pokusu o odeslání souboru e-mailem.", L"26");
  EXPECT_TRUE(std::filesystem::exists(Folder() / L"meil.txt")) << "the file stays";
}

class RealPrinterRun : public HandOut {
 protected:
  void SetUp() override {
    ASSERT_TRUE(m_queue.IsThere()) << "try: tests/support/print-queue start";
    HandOut::SetUp();
  }

  PrintQueue m_queue;
};

TEST_F(RealPrinterRun, PrintsTheListByTheTableOfPlaces) {
  const auto rows = Search();
  const std::wstring sentence = program->Text(kLblPSCV + 1);
  Choose(MenuCommand::Print, L"Přejete si seznam vybraných obcí vytisknout ?");
  const PrintedDocument document = m_queue.WaitForDocument();
  EXPECT_TRUE(WaitUntil([&] { return !program->IsShown(kPicMPSCPI); }));

  const double rowHeight = PrintedHeight({10, false});
  const auto rowsPerPage = static_cast<std::size_t>(std::nearbyint(240 / rowHeight));
  const std::size_t pages = (rows.size() + rowsPerPage - 1) / rowsPerPage;
  ASSERT_GE(pages, 2U) << "the search found too little to turn a page";
  ASSERT_NE(rows.size() % rowsPerPage, 0U) << "the search found just as much as fills the pages";
  EXPECT_EQ(document.title, "Kvez");
  ASSERT_EQ(document.pages, static_cast<int>(pages));
  EXPECT_NEAR(document.sheetWidth, 210, 0.2);
  EXPECT_NEAR(document.sheetHeight, 297, 0.2);

  for (int page = 1; page <= document.pages; ++page) {
    const std::wstring number = L"Strana " + std::to_wstring(page) + L" z " + std::to_wstring(pages);
    const std::wstring moment = Now(L"dddd, d.mmmm yyyy \\v H:mm");
    constexpr PrintedStyle heading{12, true};
    constexpr PrintedStyle title{10, true};
    constexpr PrintedStyle normal{8, false};
    constexpr PrintedStyle small{6, false};
    const auto expect = [&](double x, double y, std::wstring_view text, PrintedStyle style) {
      EXPECT_TRUE(document.HasText(page, x, y, text, style)) << "page " << page << ", at " << x << ", " << y;
    };
    expect((190 - PrintedWidth(kHeading, heading)) / 2, 0, kHeading, heading);
    expect((190 - PrintedWidth(sentence, normal)) / 2, PrintedHeight(heading) + 5, sentence, normal);
    expect(0, 22, L"PSČ", title);
    expect(15, 22, L"Pošta", title);
    expect(80, 22, L"Obec", title);
    expect(145, 22, L"Okres", title);
    expect((190 - PrintedWidth(number, normal)) / 2, 280 - rowHeight, number, normal);
    expect(0, 280, kTitleLine, small);
    EXPECT_TRUE(document.HasLine(page, 0, 22 + rowHeight + 1, 190)) << "page " << page;
    // Its time is not known to the minute, its weekday is.
    expect(190 - (PrintedWidth(moment, small) + 2), 280, moment.substr(0, moment.find(L' ')), small);
  }
  EXPECT_THAT(document.lines, SizeIs(pages));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int page = static_cast<int>(i / rowsPerPage) + 1;
    const double y = 22 + rowHeight + 2 + static_cast<double>(i % rowsPerPage) * rowHeight;
    const std::pair<double, const std::wstring*> fields[] = {
        {0, &rows[i].code}, {15, &rows[i].postOffice}, {80, &rows[i].municipality}, {145, &rows[i].district}};
    for (const auto& [x, text] : fields) {
      EXPECT_TRUE(document.HasText(page, x, y, *text, {8, false})) << "row " << i << ", at " << x << ", " << y;
    }
  }
  EXPECT_FALSE(program->OpenDialog());
  EXPECT_THAT(m_queue.Documents(), SizeIs(1));
}

TEST_F(RealPrinterRun, EscapeEndsALongPrintAndNoSheetComesOut) {
  program->Focus(kTxtMPSC);
  TypeText(L"*a*");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program->ListCount(kResultList) > 5'000; }));
  Choose(MenuCommand::Print, L"Přejete si seznam vybraných obcí vytisknout ?");
  const std::wstring status = L"Tiskne se seznam vybraných obcí. Tisk ukončí klávesa Esc.";
  ASSERT_TRUE(WaitUntil([&] { return StatusText(program->StatusBar(), 2) == status; }));
  EXPECT_TRUE(program->IsShown(kPicMPSCPI));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return StatusText(program->StatusBar(), 2) == L"Tisk byl ukončen."; }));
  EXPECT_FALSE(program->IsShown(kPicMPSCPI));
  EXPECT_FALSE(program->OpenDialog());
  EXPECT_THAT(m_queue.Documents(), IsEmpty());
}

}  // namespace
}  // namespace kvez::test
