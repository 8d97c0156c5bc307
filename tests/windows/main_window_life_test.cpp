// The main window from its loading to its end.

#include <gmock/gmock.h>

#include <array>
#include <optional>

#include "forms/mouse_pointer.h"
#include "tests/support/window_test.h"
#include "tests/windows/main_window_test.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using Strings = std::vector<std::wstring>;

class MainWindowLife : public MainWindowTest {
 protected:
  /// What the status bar and the message panel show the user, taken whenever the message is painted: then the label
  /// asks the panel for its colours.
  Strings WatchLoading(const std::function<void()>& load) {
    Strings steps;
    const test::MessageWatch watch(m_window->picMPSCPI.Handle(), WM_CTLCOLORSTATIC, [&] {
      if (!m_window->picMPSCPI.Visible()) return;
      const test::StatusBarView status(m_window->Handle());
      std::wstring icon = L"(no icon)";
      for (const wchar_t* name : {L"NACITANI", L"SEZNAM", L"APLIKACE"}) {
        if (status.ShowsIcon(name)) icon = name;
      }
      const std::wstring step = icon + L" | " + status.Text() + L" | " + m_window->lblZpravaI.Caption();
      if (steps.empty() || steps.back() != step) steps.push_back(step);
      EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerHourglass) << ::testing::PrintToString(step);
      EXPECT_EQ(status.Flags(), 0) << ::testing::PrintToString(step);
    });
    load();
    return steps;
  }
};

TEST_F(MainWindowLife, AfterLoadingItShowsTheListsInNameMode) {
  frmhlavni& window = Open();
  EXPECT_EQ(window.Caption(), L"Kvez");
  EXPECT_EQ(Rows(window.lstMPSC[0]),
            (Strings{L"Bavory", L"Lednice", L"Mikulov", L"Praha 1", L"Staré Město", L"Valtice"}));
  EXPECT_EQ(Rows(window.lstMPSC[2]), (Strings{L"Břeclav", L"Hlavní město Praha"}));
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"V seznamu je 6 obcí.");
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"");
  EXPECT_TRUE(window.optMPSC[1].Value());
  EXPECT_TRUE(window.optMPSC[2].Visible());
  EXPECT_FALSE(window.picMPSCPI.Visible());
  EXPECT_FALSE(window.fraMPSCO.Visible());
  EXPECT_EQ(window.FocusedControl(), &window.txtMPSC[0]);
}

TEST_F(MainWindowLife, LastUpdateIsTheTooltipOfTheUpdateButton) {
  EXPECT_EQ(Open().tlHAktualizace.ToolTipText(), L"Poslední aktualizace databáze byla provedena 16.listopad 2026.");
}

