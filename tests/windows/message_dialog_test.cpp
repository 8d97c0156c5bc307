// The message boxes of the machine that the test runs on: their texts, icons and buttons.
#include "platform/windows/windows_message_dialog.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <string>
#include <vector>

namespace kvez::test {
namespace {

using testing::ElementsAre;

/// What was seen of a message box before it was answered.
struct Seen {
  std::wstring caption;
  std::wstring text;
  HICON icon = nullptr;
  std::vector<int> buttons;
};

constexpr int kTextId = 0xFFFF;

Seen seen;
int answer = 0;

std::wstring TextOf(HWND window) {
  wchar_t text[200] = {};
  GetWindowTextW(window, text, 200);
  return text;
}

BOOL CALLBACK LookAtChild(HWND child, LPARAM) {
  wchar_t name[50] = {};
  GetClassNameW(child, name, 50);
  if (lstrcmpiW(name, L"Button") == 0) {
    if (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) seen.buttons.push_back(GetDlgCtrlID(child));
  } else if (GetDlgCtrlID(child) == kTextId) {
    seen.text = TextOf(child);
  } else if (const LRESULT icon = SendMessageW(child, STM_GETICON, 0, 0); icon != 0) {
    seen.icon = reinterpret_cast<HICON>(icon);
  }
  return TRUE;
}

BOOL CALLBACK LookAtBox(HWND window, LPARAM) {
  wchar_t name[50] = {};
  GetClassNameW(window, name, 50);
  if (lstrcmpW(name, L"#32770") != 0 || !IsWindowVisible(window)) return TRUE;
  seen.caption = TextOf(window);
  EnumChildWindows(window, &LookAtChild, 0);
  EndDialog(window, answer);
  return FALSE;
}

/// Sends Enter to each box that opens, as the keyboard repeats it, and once as a press of its own when it is told so.
class EnterHeld {
 public:
  explicit EnterHeld(int repetitions) : m_repetitions(repetitions) {
    s_this = this;
    m_timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { s_this->Step(); });
  }
  EnterHeld(const EnterHeld&) = delete;
  EnterHeld& operator=(const EnterHeld&) = delete;
  ~EnterHeld() { KillTimer(nullptr, m_timer); }

  int sent = 0;

 private:
  void Step() {
    const HWND button = GetFocus();
    wchar_t name[50] = {};
    GetClassNameW(button, name, 50);
    if (lstrcmpiW(name, L"Button") != 0) return;
    constexpr LPARAM kRepeated = 1 << 30;
    PostMessageW(button, WM_KEYDOWN, VK_RETURN, sent < m_repetitions ? kRepeated | 1 : 1);
    ++sent;
  }

  inline static EnterHeld* s_this = nullptr;
  int m_repetitions;
  UINT_PTR m_timer;
};

class MessageDialogs : public testing::Test {
 protected:
  void SetUp() override {
    seen = {};
    // The box dispatches the messages of this thread while it is open.
    m_timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) {
      if (seen.text.empty()) EnumThreadWindows(GetCurrentThreadId(), &LookAtBox, 0);
    });
  }
  void TearDown() override { KillTimer(nullptr, m_timer); }

  WindowsMessageDialog dialog{[] { return HWND{}; }};

 private:
  UINT_PTR m_timer = 0;
};

TEST_F(MessageDialogs, TellWithOneButtonAndTheIconOfTheirKind) {
  answer = IDOK;
  dialog.Show(L"Aktualizace databáze nebyla úspěšná.", MessageIcon::Exclamation, L"Kvez");
  EXPECT_EQ(seen.caption, L"Kvez");
  EXPECT_EQ(seen.text, L"Aktualizace databáze nebyla úspěšná.");
  EXPECT_THAT(seen.buttons, ElementsAre(IDOK));
  EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_EXCLAMATION));
  seen = {};
  dialog.Show(L"Seznam je prázdný.", MessageIcon::Information, L"Kvez");
  EXPECT_THAT(seen.buttons, ElementsAre(IDOK));
  EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_INFORMATION));
}

TEST_F(MessageDialogs, AskWithYesAndNo) {
  answer = IDYES;
  EXPECT_TRUE(dialog.Ask(L"Přejete si z internetu stáhnout nápovědu ?", L"Kvez"));
  EXPECT_EQ(seen.caption, L"Kvez");
  EXPECT_EQ(seen.text, L"Přejete si z internetu stáhnout nápovědu ?");
  EXPECT_THAT(seen.buttons, ElementsAre(IDYES, IDNO));
  EXPECT_EQ(seen.icon, LoadIconW(nullptr, IDI_QUESTION));
  seen = {};
  answer = IDNO;
  EXPECT_FALSE(dialog.Ask(L"Přejete si program ukončit ?", L"Kvez"));
}

TEST(MessageDialogKeys, AKeyThatWasHeldBeforeAnswersNothing) {
  WindowsMessageDialog dialog{[] { return HWND{}; }};
  {
    EnterHeld enter(3);
    EXPECT_TRUE(dialog.Ask(L"Otázka ?", L"Kvez"));
    EXPECT_EQ(enter.sent, 4);
  }
  EnterHeld enter(3);
  dialog.Show(L"Zpráva.", MessageIcon::Information, L"Kvez");
  EXPECT_EQ(enter.sent, 4);
}

}  // namespace
}  // namespace kvez::test
