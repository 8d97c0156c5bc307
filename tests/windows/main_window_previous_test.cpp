// The way back from an update that has brought no database, over a machine of the test's own.
#include <gmock/gmock.h>

#include <functional>

#include "mainwindow/previous_files.h"
#include "tests/support/window_test.h"
#include "tests/windows/main_window_test.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Strings = std::vector<std::wstring>;

const std::wstring kQuestion = L"Přejete si vrátit předchozí databázi ?";
const std::wstring kKeptSentence = L"Byla zachována původní databáze.";
const std::wstring kDamaged[] = {L"Soubor se seznamem PSČ je poškozen nebo neexistuje !",
                                 L"Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !",
                                 L"Soubor se seznamem okresů je poškozen nebo neexistuje !"};

class MainWindowPrevious : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    m_original = DataFiles();
  }

  std::map<std::wstring, fakes::Bytes> DataFiles() {
    std::map<std::wstring, fakes::Bytes> files;
    for (const auto& [path, bytes] : m_machine.disk.files) {
      if (path.ends_with(L".kl_")) files.emplace(path, bytes);
    }
    return files;
  }
  Strings KeptNames() {
    Strings names;
    for (const auto& [path, bytes] : m_machine.disk.files) {
      if (path.ends_with(L".old")) names.push_back(path.substr(kFolder.size() + 1));
    }
    return names;
  }
  static std::wstring File(int number) { return kFolder + L"\\vd" + std::to_wstring(number) + L".kl_"; }

  void ServePages() {
    m_commands.downloader.onDownload = [this](const std::wstring&, const std::wstring& path) {
      m_machine.disk.files[path] = {'<', 'h', 't', 'm', 'l', '>'};
      m_machine.disk.written[path] = {2027, 1, 2, 3, 4, 5};
    };
  }
  void Update() { SendMessageW(m_window->tlHAktualizace.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5)); }
  Strings Asked() {
    Strings texts;
    for (const auto& question : m_machine.messages.questions) texts.push_back(question.text);
    return texts;
  }
  Strings Told() {
    Strings texts;
    for (const auto& message : m_machine.messages.messages) texts.push_back(message.text);
    return texts;
  }
  std::wstring Status() { return test::StatusBarView(m_window->Handle()).Text(); }
  void Close() {
    m_machine.messages.answers = {true};
    ASSERT_TRUE(m_window->Unload());
    m_window.reset();
    m_machine.messages.questions.clear();
    m_machine.messages.messages.clear();
  }
  void ExpectTheOldData() {
    EXPECT_EQ(m_window->lstMPSC[kListAll].ListCount(), 6);
    EXPECT_EQ(m_window->lstMPSC[kListDistricts].ListCount(), 2);
    EXPECT_TRUE(m_window->optMPSC[kModeDistrict].Visible());
    EXPECT_FALSE(m_window->picMPSCPI.Visible());
    EXPECT_EQ(DataFiles(), m_original);
    EXPECT_THAT(KeptNames(), IsEmpty());
    // The copies carry their date.
    EXPECT_EQ(m_window->tlHAktualizace.ToolTipText(),
              L"Poslední aktualizace databáze byla provedena 16.listopad 2026.");
  }
  void ExpectNoData() {
    for (const forms::ListBox& list : m_window->lstMPSC) EXPECT_EQ(list.ListCount(), 0);
    EXPECT_FALSE(m_window->picMPSCPI.Visible());
    EXPECT_EQ(m_database.pscCelkem(), 0);
  }

  std::map<std::wstring, fakes::Bytes> m_original;
};

