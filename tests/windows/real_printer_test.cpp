// The default printer, which is here the tests' own print queue.
#include <gmock/gmock.h>

#include "platform/windows/windows_printer.h"
#include "tests/support/handle_count.h"
#include "tests/support/printed_pages.h"

namespace kvez::test {
namespace {

using ::testing::SizeIs;

constexpr PrinterSettings kForTheRun{kPortrait, kPaperA4, PrinterScale::Millimetres};

class RealPrinter : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(m_queue.IsThere()) << "try: tests/support/print-queue start"; }

  void PrintOnce(const std::wstring& text) {
    m_printer.Reset();
    m_printer.ChangeSettings(kForTheRun);
    m_printer.SetFontSize(10);
    m_printer.Print(10, 20, text);
  }

  PrintQueue m_queue;
  WindowsPrinter m_printer{L"Zkouška"};
};

TEST_F(RealPrinter, PrintsWhereItIsTold) {
  PrintOnce(L"Žďár nad Sázavou");
  m_printer.SetFontSize(6);
  m_printer.SetBold(true);
  m_printer.Print(0, 280, L"dole");
  m_printer.NewPage();
  m_printer.Line(0, 0, 190, 0);
  m_printer.Print(100, 0, L"druhá");
  m_printer.EndDocument();
  const PrintedDocument document = m_queue.WaitForDocument();
  EXPECT_EQ(document.title, "Zkou\xc5\xa1ka");
  EXPECT_EQ(document.pages, 2);
  EXPECT_NEAR(document.sheetWidth, 210, 0.2);
  EXPECT_NEAR(document.sheetHeight, 297, 0.2);
  EXPECT_THAT(document.words, SizeIs(5));
  EXPECT_TRUE(document.HasText(1, 10, 20, L"Žďár nad Sázavou", {10, false}));
  EXPECT_TRUE(document.HasText(1, 0, 280, L"dole", {6, true}));
  EXPECT_TRUE(document.HasText(2, 100, 0, L"druhá", {6, true}));
  EXPECT_THAT(document.lines, SizeIs(1));
  EXPECT_TRUE(document.HasLine(2, 0, 0, 190));
}

TEST_F(RealPrinter, MeasuresInTheUnitOfTheSettings) {
  m_printer.ChangeSettings(kForTheRun);
  m_printer.SetFontSize(10);
  const double width = m_printer.TextWidth(L"Praha");
  const double height = m_printer.TextHeight(L"H");
  EXPECT_NEAR(width, PrintedWidth(L"Praha", {10, false}), 0.01);
  EXPECT_NEAR(height, PrintedHeight({10, false}), 0.01);
  m_printer.SetBold(true);
  EXPECT_NEAR(m_printer.TextWidth(L"Praha"), PrintedWidth(L"Praha", {10, true}), 0.01);
  m_printer.SetBold(false);
  m_printer.ChangeSettings({kPortrait, kPaperA4, PrinterScale::Twips});
  EXPECT_NEAR(m_printer.TextWidth(L"Praha"), width / 25.4 * 1440, 0.01);
  EXPECT_NEAR(m_printer.TextHeight(L"H"), height / 25.4 * 1440, 0.01);
}

TEST_F(RealPrinter, KeepsItsSettingsUntilTheyAreChangedAndPutBack) {
  m_printer.ChangeSettings({kPortrait, DMPAPER_LETTER, PrinterScale::Twips});
  const PrinterSettings before = m_printer.Settings();
  EXPECT_EQ(before, (PrinterSettings{kPortrait, DMPAPER_LETTER, PrinterScale::Twips}));
  m_printer.ChangeSettings({2, kPaperA4, PrinterScale::Millimetres});
  EXPECT_EQ(m_printer.Settings(), (PrinterSettings{2, kPaperA4, PrinterScale::Millimetres}));
  m_printer.ChangeSettings(before);
  EXPECT_EQ(m_printer.Settings(), before);
}

TEST_F(RealPrinter, DropsADocumentThatIsReset) {
  PrintOnce(L"nikdy");
  m_printer.NewPage();
  m_printer.Reset();
  PrintOnce(L"jen tohle");
  m_printer.EndDocument();
  EXPECT_TRUE(m_queue.WaitForDocument().HasText(1, 10, 20, L"jen tohle", {10, false}));
  EXPECT_THAT(m_queue.Documents(), SizeIs(1));
}

TEST_F(RealPrinter, LeavesNoObjectsBehind) {
  const auto printAndDrop = [this] {
    PrintOnce(L"nikdy");
    m_printer.SetBold(true);
    m_printer.Print(0, 0, L"nikdy");
    m_printer.Line(0, 0, 1, 1);
    m_printer.NewPage();
    m_printer.Reset();
  };
  for (int round = 0; round < 3; ++round) printAndDrop();
  const auto before = kvez::test::CountHandles();
  for (int round = 0; round < 20; ++round) printAndDrop();
  EXPECT_EQ(kvez::test::CountHandles(), before);
}

TEST_F(RealPrinter, RefusesOtherSettingsInTheMiddleOfADocument) {
  PrintOnce(L"nikdy");
  EXPECT_THROW(m_printer.ChangeSettings(kForTheRun), std::runtime_error);
}

TEST(NoPrinter, RefusesEverythingButReset) {
  WindowsPrinter printer(L"Zkouška");
  printer.Reset();
  EXPECT_THROW(printer.Settings(), std::runtime_error);
  EXPECT_THROW(printer.ChangeSettings(kForTheRun), std::runtime_error);
  EXPECT_THROW(printer.TextWidth(L"x"), std::runtime_error);
  EXPECT_THROW(printer.TextHeight(L"x"), std::runtime_error);
  EXPECT_THROW(printer.Print(0, 0, L"x"), std::runtime_error);
  EXPECT_THROW(printer.Line(0, 0, 1, 1), std::runtime_error);
  EXPECT_THROW(printer.NewPage(), std::runtime_error);
  EXPECT_THROW(printer.EndDocument(), std::runtime_error);
  printer.Reset();
}

}  // namespace
}  // namespace kvez::test
