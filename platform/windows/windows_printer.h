#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/printer.h"
#include "platform/windows/owned.h"

namespace kvez {

/// The system's default printer, in Arial: it is on every Windows, and printers measure it alike.
class WindowsPrinter final : public Printer {
 public:
  /// The title is what the document is called in the printer's queue.
  explicit WindowsPrinter(std::wstring documentTitle);
  ~WindowsPrinter() override;

  void Reset() override;
  PrinterSettings Settings() override;
  void ChangeSettings(const PrinterSettings& settings) override;
  void SetFontSize(double points) override;
  void SetBold(bool bold) override;
  double TextWidth(std::wstring_view text) override;
  double TextHeight(std::wstring_view text) override;
  void Print(double x, double y, std::wstring_view text) override;
  void Line(double fromX, double fromY, double toX, double toY) override;
  void NewPage() override;
  void EndDocument() override;

 private:
  DEVMODEW& DeviceMode();
  HDC Context();
  HDC ContextWithFont();
  HDC Page();
  SIZE Extent(std::wstring_view text);
  double PixelsPerUnit(int pixelsPerInchIndex);

  std::wstring m_documentTitle;
  std::wstring m_printerName;               // empty: not looked up yet
  std::vector<unsigned char> m_deviceMode;  // a DEVMODEW and the driver's own data behind it
  PrinterScale m_scale = PrinterScale::Twips;
  double m_fontSize = 10;
  bool m_bold = false;
  bool m_inDocument = false;
  bool m_fontIsCurrent = false;  // the font below is of the size and weight above, and selected
  OwnedFont m_font;              // outlives the context that it is selected into
  OwnedMemoryContext m_context;
};

}  // namespace kvez