TEST_F(MainWindowLife, ControlsHaveTheirDesignedTexts) {
  frmhlavni& window = Open();
  EXPECT_EQ(window.tlHVyhledej.ToolTipText(), L"Najde v databázi požadované informace a zobrazí seznam.");
  EXPECT_EQ(window.tlHObcePSC.ToolTipText(), L"Vyberte obec ze seznamu.");
  EXPECT_EQ(window.tlHNapoveda.ToolTipText(), L"Nápověda na ovládání programu.");
  EXPECT_EQ(window.tlHOaplikaci.ToolTipText(), L"Kontakt na autora.");
  EXPECT_EQ(window.tlHNastaveni.ToolTipText(), L"Uživatelské nastavení.");
  EXPECT_EQ(window.tlHKonec.ToolTipText(), L"Ukončení programu");
  EXPECT_EQ(window.tlHMeil.ToolTipText(), L"Vaše přání nebo připomínky.");
  EXPECT_EQ(window.tlHWWW.ToolTipText(), L"Stránky programu.");
  EXPECT_EQ(window.tlHPCInfo.ToolTipText(), L"Systémové informace Vašeho počítače.");
  EXPECT_EQ(window.tlHStorno.ToolTipText(), L"Návrat na vyhledávání.");
  EXPECT_EQ(window.optMPSC[0].ToolTipText(), L"Hledané PSČ zadejte ve formátu 69201 nebo 692 01.");
  EXPECT_EQ(window.optMPSC[1].ToolTipText(), L"Pro vyhledání obce můžete použít zástupný symbol * nebo ?.");
  EXPECT_EQ(window.lstMPSC[1].ToolTipText(), L"Po stisknutí pravého tlačítka myši se zobrazí nabídka.");
  const std::array<std::pair<const tlText*, const wchar_t*>, 11> captions = {{
      {&window.tlHObcePSC, L"O&bce k PSČ"},
      {&window.tlHVyhledej, L"&Vyhledej"},
      {&window.tlHAktualizace, L"&Aktualizace"},
      {&window.tlHNapoveda, L"&Nápověda"},
      {&window.tlHOaplikaci, L"&O aplikaci"},
      {&window.tlHNastaveni, L"Na&staveni"},
      {&window.tlHKonec, L"&Konec"},
      {&window.tlHMeil, L"&E-mail"},
      {&window.tlHWWW, L"&Internet"},
      {&window.tlHPCInfo, L"&PC-info"},
      {&window.tlHStorno, L"&Storno"},
  }};
  for (const auto& [button, caption] : captions) EXPECT_EQ(button->Caption(), caption);
  EXPECT_EQ(window.lblMPSCH[0].Caption(), L"Obec");
  EXPECT_EQ(window.lblMPSCH[1].Caption(), L"Okres");
  EXPECT_EQ(window.lblMPSCH[2].Caption(), L"Vyhledej");
}

TEST_F(MainWindowLife, DesignedPlacesAreKeptToTheTwip) {
  frmhlavni& window = Open();
  EXPECT_EQ(window.txtMPSC[1].GetPlace(), (forms::Place{30, 30, 3105, 285}));
  EXPECT_EQ(window.lstMPSC[0].GetPlace(), (forms::Place{30, 330, 3105, 2790}));
  EXPECT_EQ(window.lstMPSC[2].GetPlace(), (forms::Place{30, 330, 3105, 2790}));
  EXPECT_EQ(window.lstMPSC[1].GetPlace(), (forms::Place{3180, 330, 3105, 2790}));
  EXPECT_EQ(window.txtMPSC[0].GetPlace().top, 3390);
  EXPECT_EQ(window.tmrMPSC.Interval(), 1500U);
  EXPECT_FALSE(window.tmrMPSC.Enabled());
}

TEST_F(MainWindowLife, MessagePanelIsCentred) {
  frmhlavni& window = Open();
  const forms::Place place = window.picMPSCPI.GetPlace();
  EXPECT_EQ(place.left, (window.ClientWidth() - place.width) / 2);
  EXPECT_EQ(place.top, (window.ClientHeight() - place.height) / 2);
}

TEST_F(MainWindowLife, MessagePanelIsMadeWhereTheLoadingPutsIt) {
  const frmhlavni window(m_database, m_machine.Platform(), m_commands.Services(m_machine.settings, kFolder));
  EXPECT_EQ(window.picMPSCPI.GetPlace(), Open().picMPSCPI.GetPlace());
}

TEST_F(MainWindowLife, LoadingSaysAndShowsEachOfItsSteps) {
  const auto theSteps =
      ElementsAre(L"NACITANI | Načítání databáze obcí ze souboru. | Strpení prosím, načítám databázi obcí.",
                  L"NACITANI | Načítání databáze dodávacích pošt ze souboru. | Strpení prosím, načítám databázi pošt.",
                  L"NACITANI | Načítání databáze okresů ze souboru. | Strpení prosím, načítám databázi okresů.",
                  L"SEZNAM | Vytváření uživatelského seznamu. | Strpení prosím, vytvářím seznam obcí.",
                  L"SEZNAM | Vytváření uživatelského seznamu. | Strpení prosím, vytvářím pomocný seznam okresů.");
  frmhlavni& window = Make();
  EXPECT_THAT(WatchLoading([&] { window.Load(); }), theSteps);
  EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerDefault);
  const test::StatusBarView status(window.Handle());
  EXPECT_TRUE(status.ShowsIcon(L"APLIKACE"));
  EXPECT_EQ(status.Text(), L"Vyhledá obce odpovídající zadanému textu.");
  m_database.pscUvolni();
  window.picMPSCPI.SetVisible(true);
  EXPECT_THAT(WatchLoading([&] { window.NactiDatabazi(); }), theSteps);
  EXPECT_TRUE(status.ShowsIcon(L"APLIKACE"));
  EXPECT_EQ(status.Text(), L"Poslední aktualizace databáze byla provedena 16.listopad 2026.");
}

