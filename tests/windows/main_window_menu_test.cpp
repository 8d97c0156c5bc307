// The result list's menu: its rows, its two ways in, its questions and what they lead to.
#include <gmock/gmock.h>

#include <functional>
#include <utility>

#include "forms/mouse_pointer.h"
#include "mainwindow/list_menu.h"
#include "tests/support/program_driver.h"
#include "tests/support/waiting.h"
#include "tests/support/window_test.h"
#include "tests/windows/main_window_test.h"
#include "tests/windows/message_watch.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Message = fakes::MessageDialogFake::Message;
using Question = fakes::MessageDialogFake::Question;

/// What a menu looked like while it was open.
struct SeenMenu {
  int times = 0;
  HMENU menu = nullptr;
  RECT bounds{};
  std::vector<std::wstring> rows;  // "4 Text", a grey one "7 (Text)", a separator "3 -"
};

std::vector<std::wstring> ReadRows(HMENU menu) {
  std::vector<std::wstring> rows;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[64] = {};
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_STRING;
    item.dwTypeData = text;
    item.cch = 64;
    GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &item);
    const bool isGrey = (item.fState & MFS_GRAYED) == MFS_GRAYED;
    const std::wstring shown = isGrey ? L"(" + std::wstring(text) + L")" : text;
    rows.push_back(std::to_wstring(item.wID) + L" " + ((item.fType & MFT_SEPARATOR) != 0 ? L"-" : shown));
  }
  return rows;
}

/// Looks at each menu of this process that opens, and presses keys in it. The menu has a message loop of its own, in
/// which only a timer gets a turn.
class MenuWatcher {
 public:
  explicit MenuWatcher(std::vector<WORD> keys) : m_keys(std::move(keys)) {
    theWatcher = this;
    m_timer = SetTimer(nullptr, 0, 10, &Look);
  }
  MenuWatcher(const MenuWatcher&) = delete;
  MenuWatcher& operator=(const MenuWatcher&) = delete;
  ~MenuWatcher() {
    KillTimer(nullptr, m_timer);
    theWatcher = nullptr;
  }

  SeenMenu seen;

 private:
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
    constexpr UINT kGetMenu = 0x01E1;
    const HWND window = FindWindowW(L"#32768", nullptr);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (window == nullptr || !IsWindowVisible(window) || process != GetCurrentProcessId()) {
      theWatcher->m_isOpen = false;
      return;
    }
    if (std::exchange(theWatcher->m_isOpen, true)) return;
    SeenMenu& seen = theWatcher->seen;
    ++seen.times;
    seen.menu = reinterpret_cast<HMENU>(SendMessageW(window, kGetMenu, 0, 0));
    seen.rows = ReadRows(seen.menu);
    GetWindowRect(window, &seen.bounds);
    for (const WORD key : theWatcher->m_keys) test::PressKey(key);
  }

  static inline MenuWatcher* theWatcher = nullptr;
  std::vector<WORD> m_keys;
  bool m_isOpen = false;
  UINT_PTR m_timer;
};

class MainWindowMenu : public MainWindowTest {
 protected:
  frmhlavni& OpenWithResult(const wchar_t* search = L"*e*") {
    frmhlavni& window = Open();
    EXPECT_TRUE(test::ShowActive(window));
    window.txtMPSC[0].SetText(search);
    window.VyhledejSeznam();
    return window;
  }

  /// A click on a list: the pointer is there, the messages come as from the real button.
  static SeenMenu Click(forms::ListBox& list, bool right, std::vector<WORD> keys) {
    MenuWatcher watcher(std::move(keys));
    test::PointAt(test::OnScreen(list.Handle(), 30, 12));
    const LPARAM place = MAKELPARAM(30, 12);
    SendMessageW(list.Handle(), right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? MK_RBUTTON : MK_LBUTTON, place);
    SendMessageW(list.Handle(), right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, place);
    return watcher.seen;
  }
  SeenMenu RightClick(std::vector<WORD> keys) { return Click(m_window->lstMPSC[kListResult], true, std::move(keys)); }

