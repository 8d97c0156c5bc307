// What the main window shows when memory runs out, and of records that nobody expected.

#include <new>

#include "forms/guard.h"
#include "tests/windows/main_window_test.h"

namespace kvez {
namespace {

using Strings = std::vector<std::wstring>;

class MainWindowMemory : public MainWindowTest {
 protected:
  MainWindowMemory() {
    forms::SetGuard(
        {.title = L"Kvez", .show = [this](const std::wstring& text, const std::wstring&) { errors.push_back(text); }});
  }
  ~MainWindowMemory() override { forms::SetGuard({}); }

  /// From now on everything that formats a number runs out of memory.
  void RunOutOfMemory() {
    m_machine.formats.onNumber = [] { throw std::bad_alloc(); };
  }
  void FindMemory() { m_machine.formats.onNumber = {}; }

  void Search(SearchMode mode, const std::wstring& text) {
    m_window->optMPSC[mode].SetValue(true);
    m_window->txtMPSC[0].SetText(text);
    m_window->VyhledejSeznam();
  }

  void ExpectNoRows() {
    for (const forms::ListBox& list : m_window->lstMPSC) {
      EXPECT_EQ(Rows(list), Strings());
      EXPECT_EQ(SendMessageW(list.Handle(), LB_GETHORIZONTALEXTENT, 0, 0), 0);
    }
    EXPECT_FALSE(m_window->picMPSCPI.Visible());
    EXPECT_FALSE(m_window->optMPSC[kModeDistrict].Visible());
    EXPECT_EQ(m_database.pscCelkem(), 0);
    EXPECT_EQ(m_database.pscoCelkem(), 0);
    EXPECT_EQ(m_database.pCelkem(), 0);
  }

  Strings errors;
};

TEST_F(MainWindowMemory, ListsThatCannotBeFilledAreEmptyOnTheScreenToo) {
  frmhlavni& window = Open();
  const Strings all = Rows(window.lstMPSC[kListAll]);
  Search(kModeName, L"*a*");
  ASSERT_NE(Rows(window.lstMPSC[kListResult]), Strings());
  window.picMPSCPI.SetVisible(true);
  RunOutOfMemory();
  window.NactiDatabazi();
  ExpectNoRows();
  EXPECT_EQ(errors, Strings{L"Nedostatek paměti."});

  FindMemory();
  window.NactiDatabazi();
  EXPECT_EQ(Rows(window.lstMPSC[kListAll]), all);
  EXPECT_TRUE(window.optMPSC[kModeDistrict].Visible());
  EXPECT_EQ(errors.size(), 1U);
}

TEST_F(MainWindowMemory, StartThatRunsOutOfMemoryLeavesAWindowThatCanBeUsed) {
  RunOutOfMemory();
  frmhlavni& window = Open();
  ExpectNoRows();
  EXPECT_EQ(errors, Strings{L"Nedostatek paměti."});
  EXPECT_TRUE(window.optMPSC[kModeName].Value());
  FindMemory();
  window.NactiDatabazi();
  Search(kModeName, L"Lednice");
  EXPECT_EQ(Rows(window.lstMPSC[kListResult]), Strings{L"Lednice"});
}

TEST_F(MainWindowMemory, FileThatIsReadWithoutMemoryCountsAsDamaged) {
  m_machine.files.onRead = [](const std::wstring&) { throw std::bad_alloc(); };
  frmhlavni& window = Open();
  ASSERT_EQ(m_machine.messages.messages.size(), 3U);
  EXPECT_EQ(m_machine.messages.messages[0].text, L"Soubor se seznamem PSČ je poškozen nebo neexistuje !");
  for (const forms::ListBox& list : window.lstMPSC) EXPECT_EQ(Rows(list), Strings());
  EXPECT_FALSE(window.picMPSCPI.Visible());
  EXPECT_EQ(errors, Strings());
}

TEST_F(MainWindowMemory, SearchThatRunsOutOfMemorySaysSoAndShowsNothing) {
  frmhlavni& window = Open();
  Search(kModePostal, L"692 01");
  ASSERT_EQ(Rows(window.lstMPSC[kListResult]), (Strings{L"Bavory", L"Mikulov"}));
  RunOutOfMemory();
  Search(kModePostal, L"691 44");
  EXPECT_EQ(Rows(window.lstMPSC[kListResult]), Strings());
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Nedostatek paměti.");
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"Seznam je prázdný.");
  EXPECT_EQ(errors, Strings());
}

TEST_F(MainWindowMemory, CommonCodeIsSearchedByItsNumber) {
  fakes::Bytes municipalities;
  fakes::AppendMunicipality(municipalities, 12356, L"Jinde", L"x");
  fakes::AppendMunicipality(municipalities, 123456, L"Tady", L"x");
  fakes::AppendMunicipality(municipalities, 123456, L"Také tady", L"x");
  m_machine.disk.files[kFolder + L"\\vd1.kl_"] = municipalities;
  frmhlavni& window = Open();
  Search(kModeName, L"Tady");
  window.lstMPSC[kListResult].SetListIndex(0);
  window.tlHObcePSC.Click();
  EXPECT_EQ(Rows(window.lstMPSC[kListResult]), (Strings{L"Tady", L"Také tady"}));
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Hledané obce s PSČ \"1234 56\".");
}

TEST_F(MainWindowMemory, ControlCharactersInNamesAreBlanks) {
  fakes::Bytes municipalities;
  fakes::AppendMunicipality(municipalities, 1, std::wstring(L"A\0B\tC\nD", 7), L"x\ty");
  m_machine.disk.files[kFolder + L"\\vd1.kl_"] = municipalities;
  frmhlavni& window = Open();
  EXPECT_EQ(Rows(window.lstMPSC[kListAll]), Strings{L"A B C D"});
  window.lstMPSC[kListAll].SetListIndex(0);
  EXPECT_EQ(window.lblNPSCHT[1].Caption(), L"x y");
}

}  // namespace
}  // namespace kvez
