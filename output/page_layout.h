#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "database/result_rows.h"
#include "platform/printer.h"

namespace kvez {

/// How many rows go on a page and how many pages there are.
struct PagePlan {
  std::int32_t rowsPerPage = 0;
  /// 0 when the rows fill more than one page exactly: the footers then say no count.
  std::int32_t pageCount = 0;
};

/// `textHeight` is the height of the 10-point text in millimetres. Throws Error when there are no rows or
/// a row does not fit on a page.
PagePlan PlanPages(std::int32_t rows, double textHeight);

/// What is printed. The functions are called when their text is printed, in the order of the pages.
struct PrintedList {
  std::wstring_view heading;
  std::wstring_view countSentence;
  std::wstring_view titleLine;
  std::int32_t rows = 0;
  std::function<ResultRow(std::int32_t position)> row;      // positions from 1
  std::function<void(std::int32_t position)> rowIsPrinted;  // after each row
  std::function<std::wstring(std::int32_t page, std::int32_t pageCount)> pageNumber;
  std::function<std::wstring()> moment;
};

/// Prints all pages in millimetres on a page of A4. What the printer throws goes on to the caller.
void PrintPages(Printer& printer, const PrintedList& list);

}  // namespace kvez
