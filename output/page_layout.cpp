#include "output/page_layout.h"

#include <algorithm>
#include <cmath>

#include "text/error.h"

namespace kvez {
namespace {

// Millimetres and points.
constexpr double kWidth = 190;
constexpr double kRowsHeight = 240;
constexpr std::int32_t kMostRowsPerPage = 10000;
constexpr double kCountGap = 5;
constexpr double kTitlesTop = 22;
constexpr double kRuleGap = 1;
constexpr double kFooterTop = 280;
constexpr double kMomentMargin = 2;
constexpr double kHeadingSize = 12;
constexpr double kTitlesSize = 10;
constexpr double kTextSize = 8;
constexpr double kFooterSize = 6;

struct Column {
  double left;
  std::wstring_view title;
  std::wstring_view ResultRow::*field;
};

constexpr std::wstring_view kCodeTitle = L"PSČ";
constexpr Column kColumns[] = {{0, kCodeTitle, &ResultRow::code},
                               {15, L"Pošta", &ResultRow::postOffice},
                               {80, L"Obec", &ResultRow::municipality},
                               {145, L"Okres", &ResultRow::district}};

void PrintCentred(Printer& printer, double y, std::wstring_view text) {
  printer.Print((kWidth - printer.TextWidth(text)) / 2, y, text);
}

struct PageHead {
  double rowHeight;
  double firstRow;
};

PageHead PrintHead(Printer& printer, const PrintedList& list) {
  printer.SetFontSize(kHeadingSize);
  printer.SetBold(true);
  const double headingHeight = printer.TextHeight(list.heading);
  PrintCentred(printer, 0, list.heading);

  printer.SetBold(false);
  printer.SetFontSize(kTextSize);
  PrintCentred(printer, headingHeight + kCountGap, list.countSentence);

  printer.SetFontSize(kTitlesSize);
  const double rowHeight = printer.TextHeight(kCodeTitle);
  printer.SetBold(true);
  for (const Column& column : kColumns) printer.Print(column.left, kTitlesTop, column.title);

  printer.SetBold(false);
  const double rule = kTitlesTop + rowHeight + kRuleGap;
  printer.Line(0, rule, kWidth, rule);
  printer.SetFontSize(kTextSize);
  return {rowHeight, rule + kRuleGap};
}

void PrintFoot(Printer& printer, const PrintedList& list, double rowHeight, const std::wstring& pageNumber) {
  PrintCentred(printer, kFooterTop - rowHeight, pageNumber);
  printer.SetFontSize(kFooterSize);
  printer.Print(0, kFooterTop, list.titleLine);
  const std::wstring moment = list.moment();
  printer.Print(kWidth - (printer.TextWidth(moment) + kMomentMargin), kFooterTop, moment);
  printer.SetFontSize(kTextSize);
}

}  // namespace

PagePlan PlanPages(std::int32_t rows, double textHeight) {
  if (rows < 1) throw Error(L"Není co tisknout.");
  // To the nearest whole number, a half to the even neighbour: the default rounding.
  const double rowsPerPage = std::nearbyint(kRowsHeight / textHeight);
  if (!(textHeight > 0) || rowsPerPage < 1) throw Error(L"Řádek se na stránku nevejde.");
  PagePlan plan;
  plan.rowsPerPage = static_cast<std::int32_t>(std::min<double>(rowsPerPage, kMostRowsPerPage));
  if (rows <= plan.rowsPerPage) {
    plan.pageCount = 1;
  } else if (rows % plan.rowsPerPage != 0) {
    // A count that fills its pages exactly keeps the 0 on purpose.
    plan.pageCount = rows / plan.rowsPerPage + 1;
  }
  return plan;
}

void PrintPages(Printer& printer, const PrintedList& list) {
  printer.SetFontSize(kTitlesSize);
  const PagePlan plan = PlanPages(list.rows, printer.TextHeight(L"H"));
  std::int32_t first = 1;
  for (std::int32_t page = 1;; ++page) {
    const std::int32_t last = std::min(first - 1 + plan.rowsPerPage, list.rows);
    const PageHead head = PrintHead(printer, list);
    // The rows are smaller than their titles but advance by the height of these.
    double y = head.firstRow;
    for (std::int32_t position = first; position <= last; ++position) {
      const ResultRow row = list.row(position);
      // Nothing is cut: a long name runs into the next column.
      for (const Column& column : kColumns) printer.Print(column.left, y, row.*column.field);
      y += head.rowHeight;
      list.rowIsPrinted(position);
    }
    PrintFoot(printer, list, head.rowHeight, list.pageNumber(page, plan.pageCount));
    if (last == list.rows) return;
    first = last + 1;
    printer.NewPage();
  }
}

}  // namespace kvez
