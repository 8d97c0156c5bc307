// The update and the help in the real main window, over a machine of the test's own.
#include <gmock/gmock.h>

#include <functional>
#include <utility>

#include "forms/mouse_pointer.h"
#include "mainwindow/addresses.h"
#include "tests/support/help_bytes.h"
#include "tests/support/window_test.h"
#include "tests/windows/main_window_test.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::wstring kLastUpdate = L"Poslední aktualizace databáze byla provedena 16.listopad 2026.";
const std::wstring kBase = kDownloadBase;

class MainWindowUpdate : public MainWindowTest {
 protected:
  /// Opens the window and remembers what the status bar says at each download.
  frmhlavni& OpenWatched() {
    frmhlavni& window = Open();
    status.emplace(window.Handle());
    m_commands.downloader.onDownload = [this](const std::wstring& address, const std::wstring&) {
      seen.push_back(address.substr(kBase.size()) + L": " + status->Text() + L" " + std::to_wstring(status->Flags()) +
                     (status->ShowsIcon(L"STAZENI") ? L" STAZENI" : L""));
    };
    return window;
  }
  void Click(tlText& button) { SendMessageW(button.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5)); }

  std::optional<test::StatusBarView> status;
  std::vector<std::wstring> seen;
};

TEST_F(MainWindowUpdate, DownloadsDistrictsPostOfficesAndMunicipalitiesInThisOrder) {
  frmhlavni& window = OpenWatched();
  Click(window.tlHAktualizace);
  EXPECT_THAT(m_commands.downloader.downloads,
              ElementsAre(kBase + L"vd3.kl_ > C:\\Kvez\\vd3.kl_", kBase + L"vd2.kl_ > C:\\Kvez\\vd2.kl_",
                          kBase + L"vd1.kl_ > C:\\Kvez\\vd1.kl_"));
  EXPECT_THAT(seen, ElementsAre(L"vd3.kl_: Bylo zahájeno stažení aktuálního datového souboru okresy. 512 STAZENI",
                                L"vd2.kl_: Bylo zahájeno stažení aktuálního datového souboru dodací pošty. 512 STAZENI",
                                L"vd1.kl_: Bylo zahájeno stažení aktuálního datového souboru PSČ. 512 STAZENI"));
  EXPECT_THAT(m_machine.messages.questions, IsEmpty());
}

TEST_F(MainWindowUpdate, EndsInTheStateOfAFreshStartWithTheNewData) {
  frmhlavni& window = OpenWatched();
  window.txtMPSC[0].SetText(L"Praha");
  window.VyhledejSeznam();
  window.lstMPSC[1].SetListIndex(0);
  ASSERT_TRUE(window.tlHObcePSC.Visible());
  ASSERT_FALSE(window.tlHVyhledej.Enabled().IsTrue());
  m_commands.downloader.onDownload = [this](const std::wstring& address, const std::wstring& path) {
    if (address != kBase + L"vd1.kl_") return;
    fakes::Bytes one;
    // Of a post office and a district that are there.
    fakes::AppendMunicipality(one, 69142, L"Úpice", L"Břeclav");
    m_machine.disk.files[path] = one;
    m_machine.disk.written[path] = {2027, 1, 2, 3, 4, 5};
  };
  Click(window.tlHAktualizace);
  EXPECT_EQ(Rows(window.lstMPSC[0]), std::vector<std::wstring>{L"Úpice"});
  EXPECT_EQ(window.lstMPSC[1].ListCount(), 0);
  EXPECT_EQ(window.lstMPSC[1].HorizontalExtent(), 0);
  EXPECT_EQ(window.lblMPSCN.Caption(), L"");
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"V seznamu je 1 obec.");
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"");
  EXPECT_EQ(window.lblNPSCHT[0].Caption(), L"");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"");
  EXPECT_TRUE(window.optMPSC[1].Value());
  EXPECT_TRUE(window.tlHVyhledej.Enabled().IsTrue());
  EXPECT_FALSE(window.tlHObcePSC.Visible());
  EXPECT_FALSE(window.picMPSCPI.Visible());
  EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerDefault);
  EXPECT_EQ(window.tlHAktualizace.ToolTipText(), L"Poslední aktualizace databáze byla provedena 2.leden 2027.");
  EXPECT_EQ(status->Text(), L"Poslední aktualizace databáze byla provedena 2.leden 2027.");
  EXPECT_TRUE(status->ShowsIcon(L"APLIKACE"));
}

TEST_F(MainWindowUpdate, HitOfTheLightBlueFieldAfterItSaysThatAModeIsNeededNext) {
  frmhlavni& window = OpenWatched();
  Click(window.tlHAktualizace);
  ASSERT_EQ(status->Text(), kLastUpdate);
  window.txtMPSC[1].SetText(L"mik");
  window.tmrMPSC.Elapsed();
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 2);
  EXPECT_EQ(status->Text(), L"K dalšímu hledání zvolte PSČ, Obec nebo Okres.");
}

