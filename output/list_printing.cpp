#include "output/list_printing.h"

#include <optional>

#include "output/page_layout.h"
#include "output/title_line.h"

namespace kvez {
namespace {

constexpr std::wstring_view kPrintedMomentPicture = L"dddd, d.mmmm yyyy \\v H:mm";
constexpr std::wstring_view kPagePicture = L"# \\z ";
constexpr std::wstring_view kPageCountPicture = L"#";

template <typename Action>
void IgnoringErrors(const Action& action) {
  try {
    action();
  } catch (...) {
  }
}

void PrintRows(const std::wstring& heading, ResultRows& rows, ProgressWindow& window, Formats& formats,
               const OutputPlatform& output) {
  const std::wstring countSentence = rows.CountSentence();
  const std::wstring titleLine = TitleLine(output.version);
  const float step = 1.0F / static_cast<float>(rows.Count());

  PrintedList list;
  list.heading = heading;
  list.countSentence = countSentence;
  list.titleLine = titleLine;
  list.rows = rows.Count();
  list.row = [&](std::int32_t position) {
    // The result's own cursor is the counter, so that it stays on the last printed row.
    rows.StandOn(position);
    return rows.Row(position);
  };
  list.rowIsPrinted = [&](std::int32_t position) { window.Prubech(static_cast<float>(position) * step); };
  list.pageNumber = [&](std::int32_t page, std::int32_t pageCount) {
    return L"Strana " + formats.Number(page, kPagePicture) + formats.Number(pageCount, kPageCountPicture);
  };
  list.moment = [&] { return formats.Date(output.clock.Now(), kPrintedMomentPicture); };
  PrintPages(output.printer, list);
}

}  // namespace

void PrintList(const std::wstring& heading, ResultRows& rows, ProgressWindow& window, Formats& formats,
               const OutputPlatform& output) {
  Printer& printer = output.printer;
  std::optional<PrinterSettings> saved;
  try {
    printer.Reset();
    const std::int32_t count = rows.Count();
    output.pendingMessages.Process();
    // The session may end among these messages, and the list with it.
    if (rows.Count() != count) return;
    saved = printer.Settings();
    printer.ChangeSettings({kPortrait, kPaperA4, PrinterScale::Millimetres});
    PrintRows(heading, rows, window, formats, output);
    printer.EndDocument();
  } catch (...) {
    // A printer that refuses leaves nothing behind, neither half a document nor a message.
    IgnoringErrors([&] { printer.Reset(); });
  }
  if (saved) IgnoringErrors([&] { printer.ChangeSettings(*saved); });
}

}  // namespace kvez
