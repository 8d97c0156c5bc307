#include "platform/portable/portable_output.h"

#include <ctime>
#include <fstream>
#include <stdexcept>

#include "platform/portable/local_time.h"
#include "platform/portable/portable_path.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

constexpr std::uint32_t kNotSupported = 26;  // the mail system's own code

[[noreturn]] void RefusePrinting() { throw std::runtime_error("There is no printer."); }

}  // namespace

DateTime PortableClock::Now() { return LocalDateTime(std::time(nullptr)).value_or(DateTime{}); }

void PortableTextFiles::Write(const std::wstring& path, std::wstring_view text) {
  std::ofstream stream(PortablePath(path), std::ios::binary | std::ios::trunc);
  const std::string bytes = ToWindows1250(text);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream) throw std::runtime_error("A text file cannot be written.");
}

OutputPlatform PortableOutput::Services() {
  return {m_clock, m_pendingMessages, m_version, m_textFiles, m_clipboard, m_folders, m_mail, m_printer};
}

std::uint32_t PortableOutput::NoMailClient::SendDocuments(std::wstring_view, std::wstring_view, std::wstring_view) {
  return kNotSupported;
}

PrinterSettings PortableOutput::NoPrinter::Settings() { RefusePrinting(); }
void PortableOutput::NoPrinter::ChangeSettings(const PrinterSettings&) { RefusePrinting(); }
void PortableOutput::NoPrinter::SetFontSize(double) { RefusePrinting(); }
void PortableOutput::NoPrinter::SetBold(bool) { RefusePrinting(); }
double PortableOutput::NoPrinter::TextWidth(std::wstring_view) { RefusePrinting(); }
double PortableOutput::NoPrinter::TextHeight(std::wstring_view) { RefusePrinting(); }
void PortableOutput::NoPrinter::Print(double, double, std::wstring_view) { RefusePrinting(); }
void PortableOutput::NoPrinter::Line(double, double, double, double) { RefusePrinting(); }
void PortableOutput::NoPrinter::NewPage() { RefusePrinting(); }
void PortableOutput::NoPrinter::EndDocument() { RefusePrinting(); }

}  // namespace kvez