TEST_F(MainWindowLife, AboutButtonsTakeTheFocusMarkOfTheFirst) {
  frmhlavni& window = Make();
  window.tlHMeil.SetFocusDraw(0);
  window.Load();
  for (const tlText* button : {&window.tlHWWW, &window.tlHPCInfo, &window.tlHStorno}) {
    EXPECT_EQ(button->FocusDraw(), 0) << ::testing::PrintToString(button->Caption());
  }
}

TEST_F(MainWindowLife, SaysGoodbyeBeforeItGoes) {
  frmhlavni& window = Open();
  window.txtMPSC[0].SetText(L"Praha");
  window.VyhledejSeznam();
  Strings painted;
  const test::MessageWatch watch(window.picMPSCPI.Handle(), WM_CTLCOLORSTATIC,
                                 [&] { painted.push_back(window.lblZpravaI.Caption()); });
  m_commands.help.onCloseAll = [&] {
    EXPECT_TRUE(IsWindowVisible(window.picMPSCPI.Handle()));
    ASSERT_FALSE(painted.empty());
    EXPECT_EQ(painted.back(), L"Nashledanou.");
    EXPECT_EQ(window.lstMPSC[kListAll].ListCount(), 0);
    EXPECT_EQ(window.lstMPSC[kListResult].ListCount(), 0);
    EXPECT_TRUE(IsWindowVisible(window.Handle()));
  };
  m_machine.messages.answers = {true};
  EXPECT_TRUE(window.Unload());
  EXPECT_EQ(m_commands.help.closings, 1);
}

TEST_F(MainWindowLife, SearchButtonIsThereWhileItLoads) {
  m_machine.disk.files.erase(kFolder + L"\\vd3.kl_");
  std::vector<bool> shown;
  m_machine.messages.onShow = [&] { shown.push_back(m_window->tlHVyhledej.Visible()); };
  Open();
  EXPECT_EQ(shown, std::vector<bool>{true});
}

TEST_F(MainWindowLife, MessagePanelHidesWhatLiesBehindWhileItLoads) {
  m_machine.disk.files.erase(kFolder + L"\\vd3.kl_");
  COLORREF inside = CLR_INVALID;
  m_machine.messages.onShow = [&] {
    inside = test::Pixels::OfWindow(m_window->picMPSCPI.Handle()).At(m_window->ToPixels(60), m_window->ToPixels(60));
  };
  Open();
  EXPECT_EQ(inside, GetSysColor(COLOR_BTNFACE));
}

TEST_F(MainWindowLife, MissingDistrictsHideTheirModeAndLeaveTheOthers) {
  m_machine.disk.files.erase(kFolder + L"\\vd3.kl_");
  frmhlavni& window = Open();
  EXPECT_FALSE(window.optMPSC[2].Visible());
  ASSERT_EQ(m_machine.messages.messages.size(), 1U);
  EXPECT_EQ(m_machine.messages.messages[0].text, L"Soubor se seznamem okresů je poškozen nebo neexistuje !");
  window.txtMPSC[0].SetText(L"Lednice");
  window.VyhledejSeznam();
  EXPECT_EQ(Rows(window.lstMPSC[1]), Strings{L"Lednice"});
}

