// The daily work: typed, clicked and hovered by real input.

#include <algorithm>

#include "tests/program/program_test.h"

namespace kvez::test {
namespace {

class Search : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    for (const TableRow& row : ReadTable("obce.csv")) m_municipalities.push_back(row);
  }

  // The names of the rows that `wanted` accepts, in the list's order.
  template <typename Wanted>
  std::vector<std::wstring> Names(Wanted wanted) const {
    std::vector<std::wstring> names;
    for (const TableRow& row : m_municipalities) {
      if (wanted(row)) names.push_back(row[1]);
    }
    return names;
  }

  std::vector<TableRow> m_municipalities;  // psc, obec, okres
};

TEST_F(Search, PrahaWithAWildcardFindsEveryPartOfPraha) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  TypeText(L"Praha*");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return !program.Text(kLblPSCV + 1).empty(); }));
  const auto expected = Names([](const TableRow& row) { return row[1].starts_with(L"Praha"); });
  EXPECT_EQ(program.ListTexts(kLstMPSC + 1), expected);
  EXPECT_EQ(program.Text(kLblMPSCN), L"Název začíná \"Praha\".");
  EXPECT_EQ(program.Text(kLblPSCV + 1), L"Zadání vyhovuje " + std::to_wstring(expected.size()) + L" obcí.");
}

TEST_F(Search, PostalCodeWithABlank) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Click(kOptMPSC);
  ASSERT_TRUE(WaitUntil([&] { return program.IsChecked(kOptMPSC); }));
  program.Focus(kTxtMPSC);
  // The letters are refused, the seventh character as well.
  TypeText(L"6a9.2, 011");
  ASSERT_TRUE(WaitUntil([&] { return program.Text(kTxtMPSC) == L"692 01"; })) << "text is not \"692 01\"";
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return !program.Text(kLblPSCV + 1).empty(); }));
  EXPECT_EQ(program.ListTexts(kLstMPSC + 1), Names([](const TableRow& row) { return row[0] == L"69201"; }));
  EXPECT_EQ(program.Text(kLblMPSCN), L"Hledané obce s PSČ \"692 01\".");
}

TEST_F(Search, DistrictFromItsList) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Click(kOptMPSC + 2);
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kLstMPSC + 2); }));
  EXPECT_TRUE(WaitUntil([&] { return !program.IsEnabled(kTxtMPSC); }));
  program.Click(kLstMPSC + 2);
  ASSERT_TRUE(WaitUntil([&] { return program.ListIndex(kLstMPSC + 2) >= 0; }));
  const std::wstring district = program.ListText(kLstMPSC + 2, program.ListIndex(kLstMPSC + 2));
  program.Click(kTlHVyhledej);
  ASSERT_TRUE(WaitUntil([&] { return !program.Text(kLblPSCV + 1).empty(); }));
  EXPECT_EQ(program.ListTexts(kLstMPSC + 1), Names([&](const TableRow& row) { return row[2] == district; }));
  EXPECT_EQ(program.Text(kLblMPSCN), L"Obce v okrese \"" + district + L"\".");
}

TEST_F(Search, SelectionInTheResultShowsTheMunicipalityAndOffersItsPostalCode) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  TypeText(L"lednice");
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) > 0; }));
  RECT bounds{};
  GetWindowRect(program.Control(kLstMPSC + 1), &bounds);
  ClickAt({bounds.left + 20, bounds.top + 10});
  ASSERT_TRUE(WaitUntil([&] { return program.ListIndex(kLstMPSC + 1) == 0; }));
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kTlHObcePSC); }));
  EXPECT_EQ(program.Text(kLblNPSCHT), L"Lednice");
  EXPECT_FALSE(program.IsEnabled(kTlHVyhledej));
  const std::wstring address = program.Text(kTxtMPSC);
  ASSERT_GT(address.size(), 8U);
  const std::wstring code = address.substr(0, 3) + address.substr(4, 2);
  program.Click(kTlHObcePSC);
  ASSERT_TRUE(WaitUntil([&] { return !program.IsShown(kTlHObcePSC); }));
  EXPECT_EQ(program.ListTexts(kLstMPSC + 1), Names([&](const TableRow& row) { return row[0] == code; }));
}

TEST_F(Search, EntryUnderThePointerIsSelectedWhenTheUserWantsIt) {
  SaveSetting(L"nastavení0", L"1");
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  SetForegroundWindow(program.MainWindow());
  const HWND list = program.Control(kLstMPSC);
  RECT row{};
  for (const int wanted : {2, 5, 3}) {
    SendMessageW(list, LB_GETITEMHEIGHT, 0, 0);
    const auto height = static_cast<LONG>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
    GetWindowRect(list, &row);
    MovePointer({row.left + 30, row.top + 2 + height * wanted + height / 2});
    EXPECT_TRUE(WaitUntil([&] { return program.ListIndex(kLstMPSC) == wanted; })) << "row " << wanted;
  }
}

TEST_F(Search, EntryUnderThePointerIsLeftAloneByDefault) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  SetForegroundWindow(program.MainWindow());
  MovePointer(CentreOf(program.Control(kLstMPSC)));
  // The next input comes after the pointer's: when its effect shows, the pointer's would show as well.
  program.Focus(kTxtMPSC);
  TypeText(L"x");
  ASSERT_TRUE(WaitUntil([&] { return program.Text(kTxtMPSC) == L"x"; }));
  EXPECT_EQ(program.ListIndex(kLstMPSC), -1);
}

TEST_F(Search, LightBlueFieldSelectsByItselfAfterTyping) {
  SaveSetting(L"nastavení2", L"1");
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC + 1);
  EXPECT_TRUE(WaitUntil([&] { return !program.IsShown(kTlHVyhledej); }));
  TypeText(L"led");
  ASSERT_TRUE(WaitUntil([&] { return program.ListIndex(kLstMPSC) >= 0; }));
  const auto first = Names([](const TableRow& row) { return row[1].starts_with(L"Led"); });
  ASSERT_FALSE(first.empty());
  EXPECT_EQ(program.ListText(kLstMPSC, program.ListIndex(kLstMPSC)), first.front());
}

TEST_F(Search, ShiftHandsTheFocusOverBetweenTheFields) {
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitUntil([&] { return !program.IsShown(kTlHVyhledej); }));
  TypeText(L"a");
  EXPECT_TRUE(WaitUntil([&] { return program.Text(kTxtMPSC + 1) == L"a"; }));
  PressKey(VK_SHIFT);
  ASSERT_TRUE(WaitUntil([&] { return program.IsShown(kTlHVyhledej); }));
  TypeText(L"b");
  EXPECT_TRUE(WaitUntil([&] { return program.Text(kTxtMPSC) == L"b"; }));
}

}  // namespace
}  // namespace kvez::test
