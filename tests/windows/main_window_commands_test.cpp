// Hints, About, settings, exit and the keys of the whole window, in the real main window.
#include <gmock/gmock.h>

#include <array>
#include <fstream>

#include "forms/private_messages.h"
#include "mainwindow/about_text.h"
#include "mainwindow/addresses.h"
#include "tests/support/handle_count.h"
#include "tests/support/window_test.h"
#include "tests/windows/main_window_commands.h"
#include "tests/windows/status_bar_view.h"
#include "text/utf8.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(MainWindowCommands, EveryButtonGivesItsHintAndIcon) {
  frmhlavni& window = Open();
  const test::StatusBarView status(window.Handle());
  struct Row {
    tlText* button;
    const wchar_t* icon;
    const wchar_t* hint;
  };
  const std::array<Row, 11> rows = {{
      {&window.tlHObcePSC, L"NAJDI", L"Vyberte obec ze seznamu."},
      {&window.tlHVyhledej, L"NAJDI", L"Najde v databázi požadované informace a zobrazí seznam."},
      {&window.tlHAktualizace, L"APLIKACE", L"Poslední aktualizace databáze byla provedena 16.listopad 2026."},
      {&window.tlHNapoveda, L"NAPOVEDA", L"Nápověda na ovládání programu."},
      {&window.tlHOaplikaci, L"APLIKACE", L"Kontakt na autora."},
      {&window.tlHNastaveni, L"NASTAVENI", L"Uživatelské nastavení."},
      {&window.tlHKonec, L"APLIKACE", L"Ukončení programu"},
      {&window.tlHMeil, L"MEIL", L"Vaše přání nebo připomínky."},
      {&window.tlHWWW, L"INTERNET", L"Stránky programu."},
      {&window.tlHPCInfo, L"POCITAC", L"Systémové informace Vašeho počítače."},
      {&window.tlHStorno, L"APLIKACE", L"Návrat na vyhledávání."},
  }};
  for (const Row& row : rows) {
    row.button->MouseMoveEnabled(true);
    EXPECT_EQ(status.Text(), row.hint);
    EXPECT_TRUE(status.ShowsIcon(row.icon)) << ::testing::PrintToString(row.hint);
    row.button->MouseMoveEnabled(false);
    EXPECT_EQ(status.Text(), L"");
    EXPECT_EQ(status.Flags(), 256);
    EXPECT_FALSE(status.HasIcon());
  }
}

TEST_F(MainWindowCommands, TheHintOfObcePscFollowsItsTooltip) {
  frmhlavni& window = Open();
  window.txtMPSC[0].SetText(L"Mikulov");
  window.VyhledejSeznam();
  window.lstMPSC[1].SetListIndex(0);
  window.tlHObcePSC.MouseMoveEnabled(true);
  EXPECT_EQ(test::StatusBarView(window.Handle()).Text(), L"Vytvoří seznam obcí pro PSČ \"692 01  Mikulov na Moravě\".");
}

TEST_F(MainWindowCommands, AboutShowsWhatTheProgramIs) {
  frmhlavni& window = Open();
  Click(window.tlHOaplikaci);
  EXPECT_TRUE(window.fraMPSCO.Visible());
  EXPECT_EQ(window.Label1to3[0].Caption(), L"Název: Kvez");
  EXPECT_EQ(window.Label1to3[1].Caption(), L"Verze: 1.0");
  EXPECT_EQ(window.Label1to3[2].Caption(), L"Kvez");
  for (const tlText* button :
       {&window.tlHAktualizace, &window.tlHVyhledej, &window.tlHOaplikaci, &window.tlHNastaveni}) {
    EXPECT_FALSE(button->Enabled().IsTrue());
  }
  for (const tlText* button : {&window.tlHNapoveda, &window.tlHKonec, &window.tlHStorno}) {
    EXPECT_TRUE(button->Enabled().IsTrue());
  }
  EXPECT_EQ(window.FocusedControl(), &window.Text1);
  const std::wstring text = window.Text1.Text();
  std::ifstream stream(KVEZ_SOURCE_DIR "/data/stav.txt", std::ios::binary);
  std::string state;
  ASSERT_TRUE(std::getline(stream, state));
  for (const std::wstring& part : {std::wstring(L"Kvez vyhledává obce"), std::wstring(L"Česká pošta, s.\u00a0p."),
                                   L": stav " + FromUtf8(state).value_or(L"?") + L". ", std::wstring(L"licencí MIT")}) {
    EXPECT_NE(text.find(part), std::wstring::npos) << ::testing::PrintToString(part);
  }
}