TEST_F(MainWindowLife, ReloadingAfterTheDistrictsCameBackShowsTheirMode) {
  const auto districts = m_machine.disk.files[kFolder + L"\\vd3.kl_"];
  m_machine.disk.files.erase(kFolder + L"\\vd3.kl_");
  frmhlavni& window = Open();
  m_machine.disk.files[kFolder + L"\\vd3.kl_"] = districts;
  m_database.pscUvolni();
  window.NactiDatabazi();
  EXPECT_TRUE(window.optMPSC[2].Visible());
  EXPECT_EQ(window.lstMPSC[0].ListCount(), 6);
}

// Each file sound, missing, empty, cut, or not to be expanded, in every combination.
TEST_F(MainWindowLife, EveryCombinationOfDamagedFilesGivesItsMessagesAndAWindowThatWorks) {
  const std::array<const wchar_t*, 3> messages = {L"Soubor se seznamem PSČ je poškozen nebo neexistuje !",
                                                  L"Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !",
                                                  L"Soubor se seznamem okresů je poškozen nebo neexistuje !"};
  const auto sound = m_machine.disk.files;
  frmhlavni& window = Open();
  constexpr int kConditions = 4;
  for (int combination = 0; combination < kConditions * kConditions * kConditions; ++combination) {
    m_machine.disk.files = sound;
    m_machine.messages.messages.clear();
    Strings expected;
    int rest = combination;
    for (std::size_t file = 0; file < 3; ++file, rest /= kConditions) {
      const std::wstring path = kFolder + L"\\vd" + std::to_wstring(file + 1) + L".kl_";
      const int condition = rest % kConditions;
      if (condition == 1) m_machine.disk.files.erase(path);
      if (condition == 2) m_machine.disk.files[path].clear();
      if (condition == 3) m_machine.disk.files[path].pop_back();
      if (condition != 0) expected.push_back(messages[file]);
    }
    m_database.pscUvolni();
    window.NactiDatabazi();
    Strings shown;
    for (const auto& message : m_machine.messages.messages) shown.push_back(message.text);
    EXPECT_EQ(shown, expected) << "combination " << combination;
    const bool municipalities = combination % kConditions == 0;
    EXPECT_EQ(window.lstMPSC[0].ListCount(), municipalities ? 6 : 0) << "combination " << combination;
    EXPECT_FALSE(window.picMPSCPI.Visible());
    for (const auto& [path, content] : m_machine.disk.files) {
      EXPECT_EQ(path.find(L".bin"), std::wstring::npos) << "combination " << combination;
    }
    window.optMPSC[0].SetValue(true);
    window.optMPSC[1].SetValue(true);
    window.txtMPSC[0].SetText(L"Lednice");
    window.VyhledejSeznam();
    EXPECT_EQ(window.lstMPSC[1].ListCount(), municipalities ? 1 : 0) << "combination " << combination;
  }
}

TEST_F(MainWindowLife, UnwritableFolderGivesAllThreeMessages) {
  m_machine.disk.refusesNewFiles = true;
  frmhlavni& window = Open();
  EXPECT_EQ(m_machine.messages.messages.size(), 3U);
  EXPECT_EQ(window.lblPSCV[0].Caption(), L"Seznam je prázdný.");
}

TEST_F(MainWindowLife, NoAtTheExitQuestionChangesNothing) {
  frmhlavni& window = Open();
  m_machine.messages.answers = {false};
  EXPECT_FALSE(window.Unload());
  ASSERT_EQ(m_machine.messages.questions.size(), 1U);
  EXPECT_EQ(m_machine.messages.questions[0].text, L"Přejete si program ukončit ?");
  EXPECT_EQ(m_machine.messages.questions[0].caption, L"Kvez");
  EXPECT_TRUE(window.IsOpen());
  EXPECT_EQ(window.lstMPSC[0].ListCount(), 6);
  EXPECT_EQ(m_database.pscCelkem(), 6);
}

TEST_F(MainWindowLife, YesAtTheExitQuestionReleasesTheData) {
  frmhlavni& window = Open();
  m_machine.messages.answers = {true};
  EXPECT_TRUE(window.Unload());
  EXPECT_FALSE(window.IsOpen());
  EXPECT_EQ(m_database.pscCelkem(), 0);
  m_window.reset();
}

