// The printed pages, measured with the fake printer's ruler: text of N points is N * 0.42 mm high, each of its
// characters N / 4 mm wide. 10-point text is 4.2 mm high, so that 57 rows go on a page.
#include "output/page_layout.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <limits>

#include "tests/core/output_fakes.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;
using Texts = std::vector<std::wstring>;

struct PrintingRun {
  explicit PrintingRun(std::int32_t rows) {
    list.heading = L"Obce";             // 12 mm at 12 points
    list.countSentence = L"Sto obcí.";  // 18 mm at 8 points
    list.titleLine = L"Kvez, © Hora";
    list.rows = rows;
    list.row = [this](std::int32_t position) {
      const std::wstring number = std::to_wstring(position);
      row = {L"c" + number, L"p" + number, L"m" + number, L"d" + number};
      return ResultRow{row[0], row[1], row[2], row[3]};
    };
    list.rowIsPrinted = [this](std::int32_t position) { printed.push_back(position); };
    list.pageNumber = [](std::int32_t page, std::int32_t count) {
      return std::to_wstring(page) + L"/" + std::to_wstring(count);  // 6 mm at 8 points
    };
    list.moment = [] { return std::wstring(L"v 8:05"); };  // 9 mm at 6 points
  }

  void Print() { PrintPages(printer, list); }

  const fakes::PrinterFake::Text& Find(const std::wstring& text, int page = 1) const {
    for (const auto& piece : printer.texts) {
      if (piece.page == page && piece.text == text) return piece;
    }
    static const fakes::PrinterFake::Text none{};
    ADD_FAILURE() << "a text was not printed";
    return none;
  }

  std::vector<std::wstring> log;
  fakes::PrinterFake printer{log};
  PrintedList list;
  std::array<std::wstring, 4> row;
  std::vector<std::int32_t> printed;
};

void ExpectPlace(const fakes::PrinterFake::Text& text, double x, double y, double size, bool bold) {
  EXPECT_NEAR(text.x, x, 1e-9);
  EXPECT_NEAR(text.y, y, 1e-9);
  EXPECT_DOUBLE_EQ(text.size, size);
  EXPECT_EQ(text.bold, bold);
}

TEST(PagePlan, RoundsTheRowsPerPageToTheNearestAndAHalfToTheEvenNumber) {
  EXPECT_EQ(PlanPages(1, 4.2).rowsPerPage, 57);   // 57.1
  EXPECT_EQ(PlanPages(1, 4.25).rowsPerPage, 56);  // 56.5
  EXPECT_EQ(PlanPages(1, 240 / 57.5).rowsPerPage, 58);
  EXPECT_EQ(PlanPages(1, 4.17).rowsPerPage, 58);  // 57.6
}

TEST(PagePlan, CountsThePages) {
  const auto plan = [](std::int32_t rows) {
    const PagePlan pages = PlanPages(rows, 4.2);
    return std::pair(pages.rowsPerPage, pages.pageCount);
  };
  EXPECT_EQ(plan(1), std::pair(57, 1));
  EXPECT_EQ(plan(57), std::pair(57, 1));
  EXPECT_EQ(plan(58), std::pair(57, 2));
  EXPECT_EQ(plan(114), std::pair(57, 0)) << "an exact multiple keeps the count 0";
  EXPECT_EQ(plan(115), std::pair(57, 3));
  EXPECT_EQ(plan(std::numeric_limits<std::int32_t>::max()), std::pair(57, 37675152));
}

TEST(PagePlan, RefusesWhatCannotBePrinted) {
  EXPECT_THROW(PlanPages(0, 4.2), std::runtime_error);
  EXPECT_THROW(PlanPages(1, 0), std::runtime_error);
  EXPECT_THROW(PlanPages(1, -1), std::runtime_error);
  EXPECT_THROW(PlanPages(1, 500), std::runtime_error);
  EXPECT_THROW(PlanPages(1, std::nan("")), std::runtime_error);
  EXPECT_EQ(PlanPages(1, 1e-300).rowsPerPage, 10000);
}