  /// Chooses the row that so many steps down lead to.
  SeenMenu Choose(int steps) {
    std::vector<WORD> keys(static_cast<std::size_t>(steps), VK_DOWN);
    keys.push_back(VK_RETURN);
    return RightClick(keys);
  }

  const std::wstring kListOfTwo =
      L"Název obsahuje \"e\".\r\n\r\nPSČ ; POŠTA ; OBEC ; OKRES\r\n"
      L"\r\n691 44 ; Lednice na Moravě ; Lednice ; Břeclav"
      L"\r\n691 42 ; Valtice ; Valtice ; Břeclav"
      L"\r\n\r\n\r\npondělí, 16.listopad 2026 00:50\r\n\r\n\r\nKvez, © Hora";
};

TEST_F(MainWindowMenu, HasEightRows) {
  OpenWithResult();
  const SeenMenu menu = RightClick({VK_ESCAPE});
  EXPECT_THAT(menu.rows, ElementsAre(L"1 Tisk", L"2 Export", L"3 -", L"4 Uložit do schránky", L"5 Poslat e-mailem",
                                     L"6 -", L"7 (Adresář)", L"8 (Základní školy)"));
}

TEST_F(MainWindowMenu, OpensAtThePointer) {
  frmhlavni& window = OpenWithResult();
  const SeenMenu menu = RightClick({VK_ESCAPE});
  const POINT pointer = test::OnScreen(window.lstMPSC[kListResult].Handle(), 30, 12);
  EXPECT_EQ(menu.times, 1);
  EXPECT_EQ(menu.bounds.left, pointer.x);
  EXPECT_EQ(menu.bounds.top, pointer.y);
}

TEST_F(MainWindowMenu, IsBuiltOnceAndDestroyedAtTheEnd) {
  frmhlavni& window = OpenWithResult();
  const HMENU first = RightClick({VK_ESCAPE}).menu;
  EXPECT_EQ(RightClick({VK_ESCAPE}).menu, first);
  m_machine.messages.answers = {true};
  window.Unload();
  EXPECT_FALSE(IsMenu(first));
}

TEST_F(MainWindowMenu, RunsNothingWhenItIsDismissed) {
  OpenWithResult();
  EXPECT_EQ(RightClick({VK_ESCAPE}).times, 1);
  EXPECT_THAT(m_machine.messages.questions, IsEmpty());
}

TEST_F(MainWindowMenu, GreyRowsCannotBeChosen) {
  OpenWithResult();
  // The one above the first row is the last row.
  EXPECT_EQ(RightClick({VK_UP, VK_RETURN, VK_ESCAPE}).times, 1);
  EXPECT_EQ(RightClick({VK_UP, VK_UP, VK_RETURN, VK_ESCAPE}).times, 1);
  EXPECT_THAT(m_machine.messages.questions, IsEmpty());
}

TEST_F(MainWindowMenu, TheLeftButtonOpensNothing) {
  frmhlavni& window = OpenWithResult();
  EXPECT_EQ(Click(window.lstMPSC[kListResult], false, {VK_ESCAPE}).times, 0);
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
}

TEST_F(MainWindowMenu, TheOtherListsHaveNone) {
  frmhlavni& window = OpenWithResult();
  EXPECT_EQ(Click(window.lstMPSC[kListAll], true, {VK_ESCAPE}).times, 0);
  window.optMPSC[kModeDistrict].SetValue(true);
  EXPECT_EQ(Click(window.lstMPSC[kListDistricts], true, {VK_ESCAPE}).times, 0);
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
}

