#pragma once

#include <string_view>

namespace kvez {

/// The unit of positions and sizes, by the numbers of the classic printer object.
enum class PrinterScale { Twips = 1, Millimetres = 6 };

/// What a printing run changes on the printer and puts back afterwards.
struct PrinterSettings {
  int orientation = 0;
  int paperSize = 0;
  PrinterScale scale = PrinterScale::Twips;

  friend bool operator==(const PrinterSettings&, const PrinterSettings&) = default;
};

inline constexpr int kPortrait = 1;
inline constexpr int kPaperA4 = 9;

/// The system's default printer. Positions count from the top left corner of the printable area, in the unit of the
/// settings. Everything but Reset throws Error when there is no printer or it refuses.
class Printer {
 public:
  virtual ~Printer() = default;

  /// Discards an unfinished document and starts over with the printer that is the default one now.
  virtual void Reset() = 0;

  virtual PrinterSettings Settings() = 0;
  /// Not in the middle of a document.
  virtual void ChangeSettings(const PrinterSettings& settings) = 0;

  virtual void SetFontSize(double points) = 0;
  virtual void SetBold(bool bold) = 0;
  virtual double TextWidth(std::wstring_view text) = 0;
  virtual double TextHeight(std::wstring_view text) = 0;

  /// Prints a text with its top left corner at (x, y). The first thing printed starts the document.
  virtual void Print(double x, double y, std::wstring_view text) = 0;
  /// A black line of the printer's own width.
  virtual void Line(double fromX, double fromY, double toX, double toY) = 0;

  virtual void NewPage() = 0;
  /// Sends the document to the printer.
  virtual void EndDocument() = 0;
};

}  // namespace kvez