TEST_F(MainWindowUpdate, ReleasesTheOldDataBehindTheMessagePanel) {
  frmhlavni& window = OpenWatched();
  window.txtMPSC[0].SetText(L"Lednice");
  window.VyhledejSeznam();
  ASSERT_EQ(window.lstMPSC[1].ListCount(), 1);
  int paintings = 0;
  const test::MessageWatch watch(window.picZpravaI.Handle(), WM_PAINT, [&] {
    if (status->Text() != L"Stažení aktuálního datového souboru bylo úspěšné.") return;
    ++paintings;
    EXPECT_EQ(window.lblZpravaI.Caption(), L"Strpení prosím, uvolňuji paměť.");
    EXPECT_EQ(status->Flags(), 512);
    EXPECT_TRUE(status->ShowsIcon(L"PAMET"));
    EXPECT_TRUE(window.picMPSCPI.Visible());
    EXPECT_EQ(window.lstMPSC[1].ListCount(), 0);
    EXPECT_EQ(window.lblMPSCN.Caption(), L"");
    EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerHourglass);
  });
  Click(window.tlHAktualizace);
  EXPECT_GT(paintings, 0);
  EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerDefault);
}

TEST_F(MainWindowUpdate, ResetsTheNameModeToo) {
  frmhlavni& window = OpenWatched();
  window.txtMPSC[0].SetText(L"Praha");
  window.VyhledejSeznam();
  ASSERT_TRUE(window.optMPSC[1].Value());
  Click(window.tlHAktualizace);
  EXPECT_EQ(window.txtMPSC[0].Text(), L"");
  EXPECT_EQ(status->Text(), kLastUpdate);
}

TEST_F(MainWindowUpdate, OnlyTheMunicipalitiesDecide) {
  frmhlavni& window = OpenWatched();
  m_commands.downloader.results = {{L"vd3.kl_", 5}, {L"vd2.kl_", 7}};
  Click(window.tlHAktualizace);
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
  EXPECT_EQ(status->Text(), kLastUpdate);
  EXPECT_EQ(window.lstMPSC[0].ListCount(), 6);
}

TEST_F(MainWindowUpdate, DamagedFilesGiveTheirMessagesAfterTheDownload) {
  frmhlavni& window = OpenWatched();
  m_commands.downloader.onDownload = [this](const std::wstring&, const std::wstring& path) {
    m_machine.disk.files[path] = {'<', 'h', 't', 'm', 'l', '>'};
  };
  Click(window.tlHAktualizace);
  ASSERT_EQ(m_machine.messages.messages.size(), 3U);
  EXPECT_EQ(m_machine.messages.messages[0].text, L"Soubor se seznamem PSČ je poškozen nebo neexistuje !");
  EXPECT_EQ(m_machine.messages.messages[2].text, L"Soubor se seznamem okresů je poškozen nebo neexistuje !");
  EXPECT_EQ(window.lstMPSC[0].ListCount(), 0);
  EXPECT_FALSE(window.picMPSCPI.Visible());
}

TEST_F(MainWindowUpdate, FailureKeepsTheDataAndSaysSoForAWhile) {
  frmhlavni& window = OpenWatched();
  window.txtMPSC[0].SetText(L"Lednice");
  window.VyhledejSeznam();
  m_commands.downloader.results = {{L"vd1.kl_", -2146697208}};
  Click(window.tlHAktualizace);
  ASSERT_EQ(m_machine.messages.messages.size(), 1U);
  EXPECT_EQ(m_machine.messages.messages[0], (fakes::MessageDialogFake::Message{L"Aktualizace databáze nebyla úspěšná.",
                                                                               MessageIcon::Exclamation, L"Kvez"}));
  EXPECT_EQ(status->Text(), L"Byla zachována původní databáze.");
  EXPECT_EQ(status->Flags(), 0);
  EXPECT_TRUE(status->ShowsIcon(L"APLIKACE"));
  EXPECT_EQ(m_database.pscCelkem(), 6);
  EXPECT_EQ(Rows(window.lstMPSC[1]), std::vector<std::wstring>{L"Lednice"});
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"Zadání vyhovuje 1 obec.");

  EXPECT_EQ(window.messageTimer.Interval(), 5000U);
  LetMessageTimeEnd();
  EXPECT_EQ(status->Text(), L"");
  EXPECT_FALSE(status->HasIcon());
}