TEST(AboutTextTest, OnlyATrialSaysSoAndSaysItFirst) {
  const std::wstring text = AboutText(false);
  EXPECT_TRUE(text.starts_with(L"Kvez vyhledává obce České republiky, "));
  EXPECT_EQ(
      AboutText(true),
      L"Toto je zkušební sestavení programu bez vlastních adres: aktualizuje se jen ze serveru na tomto počítači a "
      L"tlačítka E-mail a Internet nikam nevedou.\r\n\r\n" +
          text);
}

TEST_F(MainWindowCommands, AboutSaysWhetherItIsATrial) {
  frmhlavni& window = Open();
  Click(window.tlHOaplikaci);
  EXPECT_EQ(window.Text1.Text(), AboutText(kIsTrial));
}

TEST_F(MainWindowCommands, TabGoesThroughAboutAsItIsRead) {
  frmhlavni& window = Open();
  Click(window.tlHOaplikaci);
  for (const tlText* button : {&window.tlHMeil, &window.tlHWWW, &window.tlHPCInfo, &window.tlHStorno}) {
    ASSERT_TRUE(window.FocusNext());
    EXPECT_EQ(window.FocusedControl(), button) << ::testing::PrintToString(button->Caption());
  }
}

TEST_F(MainWindowCommands, AboutIsMadeWhenItIsFirstShownAndKept) {
  frmhlavni& window = Open();
  EXPECT_EQ(window.fraMPSCO.Handle(), nullptr);
  for (const tlText* button : {&window.tlHWWW, &window.tlHPCInfo, &window.tlHStorno}) {
    EXPECT_EQ(button->FocusDraw(), 1) << ::testing::PrintToString(button->Caption());
  }
  Click(window.tlHOaplikaci);
  EXPECT_EQ(window.tlHMeil.SEMode(), 2);
  EXPECT_EQ(window.tlHMeil.Caption(), L"&E-mail");
  const HWND text = window.Text1.Handle();
  Click(window.tlHStorno);
  Click(window.tlHOaplikaci);
  EXPECT_EQ(window.Text1.Handle(), text);
  EXPECT_EQ(window.FocusedControl(), &window.Text1);
}

TEST_F(MainWindowCommands, AboutLiesInFrontOfTheSearchingAndBehindTheMessages) {
  frmhlavni& window = Open();
  Click(window.tlHOaplikaci);
  std::vector<HWND> inFront;
  for (HWND child = GetWindow(window.Handle(), GW_CHILD); child != nullptr && inFront.size() < 2;
       child = GetWindow(child, GW_HWNDNEXT)) {
    inFront.push_back(child);
  }
  EXPECT_EQ(inFront, (std::vector<HWND>{window.picMPSCPI.Handle(), window.fraMPSCO.Handle()}));
}

TEST_F(MainWindowCommands, StornoGoesBackToSearching) {
  frmhlavni& window = Open();
  Click(window.tlHOaplikaci);
  window.tlHStorno.MouseMoveEnabled(true);
  Click(window.tlHStorno);
  EXPECT_FALSE(window.fraMPSCO.Visible());
  for (const tlText* button :
       {&window.tlHAktualizace, &window.tlHVyhledej, &window.tlHOaplikaci, &window.tlHNastaveni}) {
    EXPECT_TRUE(button->Enabled().IsTrue());
  }
  const test::StatusBarView status(window.Handle());
  EXPECT_EQ(status.Text(), L"");
  EXPECT_EQ(status.Flags(), 256);
  EXPECT_EQ(window.FocusedControl(), &window.txtMPSC[0]);
  EXPECT_TRUE(window.tlHVyhledej.Visible());
}

TEST_F(MainWindowCommands, EscapeIsStornoWhileAboutIsOpen) {
  frmhlavni& window = OpenInFront();
  int stornos = 0;
  const auto original = window.tlHStorno.Click;
  window.tlHStorno.Click = [&] {
    ++stornos;
    original();
  };
  PressKey(VK_ESCAPE);
  EXPECT_EQ(stornos, 0);
  Click(window.tlHOaplikaci);
  PressKey(VK_ESCAPE);
  EXPECT_EQ(stornos, 1);
  EXPECT_FALSE(window.fraMPSCO.Visible());
  EXPECT_TRUE(window.IsOpen());
}

TEST_F(MainWindowCommands, AboutButtonsOpenThroughTheShellAndRaiseNoClick) {
  frmhlavni& window = Open();
  Click(window.tlHOaplikaci);
  std::vector<std::string> opened;
  const auto record = [&opened](HWND, const char*, const char* file, const char*, const char*, int) {
    opened.emplace_back(file);
    return HINSTANCE{};
  };
  for (tlText* button : {&window.tlHMeil, &window.tlHWWW, &window.tlHPCInfo}) {
    button->SetShellExecute(record);
    Click(*button);
  }
  const std::wstring mail = kMailAddress;
  const std::wstring web = kWebPage;
  std::string system(MAX_PATH, '\0');
  system.resize(GetSystemDirectoryA(system.data(), MAX_PATH));
  EXPECT_THAT(opened, ElementsAre("mailto:" + std::string(mail.begin(), mail.end()),
                                  "http://" + std::string(web.begin(), web.end()), system + "\\msinfo32.exe"));
}