TEST_F(MainWindowPrevious, CopiesAreKeptFromBeforeTheFirstDownloadToTheLoading) {
  Open();
  Strings atFirst;
  std::map<std::wstring, fakes::Bytes> copies;
  m_commands.downloader.onDownload = [&](const std::wstring&, const std::wstring&) {
    if (!atFirst.empty()) return;
    atFirst = KeptNames();
    for (const int number : {1, 2, 3}) copies[File(number)] = m_machine.disk.files[File(number) + L".old"];
  };
  Update();
  EXPECT_THAT(atFirst, ElementsAre(L"vd1.kl_.old", L"vd2.kl_.old", L"vd3.kl_.old"));
  EXPECT_EQ(copies, m_original);
  EXPECT_THAT(KeptNames(), IsEmpty());
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(MainWindowPrevious, YesBringsThemBackAfterTheDesignedMessages) {
  Open();
  ServePages();
  m_machine.log.clear();
  m_machine.messages.answers = {true};
  Update();
  EXPECT_THAT(Told(), ElementsAre(kDamaged[0], kDamaged[1], kDamaged[2]));
  EXPECT_THAT(Asked(), ElementsAre(kQuestion));
  Strings order;
  for (const std::wstring& entry : m_machine.log) {
    if (entry == L"message" || entry == L"question") order.push_back(entry);
  }
  EXPECT_THAT(order, ElementsAre(L"message", L"message", L"message", L"question"));
  ExpectTheOldData();
  EXPECT_EQ(Status(), kKeptSentence);
  EXPECT_TRUE(test::StatusBarView(m_window->Handle()).ShowsIcon(L"APLIKACE"));
  EXPECT_TRUE(test::PumpUntil([this] { return Status().empty(); }));
}

TEST_F(MainWindowPrevious, NoLeavesTheEmptyStateAndTheNextStartAsksAgain) {
  Open();
  ServePages();
  m_machine.messages.answers = {false};
  Update();
  EXPECT_THAT(Asked(), ElementsAre(kQuestion));
  ExpectNoData();
  EXPECT_THAT(KeptNames(), ElementsAre(L"vd1.kl_.old", L"vd2.kl_.old", L"vd3.kl_.old"));
  Close();

  m_machine.messages.answers = {false};
  Open();
  EXPECT_THAT(Asked(), ElementsAre(kQuestion));
  ExpectNoData();
  EXPECT_TRUE(m_window->optMPSC[kModeName].Value());
  Close();

  m_machine.messages.answers = {true};
  Open();
  EXPECT_THAT(Told(), ElementsAre(kDamaged[0], kDamaged[1], kDamaged[2]));
  ExpectTheOldData();
  EXPECT_EQ(Status(), kKeptSentence);
}

TEST_F(MainWindowPrevious, StartWithSoundFilesForgetsTheCopies) {
  for (const int number : {1, 2, 3}) m_machine.disk.files[File(number) + L".old"] = {1};
  Open();
  EXPECT_THAT(KeptNames(), IsEmpty());
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(MainWindowPrevious, StartWithDamagedFilesAndWithoutCopiesAsksNothing) {
  for (const int number : {1, 2, 3}) m_machine.disk.files[File(number)] = {1};
  Open();
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_EQ(Told().size(), 3U);
}

TEST_F(MainWindowPrevious, UpdateOfAnEmptyDatabaseKeepsNothingAndAsksNothing) {
  for (const int number : {1, 2, 3}) m_machine.disk.files[File(number)] = {1};
  Open();
  ServePages();
  Update();
  EXPECT_THAT(m_commands.files.steps, IsEmpty());
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(MainWindowPrevious, SecondBadUpdateDoesNotTouchTheCopies) {
  Open();
  ServePages();
  m_machine.messages.answers = {false, true};
  Update();
  Update();
  EXPECT_THAT(Asked(), ElementsAre(kQuestion, kQuestion));
  ExpectTheOldData();
}

// The files on the disk are then some old, some new, or a part: what is in memory is none of them.
TEST_F(MainWindowPrevious, FailedUpdateDoesNotTouchTheCopiesOfTheOneBefore) {
  Open();
  ServePages();
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  Update();
  EXPECT_EQ(Status(), kKeptSentence);
  Update();
  EXPECT_EQ(m_machine.disk.files[File(2) + L".old"], m_original[File(2)]);
  EXPECT_THAT(Asked(), IsEmpty());
  Close();
  m_machine.messages.answers = {true};
  Open();
  ExpectTheOldData();
}

TEST_F(MainWindowPrevious, GoodUpdateAfterABadOneForgetsThem) {
  Open();
  ServePages();
  Update();
  ASSERT_EQ(KeptNames().size(), 3U);
  m_commands.downloader.onDownload = [this](const std::wstring&, const std::wstring& path) {
    m_machine.disk.files[path] = m_original[path];
  };
  Update();
  EXPECT_THAT(KeptNames(), IsEmpty());
  EXPECT_EQ(m_window->lstMPSC[kListAll].ListCount(), 6);
}

TEST_F(MainWindowPrevious, NothingIsDownloadedOverFilesThatCannotBeKept) {
  Open();
  m_commands.files.refused = File(2);
  Update();
  EXPECT_THAT(m_commands.downloader.downloads, IsEmpty());
  EXPECT_THAT(Told(), ElementsAre(L"Aktualizace databáze nebyla úspěšná."));
  EXPECT_EQ(Status(), kKeptSentence);
  EXPECT_EQ(m_window->lstMPSC[kListAll].ListCount(), 6);
  EXPECT_THAT(KeptNames(), IsEmpty());
  m_commands.files.refused.clear();
  Update();
  EXPECT_EQ(m_commands.downloader.downloads.size(), 3U);
}

TEST_F(MainWindowPrevious, FileThatIsNotThereIsNotKept) {
  m_machine.disk.files.erase(File(3));
  Open();
  ASSERT_EQ(Told().size(), 1U);
  ServePages();
  m_machine.messages.answers = {true};
  Update();
  EXPECT_EQ(m_window->lstMPSC[kListAll].ListCount(), 6);
  EXPECT_THAT(KeptNames(), IsEmpty());
}

TEST_F(MainWindowPrevious, CopiesThatCannotBePutBackStayForAnotherTime) {
  Open();
  ServePages();
  m_commands.files.refused = File(1) + L".old";
  m_machine.messages.answers = {true};
  Update();
  EXPECT_EQ(Told().back(), L"Předchozí databázi se nepodařilo vrátit.");
  ExpectNoData();
  Close();
  m_commands.files.refused.clear();
  m_machine.messages.answers = {true};
  Open();
  ExpectTheOldData();
}

TEST_F(MainWindowPrevious, CopiesThatAreDamagedTooAreAskedAboutOnce) {
  Open();
  ServePages();
  m_commands.downloader.results = {};
  m_machine.messages.answers = {true, true, true};
  const auto page = m_commands.downloader.onDownload;
  m_commands.downloader.onDownload = [&](const std::wstring& address, const std::wstring& path) {
    page(address, path);
    for (const int number : {1, 2, 3}) m_machine.disk.files[File(number) + L".old"] = {1, 2};
  };
  Update();
  EXPECT_THAT(Asked(), ElementsAre(kQuestion));
  EXPECT_EQ(Told().size(), 6U);
  ExpectNoData();
  EXPECT_THAT(KeptNames(), IsEmpty());
}

// A process that ends between two steps leaves what the next start can work with.
TEST(PreviousFilesTest, EveryStepThatFailsLeavesTheOldOrTheWholeSet) {
  const std::wstring folder = L"C:\\Kvez";
  const Strings paths = {folder + L"\\vd1.kl_", folder + L"\\vd2.kl_", folder + L"\\vd3.kl_"};
  for (const std::wstring& refused : paths) {
    fakes::Disk disk;
    test::FakeFileOperations files;
    files.disk = &disk;
    PreviousFiles previous(files, folder);
    for (const std::wstring& path : paths) disk.files[path] = {1};
    files.refused = refused;
    EXPECT_FALSE(previous.Keep());
    EXPECT_FALSE(previous.AreKept());
    EXPECT_EQ(disk.files.size(), 3U);

    files.refused.clear();
    EXPECT_TRUE(previous.Keep());
    EXPECT_TRUE(previous.AreKept());
    for (const std::wstring& path : paths) disk.files[path] = {2};
    files.refused = refused + L".old";
    EXPECT_FALSE(previous.PutBack());
    EXPECT_TRUE(previous.AreKept());
    EXPECT_EQ(disk.files[refused], fakes::Bytes{2});
    files.refused.clear();
    EXPECT_TRUE(previous.PutBack());
    EXPECT_FALSE(previous.AreKept());
    EXPECT_EQ(disk.files.size(), 3U);
    for (const std::wstring& path : paths) EXPECT_EQ(disk.files[path], fakes::Bytes{1});
  }
}

// Files that do not belong together

TEST_F(MainWindowPrevious, FilesThatDoNotBelongTogetherAreToldInNumbers) {
  Open();
  m_commands.downloader.onDownload = [this](const std::wstring&, const std::wstring& path) {
    if (path != File(1)) return;
    fakes::Bytes newer;
    fakes::AppendMunicipality(newer, 11000, L"Praha 1", L"Hlavní město Praha");
    fakes::AppendMunicipality(newer, 54232, L"Libňatov", L"Trutnov");
    fakes::AppendMunicipality(newer, 54232, L"Úpice", L"Břeclav");
    m_machine.disk.files[path] = newer;
  };
  Update();
  const std::wstring sentence = L"Soubory k sobě nepatří: 2 obce bez pošty, 1 obec bez okresu.";
  const std::wstring updated = L"Poslední aktualizace databáze byla provedena 16.listopad 2026.";
  EXPECT_EQ(m_window->lstMPSC[kListAll].ListCount(), 3);
  EXPECT_EQ(Status(), sentence);
  EXPECT_EQ(m_window->tlHAktualizace.ToolTipText(), updated + L" " + sentence);
  EXPECT_THAT(Told(), IsEmpty());
  LetMessageTimeEnd();
  EXPECT_EQ(Status(), updated);
  EXPECT_EQ(m_window->tlHAktualizace.ToolTipText(), updated + L" " + sentence);

  // A set that belongs together has nothing to tell.
  m_commands.downloader.onDownload = [this](const std::wstring&, const std::wstring& path) {
    m_machine.disk.files[path] = m_original[path];
  };
  Update();
  EXPECT_EQ(m_window->tlHAktualizace.ToolTipText(), updated);
  EXPECT_EQ(Status(), updated);
}

}  // namespace
}  // namespace kvez