TEST_F(MainWindowUpdate, SuccessSoonAfterAFailureIsNotCleared) {
  frmhlavni& window = OpenWatched();
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  Click(window.tlHAktualizace);
  ASSERT_EQ(status->Text(), L"Byla zachována původní databáze.");
  m_commands.downloader.results.clear();
  Click(window.tlHAktualizace);
  ASSERT_EQ(status->Text(), kLastUpdate);
  EXPECT_FALSE(window.messageTimer.IsRunning());
}

TEST_F(MainWindowUpdate, FailureWithoutDataClearsTheStatusAtOnce) {
  m_machine.disk.files.clear();
  frmhlavni& window = OpenWatched();
  m_machine.messages.messages.clear();
  m_commands.downloader.results = {{L"vd1.kl_", 1}};
  Click(window.tlHAktualizace);
  ASSERT_EQ(m_machine.messages.messages.size(), 1U);
  EXPECT_EQ(m_machine.messages.messages[0].text, L"Aktualizace databáze nebyla úspěšná.");
  EXPECT_EQ(status->Text(), L"");
  EXPECT_EQ(status->Flags(), 256);
}

TEST_F(MainWindowUpdate, ASecondClickDuringADownloadStartsNothing) {
  frmhlavni& window = OpenWatched();
  m_commands.downloader.onDownload = [&](const std::wstring&, const std::wstring&) {
    Click(window.tlHAktualizace);
    Click(window.tlHNapoveda);
  };
  Click(window.tlHAktualizace);
  EXPECT_EQ(m_commands.downloader.downloads.size(), 3U);
  EXPECT_THAT(m_machine.messages.questions, IsEmpty());
}

class MainWindowHelp : public MainWindowUpdate {
 protected:
  void CreateHelp(const std::string& bytes = test::HelpBytes()) {
    m_machine.disk.files[help] = fakes::Bytes(bytes.begin(), bytes.end());
  }
  /// What a download brings.
  void ServeHelp(const std::string& bytes = test::HelpBytes()) {
    const auto watch = m_commands.downloader.onDownload;
    m_commands.downloader.onDownload = [this, watch, bytes](const std::wstring& address, const std::wstring& path) {
      if (watch) watch(address, path);
      EXPECT_EQ(path, help);
      CreateHelp(bytes);
    };
  }
  bool HelpIsThere() const { return m_machine.disk.files.contains(help); }

  const std::wstring help = kFolder + L"\\kvez.chm";
};

TEST_F(MainWindowHelp, OpensTheFileThatIsThere) {
  CreateHelp();
  frmhlavni& window = OpenWatched();
  Click(window.tlHNapoveda);
  EXPECT_THAT(m_commands.help.shown, ElementsAre(help));
  EXPECT_THAT(m_commands.downloader.downloads, IsEmpty());
  EXPECT_THAT(m_machine.messages.questions, IsEmpty());
  EXPECT_EQ(status->Text(), L"");
  EXPECT_EQ(status->Flags(), 256);
  EXPECT_FALSE(status->HasIcon());
}

TEST_F(MainWindowHelp, DeclinedDownloadLeavesTheStatusBarAsItWas) {
  frmhlavni& window = OpenWatched();
  const std::wstring before = status->Text();
  ASSERT_NE(before, L"");
  m_machine.messages.answers = {false};
  Click(window.tlHNapoveda);
  EXPECT_THAT(m_machine.messages.questions,
              ElementsAre(fakes::MessageDialogFake::Question{L"Přejete si z internetu stáhnout nápovědu ?", L"Kvez"}));
  EXPECT_THAT(m_commands.downloader.downloads, IsEmpty());
  EXPECT_THAT(m_commands.help.shown, IsEmpty());
  EXPECT_EQ(status->Text(), before);
  EXPECT_TRUE(status->HasIcon());
}

TEST_F(MainWindowHelp, IsDownloadedAndOpened) {
  frmhlavni& window = OpenWatched();
  ServeHelp();
  m_machine.messages.answers = {true};
  Click(window.tlHNapoveda);
  EXPECT_THAT(m_commands.downloader.downloads, ElementsAre(kBase + L"kvez.chm > " + help));
  EXPECT_THAT(seen, ElementsAre(L"kvez.chm: Bylo zahájeno stažení souboru nápovědy. 512 STAZENI"));
  EXPECT_THAT(m_commands.help.shown, ElementsAre(help));
  EXPECT_EQ(status->Text(), L"");
  EXPECT_FALSE(status->HasIcon());
}

TEST_F(MainWindowHelp, FailedDownloadIsSaid) {
  frmhlavni& window = OpenWatched();
  m_machine.messages.answers = {true};
  m_commands.downloader.results = {{L"kvez.chm", 1}};
  Click(window.tlHNapoveda);
  ASSERT_EQ(m_machine.messages.messages.size(), 1U);
  EXPECT_EQ(m_machine.messages.messages[0],
            (fakes::MessageDialogFake::Message{L"Stažení souboru nápovědy nebylo úspěšné.", MessageIcon::Exclamation,
                                               L"Kvez"}));
  EXPECT_THAT(m_commands.help.shown, IsEmpty());
  EXPECT_EQ(status->Text(), L"");
  EXPECT_EQ(status->Flags(), 256);
}

