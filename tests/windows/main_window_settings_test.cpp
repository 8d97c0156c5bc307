// What the main window says of settings and wishes that cannot be read or written.
#include <gmock/gmock.h>

#include "forms/guard.h"
#include "mainwindow/module1.h"
#include "tests/windows/main_window_commands.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Errors of handlers are shown by the guard of the window procedures; these tests collect them.
class MainWindowErrors : public MainWindowCommands {
 protected:
  MainWindowErrors() {
    forms::SetGuard(
        {.title = L"Kvez", .show = [this](const std::wstring& text, const std::wstring&) { errors.push_back(text); }});
  }
  ~MainWindowErrors() override { forms::SetGuard({}); }

  std::vector<std::wstring> errors;
};

TEST_F(MainWindowErrors, AWishThatCannotBeReadDoesNotKeepTheProgram) {
  RecordWish(L"možná");
  Open();
  m_machine.messages.answers = {true};
  EXPECT_TRUE(m_window->Unload());
  EXPECT_EQ(errors.size(), 1U);
  EXPECT_THAT(m_commands.automation.steps, IsEmpty());
}

// Settings that cannot be read, or written.
class MainWindowSettings : public MainWindowErrors {
 protected:
  std::vector<std::wstring> Told() {
    std::vector<std::wstring> texts;
    for (const auto& message : m_machine.messages.messages) texts.push_back(message.text);
    return texts;
  }
  static std::wstring Unreadable(const std::wstring& caption, const std::wstring& text) {
    return L"Nastavení „" + caption + L"“ nelze přečíst. Text \"" + text +
           L"\" není celé číslo. Zadejte je prosím znovu.";
  }
  bool IsTicked(int setting) {
    return SendDlgItemMessageW(SettingsWindow(), kChkN + setting, BM_GETCHECK, 0, 0) == BST_CHECKED;
  }
  void CloseSettings() {
    SendMessageW(SettingsWindow(), WM_CLOSE, 0, 0);
    ASSERT_EQ(SettingsWindow(), nullptr);
  }
  void MoveOver(frmhlavni& window, int y) {
    SendMessageW(window.lstMPSC[0].Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(10, y));
  }
  void PressInLightBlueField(frmhlavni& window) {
    SendMessageW(window.txtMPSC[1].Handle(), WM_KEYDOWN, 'L', 1);
    SendMessageW(window.txtMPSC[1].Handle(), WM_KEYUP, 'L', 1);
  }

  static constexpr const wchar_t* kUnderPointer = L"Automaticky vybrat v seznamu položku pod kurzorem myši.";
  static constexpr const wchar_t* kShortcut = L"Vytvořit zástupce na ploše.";
  static constexpr const wchar_t* kWhileTyping = L"Světlemodré pole - automatické vyhledání po uvolnění klávesy.";
};

TEST_F(MainWindowSettings, UnreadableOneIsToldOnceAndTheWindowOpensToRepairIt) {
  SetSetting(0, L"ano");
  frmhlavni& window = Open();
  for (int y = 1; y < 40; ++y) MoveOver(window, y);
  EXPECT_THAT(Told(), ElementsAre(Unreadable(kUnderPointer, L"ano")));
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), -1);
  ASSERT_NE(SettingsWindow(), nullptr);
  EXPECT_FALSE(IsTicked(0));
  SendDlgItemMessageW(SettingsWindow(), kChkN, BM_CLICK, 0, 0);
  CloseSettings();
  MoveOver(window, 1);
  EXPECT_EQ(window.lstMPSC[0].ListIndex(), 0);
  EXPECT_EQ(Told().size(), 1U);
  // Broken again, it is news again.
  SetSetting(0, L"x");
  MoveOver(window, 20);
  MoveOver(window, 21);
  EXPECT_THAT(Told(), ElementsAre(Unreadable(kUnderPointer, L"ano"), Unreadable(kUnderPointer, L"x")));
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MainWindowSettings, UnreadableOneOfTheLightBlueFieldIsToldOnce) {
  SetSetting(2, L"ano");
  frmhlavni& window = Open();
  for (int i = 0; i < 5; ++i) PressInLightBlueField(window);
  EXPECT_THAT(Told(), ElementsAre(Unreadable(kWhileTyping, L"ano")));
  ASSERT_NE(SettingsWindow(), nullptr);
  EXPECT_FALSE(IsTicked(2));
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MainWindowSettings, WindowOpensWithWhatCannotBeReadUntickedAndTellsWhy) {
  SetSetting(1, L"ano");
  SetSetting(2, L"1");
  frmhlavni& window = Open();
  Click(window.tlHNastaveni);
  EXPECT_THAT(Told(), ElementsAre(Unreadable(kShortcut, L"ano")));
  EXPECT_FALSE(IsTicked(1));
  EXPECT_TRUE(IsTicked(2));
  CloseSettings();
  Click(window.tlHNastaveni);
  EXPECT_NE(SettingsWindow(), nullptr);
  EXPECT_EQ(Told().size(), 1U);
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MainWindowSettings, TickThatCannotBeStoredGoesBackWithASentence) {
  forms::SetGuard(
      {.title = L"Kvez", .show = [this](const std::wstring& text, const std::wstring&) { errors.push_back(text); }});
  frmhlavni& window = Open();
  Click(window.tlHNastaveni);
  m_machine.settings.refuses = true;
  SendDlgItemMessageW(SettingsWindow(), kChkN, BM_CLICK, 0, 0);
  EXPECT_THAT(errors, ElementsAre(L"Nastavení se nepodařilo uložit. (RegSetValueExW 5)"));
  EXPECT_FALSE(IsTicked(0));
}

}  // namespace
}  // namespace kvez