TEST_F(MainWindowMenu, AnEmptyListSaysSoInstead) {
  frmhlavni& window = OpenWithResult(L"x*");
  const Message empty{L"Seznam je prázdný.", MessageIcon::Information, L"Kvez"};
  EXPECT_EQ(RightClick({VK_ESCAPE}).times, 0);
  EXPECT_THAT(m_machine.messages.messages, ElementsAre(empty));
  EXPECT_EQ(Click(window.lstMPSC[kListResult], false, {VK_ESCAPE}).times, 0);
  EXPECT_THAT(m_machine.messages.messages, ElementsAre(empty, empty)) << "whatever the button";
  SendMessageW(window.lstMPSC[kListResult].Handle(), WM_CONTEXTMENU, 0, -1);
  EXPECT_THAT(m_machine.messages.messages, ElementsAre(empty, empty, empty)) << "by the keyboard too";
}

TEST_F(MainWindowMenu, AsksBeforeEachCommandAndDoesNothingOnNo) {
  OpenWithResult();
  for (int steps = 1; steps <= 4; ++steps) Choose(steps);
  EXPECT_THAT(m_machine.messages.questions,
              ElementsAre(Question{L"Přejete si seznam vybraných obcí vytisknout ?", L"Kvez"},
                          Question{L"Přejete si seznam vybraných obcí exportovat do souboru ?", L"Kvez"},
                          Question{L"Přejete si seznam vybraných obcí vložit do schránky ?", L"Kvez"},
                          Question{L"Přejete si seznam vybraných obcí zaslat e-mailem ?", L"Kvez"}));
  EXPECT_EQ(m_machine.output.printer.uses, 0);
  EXPECT_THAT(m_machine.output.textFiles.texts, IsEmpty());
  EXPECT_THAT(m_machine.output.clipboard.texts, IsEmpty());
  EXPECT_THAT(m_machine.output.mail.sent, IsEmpty());
}

TEST_F(MainWindowMenu, ExportsTheListUnderItsHeading) {
  OpenWithResult();
  m_machine.messages.answers = {true};
  m_machine.output.folders.answers = {L"C:\\Data"};
  Choose(2);
  EXPECT_EQ(m_machine.output.textFiles.texts[L"C:\\Data\\vdkvez.txt"], kListOfTwo);
}

TEST_F(MainWindowMenu, CopiesTheListUnderItsHeading) {
  OpenWithResult();
  m_machine.messages.answers = {true};
  Choose(3);
  EXPECT_THAT(m_machine.output.clipboard.texts, ElementsAre(kListOfTwo));
}

TEST_F(MainWindowMenu, MailsTheListUnderItsHeading) {
  OpenWithResult();
  m_machine.messages.answers = {true};
  Choose(4);
  EXPECT_EQ(m_machine.output.textFiles.texts[L"C:\\Kvez\\meil.txt"], kListOfTwo);
  ASSERT_EQ(m_machine.output.mail.sent.size(), 1U);
  EXPECT_EQ(m_machine.output.mail.sent[0].displayNames, L"Název obsahuje \"e\".");
}

TEST_F(MainWindowMenu, ShowsThePanelWhileItPrints) {
  frmhlavni& window = OpenWithResult();
  bool isShown = false;
  std::wstring message;
  std::int16_t pointer = 0;
  m_machine.output.pendingMessages.onProcess = [&] {
    isShown = window.picMPSCPI.Visible();
    message = window.lblZpravaI.Caption();
    pointer = forms::Screen::MousePointer();
  };
  m_machine.messages.answers = {true};
  Choose(1);
  EXPECT_TRUE(isShown);
  EXPECT_EQ(message, L"Strpení prosím, připravuji tisk.");
  EXPECT_EQ(pointer, forms::kPointerHourglass);
  EXPECT_FALSE(window.picMPSCPI.Visible());
  EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerDefault);
  EXPECT_EQ(m_machine.output.printer.documents, 1);
  EXPECT_EQ(m_machine.output.printer.TextsAt(1, 0), (std::vector<std::wstring>{L"Název obsahuje \"e\"."}));
}

