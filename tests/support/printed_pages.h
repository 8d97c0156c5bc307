#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvez::test {

/// Size in points and weight of printed text.
struct PrintedStyle {
  double points = 0;
  bool bold = false;
};

/// A word on a printed sheet, in millimetres from the top left corner of the printable area. Its top is that of the
/// highest letters that the document has of the typeface.
struct PrintedWord {
  int page = 0;
  double left = 0;
  double top = 0;
  double height = 0;
  std::wstring text;
};

/// A rule on a printed sheet, in millimetres from the same corner.
struct PrintedLine {
  int page = 0;
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;
};

/// A document that has come out of the printer.
struct PrintedDocument {
  std::string title;
  int pages = 0;
  double sheetWidth = 0;  // millimetres
  double sheetHeight = 0;
  std::vector<PrintedWord> words;
  std::vector<PrintedLine> lines;  // horizontal ones, from the top
  // How far the letters of the normal and of the bold typeface go up, and up and down together, in parts of the size.
  double ascent = 0;
  double boldAscent = 0;
  double extent = 0;
  double boldExtent = 0;

  /// Whether a page has the words of `text`, in letters of that size, printed within half a millimetre of (x, y).
  bool HasText(int page, double x, double y, std::wstring_view text, PrintedStyle style) const;
  /// Whether a page has a black rule of that length, drawn within a quarter of a millimetre of (x, y), no thicker than
  /// a quarter of a millimetre.
  bool HasLine(int page, double x, double y, double length) const;
};

/// The print queue of the tests, seen from where its documents come out.
class PrintQueue {
 public:
  PrintQueue();

  /// False when it was not started.
  bool IsThere() const;
  /// The documents that have come out since this object was made.
  std::vector<PrintedDocument> Documents() const;
  /// The next document, waiting for it to come out; one without pages when none does.
  PrintedDocument WaitForDocument() const;

 private:
  std::filesystem::path m_folder;
  std::vector<std::filesystem::path> m_before;
};

/// A ruler over the queue's own printer, in Arial, in millimetres.
double PrintedWidth(std::wstring_view text, PrintedStyle style);
double PrintedHeight(PrintedStyle style);

}  // namespace kvez::test
