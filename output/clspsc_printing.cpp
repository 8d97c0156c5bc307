// The printed list.

#include "database/clspsc.h"
#include "output/page_layout.h"
#include "output/title_line.h"

namespace kvez {
namespace {

constexpr std::wstring_view kMomentPicture = L"dddd, d.mmmm yyyy \\v H:mm";
constexpr std::wstring_view kPagePicture = L"# \\z ";
constexpr std::wstring_view kPageCountPicture = L"#";

template <typename Action>
void IgnoringErrors(const Action& action) {
  try {
    action();
  } catch (...) {
  }
}

}  // namespace

// The heading is a copy: while messages are worked off, what the caller named may change.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void clspsc::pTisk(std::wstring ptt, ProgressWindow& window) {
  Printer& printer = m_platform.output.printer;
  std::optional<PrinterSettings> saved;
  try {
    printer.Reset();
    const std::int32_t rows = m_resultCount;
    m_platform.output.pendingMessages.Process();
    // The session may end among these messages, and the list with it.
    if (m_resultCount != rows) return;
    saved = printer.Settings();
    printer.ChangeSettings({kPortrait, kPaperA4, PrinterScale::Millimetres});
    PrintResult(ptt, window);
    printer.EndDocument();
  } catch (...) {
    // A printer that refuses leaves nothing behind, neither half a document nor a message.
    IgnoringErrors([&] { printer.Reset(); });
  }
  if (saved) IgnoringErrors([&] { printer.ChangeSettings(*saved); });
}

void clspsc::PrintResult(const std::wstring& heading, ProgressWindow& window) {
  Formats& formats = m_platform.formats;
  OutputPlatform& output = m_platform.output;
  const std::wstring countSentence = pVybran();
  const std::wstring titleLine = TitleLine(output.version);
  const float step = 1.0F / static_cast<float>(m_resultCount);

  PrintedList list;
  list.heading = heading;
  list.countSentence = countSentence;
  list.titleLine = titleLine;
  list.rows = m_resultCount;
  list.row = [&](std::int32_t position) {
    // The result's own cursor is the counter, so that it stays on the last printed row.
    m_resultCursor = position;
    pscDetail(m_result.at(static_cast<std::size_t>(position) - 1).tpPozice());
    return PrintedRow{pscPSC(), pscDodavaci(), pscObec(), pscOkres()};
  };
  list.rowIsPrinted = [&](std::int32_t position) { window.Prubech(static_cast<float>(position) * step); };
  list.pageNumber = [&](std::int32_t page, std::int32_t pageCount) {
    return L"Strana " + formats.Number(page, kPagePicture) + formats.Number(pageCount, kPageCountPicture);
  };
  list.moment = [&] { return formats.Date(output.clock.Now(), kMomentPicture); };
  PrintPages(output.printer, list);
}

}  // namespace kvez