TEST_F(MainWindowMenu, HidesThePanelAfterAPrinterThatFails) {
  frmhlavni& window = OpenWithResult();
  m_machine.output.printer.failsAtUse = 20;
  m_machine.messages.answers = {true};
  Choose(1);
  EXPECT_FALSE(window.picMPSCPI.Visible());
  EXPECT_EQ(forms::Screen::MousePointer(), forms::kPointerDefault);
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
  EXPECT_EQ(m_machine.output.printer.discarded, 1);
}

class MainWindowHandOut : public MainWindowMenu {
 protected:
  static void ClickOn(const forms::Control& control) {
    test::PointAt(test::CenterOf(control.Handle()));
    test::PressButton();
    test::ReleaseButton();
  }
  /// In the light-blue field "691", which is searched for, and "42" behind it, whose search is still to come.
  frmhlavni& OpenWithADeferredSearch() {
    SetSetting(2, L"1");
    frmhlavni& window = OpenInFront();
    window.tmrMPSC.SetInterval(1);
    ClickOn(window.optMPSC[kModePostal]);
    ClickOn(window.txtMPSC[1]);
    TypeText(L"691");
    EXPECT_TRUE(test::PumpUntil([&] { return window.lstMPSC[kListResult].ListCount() == 2; }));
    window.tmrMPSC.SetInterval(600'000);
    TypeText(L"42");
    return window;
  }
};

TEST_F(MainWindowHandOut, TheListThatWasChosenIsTheOneThatLeaves) {
  frmhlavni& window = OpenWithADeferredSearch();
  m_machine.messages.answers = {true};
  m_machine.output.folders.answers = {L"C:\\Data"};
  m_machine.messages.onAsk = [&] {
    window.tmrMPSC.SetInterval(1);
    int ticks = 0;
    const test::MessageWatch watch(window.Handle(), WM_TIMER, [&] { ++ticks; });
    EXPECT_TRUE(test::PumpUntil([&] { return ticks > 2; }));
  };
  Choose(2);
  m_machine.messages.onAsk = nullptr;
  EXPECT_EQ(m_machine.output.textFiles.texts[L"C:\\Data\\vdkvez.txt"],
            L"Obce s PSČ začínající na  \"691\"." + kListOfTwo.substr(kListOfTwo.find(L'\r')));
  // Then the search has its turn.
  EXPECT_TRUE(test::PumpUntil([&] { return window.lstMPSC[kListResult].ListCount() == 1; }));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Obce s PSČ začínající na  \"69142\".");
}

TEST_F(MainWindowHandOut, ClosingThatWasTypedAheadWaitsForThePrint) {
  frmhlavni& window = OpenWithResult();
  m_machine.output.pendingMessages.onProcess = [] { PressKey(VK_F4, false, false, true); };
  m_machine.messages.answers = {true, true};
  Choose(1);
  EXPECT_EQ(m_machine.output.printer.documents, 1);
  EXPECT_FALSE(m_machine.output.printer.TextsAt(1, 0).empty());
  EXPECT_TRUE(test::PumpUntil([&] { return !window.IsOpen(); }));
  ASSERT_EQ(m_machine.messages.questions.size(), 2U);
  EXPECT_EQ(m_machine.messages.questions[1], (Question{L"Přejete si program ukončit ?", L"Kvez"}));
}

