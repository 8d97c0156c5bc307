// What the status bar offers after a search.

#include "tests/windows/main_window_test.h"
#include "tests/windows/status_bar_view.h"

namespace kvez {
namespace {

using Strings = std::vector<std::wstring>;

class SearchOffers : public MainWindowTest {
 protected:
  void Search(const std::wstring& text) {
    m_window->txtMPSC[0].SetFocus();
    m_window->txtMPSC[0].SelectAll();
    TypeText(text);
    PressKey(VK_RETURN);
  }
  test::StatusBarView Status() const { return test::StatusBarView(m_window->Handle()); }
};

TEST_F(SearchOffers, NameThatNobodyHas) {
  const frmhlavni& window = OpenInFront();
  Search(L"Břeclav-Lednice");
  EXPECT_EQ(Status().Text(), L"Nic nenalezeno. Zkuste Lednice (1 obec).");
  EXPECT_TRUE(Status().ShowsIcon(L"NAJDI"));
  EXPECT_EQ(Rows(window.lstMPSC[1]), Strings{});
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"Seznam je prázdný.");
  Search(L"Stare mesto");
  EXPECT_EQ(Status().Text(), L"Nic nenalezeno. Zkuste Staré Město* (1 obec).");
  Search(L"Lednice na Moravě");
  EXPECT_EQ(Status().Text(), L"Pošta Lednice na Moravě má PSČ 691 44.");
}

TEST_F(SearchOffers, PostalCodeOfFewerThanFiveDigits) {
  const frmhlavni& window = OpenInFront();
  PressKey('P', true);
  Search(L"691");
  EXPECT_EQ(Status().Text(), L"PSČ má pět číslic. Podle jeho začátku hledá světlemodré pole.");
  EXPECT_EQ(window.lblMPSCN.Caption(), L"Hledané obce s PSČ \"006 91\".");
  Search(L"691 44");
  EXPECT_EQ(Status().Text(), L"Vyhledá obce se společným PSČ.");
  EXPECT_TRUE(Status().ShowsIcon(L"APLIKACE"));
}

TEST_F(SearchOffers, NextCommandTakesTheOfferAway) {
  frmhlavni& window = OpenInFront();
  const std::wstring offer = L"Nic nenalezeno. Zkuste Led* (1 obec).";
  const std::wstring hint = L"Vyhledá obce odpovídající zadanému textu.";
  Search(L"Led");
  EXPECT_EQ(Status().Text(), offer);
  Search(L"Nikde");
  EXPECT_EQ(Status().Text(), hint);
  Search(L"Led");
  window.lstMPSC[0].SetFocus();
  PressKey(VK_DOWN);
  EXPECT_EQ(Status().Text(), L"");
  EXPECT_FALSE(Status().HasIcon());
  PressKey('M', true);
  Search(L"Led");
  EXPECT_EQ(Status().Text(), offer);
  PressKey('O', true);
  EXPECT_EQ(Status().Text(), L"Vyhledá obce v zadaném okrese.");
  EXPECT_TRUE(Status().ShowsIcon(L"APLIKACE"));
}

// What else has been said since then is not the offer's to take away.
TEST_F(SearchOffers, AnotherTextStays) {
  frmhlavni& window = OpenInFront();
  Search(L"Led");
  window.tlHNapoveda.MouseMoveEnabled(true);
  Search(L"Nikde");
  EXPECT_EQ(Status().Text(), L"Nápověda na ovládání programu.");
}

// The five seconds of an earlier message end while the offer stands there.
TEST_F(SearchOffers, OfferOutlastsTheTimerOfAnEarlierText) {
  frmhlavni& window = OpenInFront();
  m_commands.downloader.results[L"vd1.kl_"] = -1;
  window.tlHAktualizace.Click();
  EXPECT_EQ(Status().Text(), L"Byla zachována původní databáze.");
  Search(L"Led");
  LetMessageTimeEnd();
  EXPECT_EQ(Status().Text(), L"Nic nenalezeno. Zkuste Led* (1 obec).");
}

}  // namespace
}  // namespace kvez