TEST(PageLayout, PutsHeadingAndTitlesWhereTheyBelong) {
  PrintingRun run(1);
  run.Print();
  ExpectPlace(run.Find(L"Obce"), (190.0 - 12) / 2, 0, 12, true);
  ExpectPlace(run.Find(L"Sto obcí."), (190.0 - 18) / 2, 12 * 0.42 + 5, 8, false);
  ExpectPlace(run.Find(L"PSČ"), 0, 22, 10, true);
  ExpectPlace(run.Find(L"Pošta"), 15, 22, 10, true);
  ExpectPlace(run.Find(L"Obec"), 80, 22, 10, true);
  ExpectPlace(run.Find(L"Okres"), 145, 22, 10, true);
  ASSERT_THAT(run.printer.rules, SizeIs(1));
  EXPECT_NEAR(run.printer.rules[0].fromX, 0, 1e-9);
  EXPECT_NEAR(run.printer.rules[0].fromY, 22 + 4.2 + 1, 1e-9);
  EXPECT_NEAR(run.printer.rules[0].toX, 190, 1e-9);
  EXPECT_NEAR(run.printer.rules[0].toY, 22 + 4.2 + 1, 1e-9);
}

TEST(PageLayout, PutsRowsUnderTheRuleByTheHeightOfTheTitles) {
  PrintingRun run(57);
  run.Print();
  ExpectPlace(run.Find(L"c1"), 0, 28.2, 8, false);
  ExpectPlace(run.Find(L"p1"), 15, 28.2, 8, false);
  ExpectPlace(run.Find(L"m1"), 80, 28.2, 8, false);
  ExpectPlace(run.Find(L"d1"), 145, 28.2, 8, false);
  ExpectPlace(run.Find(L"c2"), 0, 28.2 + 4.2, 8, false);
  ExpectPlace(run.Find(L"d57"), 145, 28.2 + 56 * 4.2, 8, false);
}

TEST(PageLayout, PutsThreeTextsIntoTheFoot) {
  PrintingRun run(1);
  run.Print();
  ExpectPlace(run.Find(L"1/1"), (190.0 - 6) / 2, 280 - 4.2, 8, false);
  ExpectPlace(run.Find(L"Kvez, © Hora"), 0, 280, 6, false);
  ExpectPlace(run.Find(L"v 8:05"), 190 - (9.0 + 2), 280, 6, false);
}

TEST(PageLayout, CutsNoLongName) {
  PrintingRun run(1);
  const std::wstring longName(100, L'x');
  run.list.row = [&](std::int32_t) { return ResultRow{L"110 00", longName, L"m", L"d"}; };
  run.Print();
  EXPECT_EQ(run.printer.TextsAt(1, 28.2), (Texts{L"110 00", std::wstring(100, L'x'), L"m", L"d"}));
}

TEST(PageLayout, RepeatsHeadAndFootOnEachPageAndGoesOnWithTheNextRow) {
  PrintingRun run(58);
  run.Print();
  EXPECT_EQ(run.printer.pages, 2);
  EXPECT_EQ(run.printer.TextsAt(2, 28.2), (Texts{L"c58", L"p58", L"m58", L"d58"}));
  EXPECT_THAT(run.printer.TextsAt(2, 28.2 + 4.2), ElementsAre());
  ExpectPlace(run.Find(L"Obce", 2), (190.0 - 12) / 2, 0, 12, true);
  ExpectPlace(run.Find(L"Sto obcí.", 2), (190.0 - 18) / 2, 12 * 0.42 + 5, 8, false);
  ExpectPlace(run.Find(L"Okres", 2), 145, 22, 10, true);
  ExpectPlace(run.Find(L"1/2"), (190.0 - 6) / 2, 280 - 4.2, 8, false);
  ExpectPlace(run.Find(L"2/2", 2), (190.0 - 6) / 2, 280 - 4.2, 8, false);
  EXPECT_THAT(run.printer.rules, SizeIs(2));
  EXPECT_EQ(run.printed.size(), 58U);
  EXPECT_EQ(run.printed.back(), 58);
}

TEST(PageLayout, EndsAnExactMultipleWithoutAnEmptyPage) {
  PrintingRun run(114);
  run.Print();
  EXPECT_EQ(run.printer.pages, 2);
  EXPECT_EQ(run.Find(L"d114", 2).text, L"d114");
  EXPECT_EQ(run.Find(L"1/0").text, L"1/0");
  EXPECT_EQ(run.Find(L"2/0", 2).text, L"2/0");
}

TEST(PageLayout, ReportsARowOnlyWhenItIsPrinted) {
  PrintingRun run(3);
  std::vector<std::size_t> textsSoFar;
  run.list.rowIsPrinted = [&](std::int32_t) { textsSoFar.push_back(run.printer.texts.size()); };
  run.Print();
  EXPECT_THAT(textsSoFar, ElementsAre(6U + 4, 6U + 8, 6U + 12));
}

}  // namespace
}  // namespace kvez