TEST_F(MainWindowHandOut, SaysThatItPrintsAndIsPaintedMeanwhile) {
  frmhlavni& window = OpenWithResult();
  const test::StatusBarView status(window.Handle());
  bool paintedWhilePrinting = false;
  const test::MessageWatch watch(window.lstMPSC[kListAll].Handle(), WM_PAINT, [&] {
    paintedWhilePrinting = paintedWhilePrinting || m_machine.output.printer.HasOpenDocument();
  });
  m_machine.output.pendingMessages.onProcess = [&] {
    EXPECT_EQ(status.Text(), L"Tiskne se seznam vybraných obcí. Tisk ukončí klávesa Esc.");
    EXPECT_TRUE(status.ShowsIcon(L"SEZNAM"));
    InvalidateRect(window.lstMPSC[kListAll].Handle(), nullptr, TRUE);
  };
  m_machine.messages.answers = {true};
  Choose(1);
  EXPECT_TRUE(paintedWhilePrinting);
  EXPECT_EQ(m_machine.output.printer.documents, 1);
  EXPECT_EQ(status.Text(), L"Vyhledá obce odpovídající zadanému textu.");
  EXPECT_TRUE(status.ShowsIcon(L"APLIKACE"));
}

TEST_F(MainWindowHandOut, EscapeEndsThePrintAndNothingElse) {
  frmhlavni& window = OpenWithResult();
  m_machine.output.pendingMessages.onProcess = [&] {
    test::TypeText(L"x");
    test::PressKey(VK_ESCAPE);
    // It has arrived, and nobody has taken it yet.
    EXPECT_TRUE(test::WaitUntil([] { return (HIWORD(GetQueueStatus(QS_KEY)) & QS_KEY) != 0; }));
  };
  m_machine.messages.answers = {true};
  Choose(1);
  EXPECT_EQ(m_machine.output.printer.documents, 0);
  EXPECT_EQ(m_machine.output.printer.discarded, 1);
  EXPECT_FALSE(window.picMPSCPI.Visible());
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
  EXPECT_EQ(test::StatusBarView(window.Handle()).Text(), L"Tisk byl ukončen.");
  EXPECT_EQ(window.txtMPSC[0].Text(), L"*e*");
  m_machine.output.pendingMessages.onProcess = nullptr;
  m_machine.messages.answers = {true};
  Choose(1);
  EXPECT_EQ(m_machine.output.printer.documents, 1) << "the next one comes out";
}

// The print has messages handled before it begins, and the one may be among them.
TEST_F(MainWindowHandOut, EscapeThatComesBeforeTheFirstRowEndsThePrint) {
  OpenWithResult();
  m_machine.output.pendingMessages.onProcess = [] { PressKey(VK_ESCAPE); };
  m_machine.messages.answers = {true};
  Choose(1);
  EXPECT_EQ(m_machine.output.printer.documents, 0);
  EXPECT_EQ(test::StatusBarView(m_window->Handle()).Text(), L"Tisk byl ukončen.");
}

TEST_F(MainWindowHandOut, AnEndOfTheSessionLeavesNoHalfPrintAndNoMessage) {
  frmhlavni& window = OpenWithResult();
  m_machine.output.pendingMessages.onProcess = [&] { SendMessageW(window.Handle(), WM_ENDSESSION, TRUE, 0); };
  m_machine.messages.answers = {true};
  Choose(1);
  EXPECT_FALSE(window.IsOpen());
  EXPECT_EQ(m_machine.output.printer.documents, 0);
  EXPECT_FALSE(m_machine.output.printer.HasOpenDocument());
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
}

TEST_F(MainWindowHandOut, AnEndOfTheSessionAfterAnExportSaysNothingMore) {
  frmhlavni& window = OpenWithResult();
  m_machine.output.pendingMessages.onProcess = [&] { SendMessageW(window.Handle(), WM_ENDSESSION, TRUE, 0); };
  m_machine.messages.answers = {true};
  m_machine.output.folders.answers = {L"C:\\Data"};
  Choose(2);
  EXPECT_FALSE(window.IsOpen());
  EXPECT_EQ(m_machine.output.textFiles.texts[L"C:\\Data\\vdkvez.txt"], kListOfTwo);
  EXPECT_THAT(m_machine.messages.messages, IsEmpty());
}