TEST_F(MainWindowHelp, FailedDownloadLeavesNoPartOfTheFile) {
  frmhlavni& window = OpenWatched();
  m_machine.messages.answers = {true};
  m_commands.downloader.results = {{L"kvez.chm", 1}};
  m_commands.downloader.onDownload = [this](const std::wstring&, const std::wstring&) { CreateHelp(); };
  Click(window.tlHNapoveda);
  EXPECT_FALSE(HelpIsThere());
}

TEST_F(MainWindowHelp, FailedDownloadLeavesAHiddenFileAlone) {
  frmhlavni& window = OpenWatched();
  CreateHelp();
  m_commands.files.hidden = true;
  m_machine.messages.answers = {true};
  m_commands.downloader.results = {{L"kvez.chm", 1}};
  Click(window.tlHNapoveda);
  EXPECT_TRUE(HelpIsThere());
}

TEST_F(MainWindowHelp, AHiddenFileCountsAsMissing) {
  CreateHelp();
  m_commands.files.hidden = true;
  Click(OpenWatched().tlHNapoveda);
  EXPECT_EQ(m_machine.messages.questions.size(), 1U);
  EXPECT_THAT(m_commands.help.shown, IsEmpty());
}

TEST_F(MainWindowHelp, FileThatIsNoHelpCountsAsMissing) {
  frmhlavni& window = OpenWatched();
  CreateHelp("<html>404</html>");
  Click(window.tlHNapoveda);
  CreateHelp(test::HelpBytes(1000));  // cut
  Click(window.tlHNapoveda);
  EXPECT_EQ(m_machine.messages.questions.size(), 2U);
  EXPECT_THAT(m_commands.help.shown, IsEmpty());
  ServeHelp();
  m_machine.messages.answers = {true};
  Click(window.tlHNapoveda);
  EXPECT_THAT(m_commands.help.shown, ElementsAre(help));
}

TEST_F(MainWindowHelp, DownloadThatIsNoHelpIsDeletedAndSaid) {
  frmhlavni& window = OpenWatched();
  ServeHelp("<html>404</html>");
  for (const bool isThere : {false, true}) {
    if (isThere) CreateHelp("x");
    m_machine.messages.messages.clear();
    m_machine.messages.answers = {true};
    Click(window.tlHNapoveda);
    ASSERT_EQ(m_machine.messages.messages.size(), 1U);
    EXPECT_EQ(m_machine.messages.messages[0].text, L"Stažení souboru nápovědy nebylo úspěšné.");
    EXPECT_FALSE(HelpIsThere());
    EXPECT_THAT(m_commands.help.shown, IsEmpty());
    EXPECT_EQ(status->Text(), L"");
  }
}

TEST_F(MainWindowHelp, FolderThatTheViewerCannotTakeIsSaid) {
  CreateHelp();
  m_commands.help.takes = false;
  frmhlavni& window = OpenWatched();
  Click(window.tlHNapoveda);
  ASSERT_EQ(m_machine.messages.messages.size(), 1U);
  EXPECT_EQ(m_machine.messages.messages[0].text, L"Nápovědu nelze otevřít: cesta ke složce programu je příliš dlouhá.");
  EXPECT_THAT(m_machine.messages.questions, IsEmpty());
  EXPECT_THAT(m_commands.help.shown, IsEmpty());
}

TEST_F(MainWindowHelp, AViewerThatOpensNothingIsSaid) {
  CreateHelp();
  m_commands.help.opens = false;
  frmhlavni& window = OpenWatched();
  Click(window.tlHNapoveda);
  ASSERT_EQ(m_machine.messages.messages.size(), 1U);
  EXPECT_EQ(m_machine.messages.messages[0].text, L"Nápovědu se nepodařilo otevřít.");
  EXPECT_EQ(m_machine.messages.messages[0].caption, L"Kvez");
  EXPECT_EQ(status->Text(), L"");
}

TEST_F(MainWindowHelp, F1OpensIt) {
  CreateHelp();
  OpenInFront();
  PressKey(VK_F1);
  EXPECT_THAT(m_commands.help.shown, ElementsAre(help));
}

TEST_F(MainWindowHelp, IsClosedAtTheExit) {
  Open();
  m_machine.messages.answers = {true};
  m_window->Unload();
  EXPECT_EQ(m_commands.help.closings, 1);
}

}  // namespace
}  // namespace kvez