TEST_F(MainWindowCommands, ClickHandlersOfTheShellButtonsClearTheStatus) {
  frmhlavni& window = Open();
  const test::StatusBarView status(window.Handle());
  for (tlText* button : {&window.tlHMeil, &window.tlHWWW, &window.tlHPCInfo}) {
    button->MouseMoveEnabled(true);
    button->Click();
    EXPECT_EQ(status.Text(), L"");
    EXPECT_EQ(status.Flags(), 256);
  }
}

TEST_F(MainWindowCommands, ControlKeysSelectTheModes) {
  frmhlavni& window = OpenInFront();
  PressKey('P', true);
  EXPECT_TRUE(window.optMPSC[0].Value());
  EXPECT_EQ(window.txtMPSC[0].MaxLength(), 6);
  PressKey('O', true);
  EXPECT_TRUE(window.optMPSC[2].Value());
  EXPECT_TRUE(window.lstMPSC[2].Visible());
  PressKey('M', true);
  EXPECT_TRUE(window.optMPSC[1].Value());
  EXPECT_TRUE(window.lstMPSC[0].Visible());
}

TEST_F(MainWindowCommands, OtherShiftStatesDoNothing) {
  frmhlavni& window = OpenInFront();
  PressKey('P', true, true);
  PressKey('P', true, false, true);
  PressKey('P', false, true);
  PressKey('P');
  EXPECT_TRUE(window.optMPSC[1].Value());
}

TEST_F(MainWindowCommands, WithoutDistrictsControlOSelectsNothing) {
  m_machine.disk.files.erase(kFolder + L"\\vd3.kl_");
  frmhlavni& window = OpenInFront();
  PressKey('O', true);
  EXPECT_FALSE(window.optMPSC[2].Value());
  EXPECT_TRUE(window.optMPSC[1].Value());
}

TEST_F(MainWindowCommands, AModeKeyLeavesTheAboutPanel) {
  frmhlavni& window = OpenInFront();
  Click(window.tlHOaplikaci);
  PressKey('P', true);
  EXPECT_FALSE(window.fraMPSCO.Visible());
  EXPECT_TRUE(window.optMPSC[0].Value());
}

TEST_F(MainWindowCommands, AHeldModeKeyChoosesOnce) {
  frmhlavni& window = Open();
  int choices = 0;
  window.optMPSC[0].Click = [&] { ++choices; };
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
  for (const LPARAM held : {0, 1 << 30, 1 << 30}) {
    SendMessageW(window.txtMPSC[0].Handle(), WM_KEYDOWN, 'P', held | 1);
    window.optMPSC[0].SetValue(false);
  }
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(choices, 1);
}

TEST_F(MainWindowCommands, AScreenReaderReachesNothingBehindTheAboutPanel) {
  frmhlavni& window = OpenInFront();
  window.txtMPSC[0].SetText(L"Mikulov");
  window.VyhledejSeznam();
  window.lstMPSC[1].SetListIndex(0);
  Click(window.tlHOaplikaci);
  for (tlText* button : {&window.tlHObcePSC, &window.tlHVyhledej, &window.tlHKonec, &window.tlHNapoveda}) {
    SendMessageW(button->Handle(), forms::kDoDefaultActionMessage, 0, 0);
  }
  SendMessageW(window.optMPSC[0].Handle(), BM_CLICK, 0, 0);
  EXPECT_EQ(m_machine.messages.questions.size(), 0U);
  EXPECT_FALSE(window.optMPSC[0].Value());
  EXPECT_FALSE(window.tlHObcePSC.Enabled().IsTrue());
  SendMessageW(window.tlHStorno.Handle(), forms::kDoDefaultActionMessage, 0, 0);
  EXPECT_FALSE(window.fraMPSCO.Visible());
  EXPECT_TRUE(window.tlHObcePSC.Enabled().IsTrue());
}