TEST_F(MainWindowHandOut, TheSessionEndsOverTheQuestionOfACommand) {
  frmhlavni& window = OpenWithResult();
  m_machine.messages.onAsk = [&] { SendMessageW(window.Handle(), WM_ENDSESSION, TRUE, 0); };
  m_machine.messages.answers = {true};
  Choose(4);
  EXPECT_FALSE(window.IsOpen());
  EXPECT_THAT(m_machine.output.mail.sent, IsEmpty());
}

TEST_F(MainWindowHandOut, ObcePscListsTheSelectedRowAfterEveryWayOut) {
  for (int way = 1; way <= 4; ++way) {
    if (way > 1) TearDown();
    frmhlavni& window = OpenWithResult();
    window.lstMPSC[kListResult].SetFocus();
    PressKey(VK_HOME);
    PressKey(VK_DOWN);
    PressKey(VK_UP);
    ASSERT_EQ(window.lblNPSCHT[0].Caption(), L"Lednice");
    m_machine.messages.answers = {true};
    m_machine.output.folders.answers = {L"C:\\Data"};
    Choose(way);
    ASSERT_TRUE(window.tlHObcePSC.Visible());
    PressKey('B', false, false, true);
    EXPECT_EQ(Rows(window.lstMPSC[kListResult]), std::vector<std::wstring>{L"Lednice"}) << "way " << way;
    EXPECT_EQ(window.lblMPSCN.Caption(), L"Hledané obce s PSČ \"691 44\".") << "way " << way;
  }
}

TEST_F(MainWindowHandOut, PrintedTwiceItSaysTheSame) {
  OpenWithResult();
  m_machine.messages.answers = {true, true};
  Choose(1);
  Choose(1);
  ASSERT_EQ(m_machine.output.printer.documents, 2);
  int sentences = 0;
  for (const auto& text : m_machine.output.printer.texts) sentences += text.text == L"Zadání vyhovují 2 obce.";
  EXPECT_EQ(sentences, 2);
}

class MainWindowMenuKeys : public MainWindowMenu {
 protected:
  // The second way in, by a real key.
  SeenMenu PressInList(const std::function<void()>& press) {
    m_window->lstMPSC[kListResult].SetFocus();
    MenuWatcher watcher({VK_ESCAPE});
    press();
    EXPECT_TRUE(test::PumpUntil([&] { return watcher.seen.times > 0; }));
    return watcher.seen;
  }
};

TEST_F(MainWindowMenuKeys, OpenItUnderTheSelectedRow) {
  frmhlavni& window = OpenWithResult();
  forms::ListBox& list = window.lstMPSC[kListResult];
  list.SetListIndex(1);
  RECT row{};
  SendMessageW(list.Handle(), LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
  const POINT expected = test::OnScreen(list.Handle(), 0, row.bottom);
  const SeenMenu byMenuKey = PressInList([] { test::PressKey(VK_APPS); });
  EXPECT_EQ(byMenuKey.bounds.left, expected.x);
  EXPECT_EQ(byMenuKey.bounds.top, expected.y);
  const SeenMenu byShiftF10 = PressInList([] { test::PressKey(VK_F10, false, true); });
  EXPECT_EQ(byShiftF10.bounds.left, expected.x);
  EXPECT_EQ(byShiftF10.bounds.top, expected.y);
}

TEST_F(MainWindowMenuKeys, OpenItAtTheListsEdgeWithoutASelection) {
  frmhlavni& window = OpenWithResult();
  const POINT expected = test::OnScreen(window.lstMPSC[kListResult].Handle(), 0, 0);
  const SeenMenu menu = PressInList([] { test::PressKey(VK_APPS); });
  EXPECT_EQ(menu.bounds.left, expected.x);
  EXPECT_EQ(menu.bounds.top, expected.y);
}

TEST(ListMenu, AsksNothingForNumbersThatAreNoCommands) {
  for (const unsigned number : {0U, 3U, 6U, 7U, 8U, 9U}) EXPECT_EQ(ListQuestion(number), L"");
}

}  // namespace
}  // namespace kvez
