// A printing run of the database: what it prints, what it reports, what it leaves behind when the printer fails.
#include <gmock/gmock.h>

#include <memory>

#include "tests/core/loaded_database.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Texts = std::vector<std::wstring>;

constexpr PrinterSettings kForTheRun{kPortrait, kPaperA4, PrinterScale::Millimetres};
const PrinterSettings kBefore{2, 1, PrinterScale::Twips};  // the fake printer's own

// `found` municipalities that begin with Ž, and one behind them that does not.
std::unique_ptr<LoadedDatabase> Found(int found) {
  std::vector<LoadedDatabase::Municipality> municipalities;
  for (int i = 1; i <= found; ++i) municipalities.push_back({1000, L"Ž" + std::to_wstring(i), L"Mělník"});
  municipalities.push_back({11000, L"Praha 1", L"Praha"});
  auto loaded = std::make_unique<LoadedDatabase>(
      municipalities, std::vector<LoadedDatabase::Named>{{1000, L"Horní Počaply"}, {11000, L"Praha 1"}},
      std::vector<LoadedDatabase::Named>{{3100, L"Praha"}});
  loaded->database.pscVyberPostu(L"Ž*", loaded->list, loaded->description);
  loaded->window.growing.clear();
  loaded->machine.log.clear();
  return loaded;
}

bool Printed(const fakes::PrinterFake& printer, const std::wstring& text, int page) {
  for (const auto& piece : printer.texts) {
    if (piece.page == page && piece.text == text) return true;
  }
  return false;
}

TEST(Printing, PrintsTheResultUnderItsHeading) {
  const auto loaded = Found(2);
  const auto& printer = loaded->machine.output.printer;
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_EQ(printer.TextsAt(1, 0), (Texts{L"Nadpis"}));
  EXPECT_EQ(printer.TextsAt(1, 12 * 0.42 + 5), (Texts{L"Zadání vyhovují 2 obce."}));
  EXPECT_EQ(printer.TextsAt(1, 28.2), (Texts{L"010 00", L"Horní Počaply", L"Ž1", L"Mělník"}));
  EXPECT_EQ(printer.TextsAt(1, 28.2 + 4.2), (Texts{L"010 00", L"Horní Počaply", L"Ž2", L"Mělník"}));
  EXPECT_EQ(printer.TextsAt(1, 280 - 4.2), (Texts{L"Strana 1 z 1"}));
  EXPECT_EQ(printer.TextsAt(1, 280), (Texts{L"Kvez, © Hora", L"pondělí, 16.listopad 2026 v 0:50"}));
  EXPECT_EQ(printer.documents, 1);
  EXPECT_EQ(printer.pages, 1);
}

TEST(Printing, SetsPortraitA4MillimetresAndPutsBackWhatWasThere) {
  const auto loaded = Found(1);
  auto& printer = loaded->machine.output.printer;
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_THAT(printer.changes, ElementsAre(kForTheRun, kBefore));
  EXPECT_THAT(loaded->machine.log, ElementsAre(L"printer reset", L"pending messages", L"printer settings",
                                               L"printer end", L"printer settings"));
}

TEST(Printing, NumbersThePages) {
  const auto loaded = Found(58);
  const auto& printer = loaded->machine.output.printer;
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_TRUE(Printed(printer, L"Strana 1 z 2", 1));
  EXPECT_TRUE(Printed(printer, L"Strana 2 z 2", 2));
  EXPECT_EQ(printer.TextsAt(2, 28.2), (Texts{L"010 00", L"Horní Počaply", L"Ž58", L"Mělník"}));
  EXPECT_THAT(printer.TextsAt(2, 28.2 + 4.2), IsEmpty());
}

TEST(Printing, SaysNoPageCountWhenTheRowsFillThePagesExactly) {
  const auto loaded = Found(114);
  const auto& printer = loaded->machine.output.printer;
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_EQ(printer.pages, 2);
  EXPECT_TRUE(Printed(printer, L"Strana 1 z ", 1));
  EXPECT_TRUE(Printed(printer, L"Strana 2 z ", 2));
}

TEST(Printing, ReportsTheFractionAfterEachRow) {
  const auto loaded = Found(3);
  loaded->database.pTisk(L"Nadpis", loaded->window);
  const float step = 1.0F / 3.0F;
  EXPECT_THAT(loaded->window.growing, ElementsAre(1 * step, 2 * step, 3 * step));
  EXPECT_THAT(loaded->window.shrinking, IsEmpty());
}

TEST(Printing, TakesTheCountSentenceOnceAndLeavesTheCursorsOnTheLastRow) {
  const auto loaded = Found(58);
  const auto& printer = loaded->machine.output.printer;
  loaded->database.pDetail(2);
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_TRUE(Printed(printer, L"2. záznam z 58", 1));
  EXPECT_TRUE(Printed(printer, L"2. záznam z 58", 2));
  EXPECT_EQ(loaded->database.pVybran(), L"58. záznam z 58");
  EXPECT_EQ(loaded->database.pscPozice(), 58);
  EXPECT_EQ(loaded->database.pscObec(), L"Ž58");
}

TEST(Printing, PrintsNothingForAnEmptyResult) {
  const auto loaded = Found(0);
  auto& printer = loaded->machine.output.printer;
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_THAT(printer.texts, IsEmpty());
  EXPECT_EQ(printer.documents, 0);
  EXPECT_EQ(printer.settings, kBefore);
}

// Fails at each use of the printer in turn, once only that use, once that and all later ones.
TEST(Printing, LeavesNothingBehindWhereverThePrinterFails) {
  const auto whole = Found(58);
  whole->database.pTisk(L"Nadpis", whole->window);
  const int uses = whole->machine.output.printer.uses;
  ASSERT_GT(uses, 250);
  for (int use = 1; use <= uses; ++use) {
    for (const bool forGood : {false, true}) {
      const auto loaded = Found(58);
      auto& printer = loaded->machine.output.printer;
      (forGood ? printer.failsAtUse : printer.failsOnlyAtUse) = use;
      loaded->database.pTisk(L"Nadpis", loaded->window);
      EXPECT_THAT(loaded->machine.messages.messages, IsEmpty());
      EXPECT_FALSE(printer.HasOpenDocument()) << "failed at use " << use;
      // Only the putting back comes after the document is sent.
      EXPECT_EQ(printer.documents, use == uses ? 1 : 0) << "failed at use " << use;
      if (!forGood && use < uses) {
        EXPECT_EQ(printer.settings, kBefore) << "failed at use " << use;
      }
    }
  }
}

TEST(Printing, StopsWithoutAPrinter) {
  const auto loaded = Found(2);
  auto& printer = loaded->machine.output.printer;
  printer.failsAtUse = 1;
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_EQ(printer.uses, 1);
  EXPECT_THAT(printer.texts, IsEmpty());
  EXPECT_THAT(loaded->window.growing, IsEmpty());
}

TEST(Printing, AbandonsTheDocumentWhenTheWindowFails) {
  const auto loaded = Found(2);
  loaded->window.onProgress = [] { throw 1; };
  loaded->database.pTisk(L"Nadpis", loaded->window);
  EXPECT_EQ(loaded->machine.output.printer.discarded, 1);
  EXPECT_EQ(loaded->machine.output.printer.documents, 0);
  EXPECT_EQ(loaded->machine.output.printer.settings, kBefore);
}

}  // namespace
}  // namespace kvez