class MainWindowSessionEnd : public MainWindowTest {
 protected:
  LRESULT Query(LPARAM kind = 0) { return SendMessageW(m_window->Handle(), WM_QUERYENDSESSION, 0, kind); }
  void End(bool ending) { SendMessageW(m_window->Handle(), WM_ENDSESSION, ending ? TRUE : FALSE, 0); }
  void ExpectThatItWorks() {
    EXPECT_TRUE(IsWindowVisible(m_window->Handle()));
    EXPECT_EQ(m_window->lstMPSC[kListAll].ListCount(), 6);
    m_window->txtMPSC[0].SetText(L"Lednice");
    m_window->VyhledejSeznam();
    EXPECT_EQ(Rows(m_window->lstMPSC[kListResult]), Strings{L"Lednice"});
  }
};

TEST_F(MainWindowSessionEnd, MayBeRefused) {
  Open();
  m_machine.messages.answers = {false};
  EXPECT_EQ(Query(), FALSE);
  EXPECT_THAT(m_machine.messages.questions,
              ElementsAre(fakes::MessageDialogFake::Question{L"Přejete si program ukončit ?", L"Kvez"}));
  End(false);
  ExpectThatItWorks();
}

TEST_F(MainWindowSessionEnd, AsksOnceAndEndsCompletely) {
  m_machine.settings.values[{L"VD", L"VDKVEZ", L"zástupce"}] = L"True";
  frmhlavni& window = Open();
  window.tlHNastaveni.Click();
  m_machine.messages.answers = {true};
  EXPECT_EQ(Query(), TRUE);
  EXPECT_EQ(m_database.pscCelkem(), 6);
  End(true);
  EXPECT_EQ(m_machine.messages.questions.size(), 1U);
  EXPECT_FALSE(window.IsOpen());
  EXPECT_EQ(m_database.pscCelkem(), 0);
  EXPECT_FALSE(frmnastaveni::SettingsOpen);
  EXPECT_EQ(m_commands.help.closings, 1);
  ASSERT_FALSE(m_commands.automation.steps.empty());
  EXPECT_EQ(m_commands.automation.steps.back(), L"Save()");
}

TEST_F(MainWindowSessionEnd, CalledOffLeavesAProgramThatWorksAndAsksAgain) {
  frmhlavni& window = Open();
  m_machine.messages.answers = {true, false};
  EXPECT_EQ(Query(), TRUE);
  End(false);
  ExpectThatItWorks();
  EXPECT_FALSE(window.Unload());
  EXPECT_EQ(m_machine.messages.questions.size(), 2U);
}

TEST_F(MainWindowSessionEnd, IsNotAskedAboutWhenItIsCritical) {
  frmhlavni& window = Open();
  EXPECT_EQ(Query(static_cast<LPARAM>(ENDSESSION_CRITICAL)), TRUE);
  End(true);
  EXPECT_TRUE(m_machine.messages.questions.empty());
  EXPECT_FALSE(window.IsOpen());
  EXPECT_EQ(m_database.pscCelkem(), 0);
}

TEST_F(MainWindowLife, ProgressBarGrowsAndMayShrink) {
  frmhlavni& window = Open();
  window.picMPSCPI.SetVisible(true);
  const auto filled = [&window](int percent) {
    RECT client{};
    GetClientRect(window.picZpravaI.Handle(), &client);
    const HDC context = GetDC(window.picZpravaI.Handle());
    const COLORREF color = GetPixel(context, client.right * percent / 100, client.bottom / 2);
    ReleaseDC(window.picZpravaI.Handle(), context);
    return color == window.picZpravaI.ForeColor();
  };
  window.picZpravaI.Cls();
  window.Prubech(0.5F);
  EXPECT_TRUE(filled(25));
  EXPECT_FALSE(filled(75));
  window.Prubech(0.25F);  // grows only: what was painted stays
  EXPECT_TRUE(filled(40));
  window.PrubechPamet(0.25F);
  EXPECT_FALSE(filled(40));
  EXPECT_TRUE(filled(10));
}

}  // namespace
}  // namespace kvez