TEST_F(MainWindowCommands, EveryAccessKeyPressesItsButton) {
  frmhlavni& window = OpenInFront();
  std::wstring pressed;
  const auto listen = [&pressed](tlText& button, wchar_t letter) {
    button.Click = [&pressed, letter] { pressed.push_back(letter); };
  };
  listen(window.tlHObcePSC, L'b');
  listen(window.tlHVyhledej, L'v');
  listen(window.tlHAktualizace, L'a');
  listen(window.tlHNapoveda, L'n');
  listen(window.tlHNastaveni, L's');
  listen(window.tlHKonec, L'k');
  window.tlHObcePSC.SetVisible(true);
  for (const WORD key : std::initializer_list<WORD>{'B', 'V', 'A', 'N', 'S', 'K'}) PressKey(key, false, false, true);
  EXPECT_EQ(pressed, L"bvansk");
  for (const wchar_t letter : std::wstring(L"BVANSK")) AccessKey(letter);
  EXPECT_EQ(pressed, L"bvanskbvansk");

  PressKey('O', false, false, true);
  ASSERT_TRUE(window.fraMPSCO.Visible());
  const auto shell = [&pressed](tlText& button, wchar_t letter) {
    button.SetShellExecute([&pressed, letter](HWND, const char*, const char*, const char*, const char*, int) {
      pressed.push_back(letter);
      return HINSTANCE{};
    });
  };
  shell(window.tlHMeil, L'e');
  shell(window.tlHWWW, L'i');
  shell(window.tlHPCInfo, L'p');
  pressed.clear();
  for (const WORD key : std::initializer_list<WORD>{'E', 'I', 'P'}) PressKey(key, false, false, true);
  EXPECT_EQ(pressed, L"eip");
  // Now it is the panel's way back: the settings button, which shares the letter, is disabled.
  PressKey('S', false, false, true);
  EXPECT_FALSE(window.fraMPSCO.Visible());
  EXPECT_EQ(pressed, L"eip");
}

TEST_F(MainWindowCommands, SettingsOpenOnceAndShowWhatIsStored) {
  SetSetting(2, L"1");
  frmhlavni& window = Open();
  Click(window.tlHNastaveni);
  const HWND first = SettingsWindow();
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(frmnastaveni::SettingsOpen);
  EXPECT_EQ(SendDlgItemMessageW(first, kChkN + 2, BM_GETCHECK, 0, 0), BST_CHECKED);
  Click(window.tlHNastaveni);
  EXPECT_EQ(SettingsWindow(), first);
}

TEST_F(MainWindowCommands, SettingsOpenAgainAfterTheyWereClosed) {
  frmhlavni& window = Open();
  Click(window.tlHNastaveni);
  SendMessageW(SettingsWindow(), WM_CLOSE, 0, 0);
  EXPECT_EQ(SettingsWindow(), nullptr);
  EXPECT_FALSE(frmnastaveni::SettingsOpen);
  Click(window.tlHNastaveni);
  EXPECT_NE(SettingsWindow(), nullptr);
}

TEST_F(MainWindowCommands, TheExitClosesTheSettings) {
  frmhlavni& window = Open();
  Click(window.tlHNastaveni);
  m_machine.messages.answers = {true};
  EXPECT_TRUE(window.Unload());
  EXPECT_EQ(SettingsWindow(), nullptr);
  EXPECT_FALSE(frmnastaveni::SettingsOpen);
}

TEST_F(MainWindowCommands, NoAtTheExitQuestionKeepsTheSettingsOpen) {
  frmhlavni& window = Open();
  Click(window.tlHNastaveni);
  m_machine.messages.answers = {false};
  Click(window.tlHKonec);
  EXPECT_TRUE(window.IsOpen());
  EXPECT_NE(SettingsWindow(), nullptr);
  EXPECT_EQ(m_commands.help.closings, 0);
}

TEST_F(MainWindowCommands, TheExitPutsAWantedShortcutBack) {
  RecordWish(L"True");
  Open();
  m_machine.messages.answers = {true};
  m_window->Unload();
  EXPECT_EQ(m_commands.automation.steps.back(), L"Save()");
}

TEST_F(MainWindowCommands, TheExitWithoutAWishLeavesTheDesktopAlone) {
  Open();
  m_machine.messages.answers = {true};
  m_window->Unload();
  EXPECT_THAT(m_commands.shell.folders, IsEmpty());
  EXPECT_THAT(m_commands.automation.steps, IsEmpty());
}

TEST_F(MainWindowCommands, RepetitionLeavesNoHandles) {
  frmhlavni& window = Open();
  const auto round = [&] {
    Click(window.tlHNastaveni);
    forms::DoEvents();
    SendMessageW(SettingsWindow(), WM_CLOSE, 0, 0);
    Click(window.tlHOaplikaci);
    window.tlHMeil.MouseMoveEnabled(true);
    Click(window.tlHStorno);
    Click(window.tlHAktualizace);
    forms::DoEvents();
  };
  for (int i = 0; i < 5; ++i) round();
  kvez::test::HandleCount before = kvez::test::CountHandles();
  for (int i = 0; i < 30; ++i) round();
  // A look may come up late, once, on a busy display; what leaks grows with every round.
  if (!(kvez::test::CountHandles() == before)) {
    before = kvez::test::CountHandles();
    for (int i = 0; i < 30; ++i) round();
  }
  EXPECT_EQ(kvez::test::CountHandles(), before);
}

}  // namespace
}  // namespace kvez
