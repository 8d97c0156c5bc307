#include "platform/windows/windows_printer.h"

#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/windows/system_library.h"
#include "text/error.h"

namespace kvez {
namespace {

constexpr const wchar_t* kFontName = L"Arial";
constexpr double kPointsPerInch = 72;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kTwipsPerInch = 1440;
constexpr double kRulesPerInch = 300;  // a rule of one three-hundredth of an inch shows on every printer

template <typename Function>
Function& Spooler(const char* name) {
  return RequiredFunction<Function>(L"winspool.drv", name);
}

// What Open has opened, through the library that is loaded since.
using OwnedPrinter = Owned<HANDLE, [](HANDLE printer) { Spooler<decltype(ClosePrinter)>("ClosePrinter")(printer); }>;

[[noreturn]] void Refuse(const char* call, DWORD code = GetLastError()) {
  throw Error(L"Tiskárna odmítla tisk.", call, code);
}

int ToInt(double pixels) { return static_cast<int>(std::lround(pixels)); }

std::wstring DefaultPrinterName() {
  auto& getName = Spooler<decltype(GetDefaultPrinterW)>("GetDefaultPrinterW");
  DWORD length = 0;
  getName(nullptr, &length);
  std::wstring name(length, L'\0');
  if (length == 0 || !getName(name.data(), &length)) Refuse("GetDefaultPrinterW");
  name.resize(length - 1);  // without its NUL
  return name;
}

OwnedPrinter Open(std::wstring name) {
  HANDLE printer = nullptr;
  if (!Spooler<decltype(OpenPrinterW)>("OpenPrinterW")(name.data(), &printer, nullptr)) Refuse("OpenPrinterW");
  return OwnedPrinter(printer);
}

LONG DriverProperties(HANDLE printer, std::wstring& name, DEVMODEW* output, DEVMODEW* input, DWORD mode) {
  auto& ask = Spooler<decltype(DocumentPropertiesW)>("DocumentPropertiesW");
  return ask(nullptr, printer, name.data(), output, input, mode);
}

}  // namespace

WindowsPrinter::WindowsPrinter(std::wstring documentTitle) : m_documentTitle(std::move(documentTitle)) {}

WindowsPrinter::~WindowsPrinter() { Reset(); }

void WindowsPrinter::Reset() {
  if (m_inDocument) AbortDoc(m_context.Get());
  m_inDocument = false;
  m_context.Reset();
  m_font.Reset();
  m_deviceMode.clear();
  m_printerName.clear();
}

DEVMODEW& WindowsPrinter::DeviceMode() {
  if (m_deviceMode.empty()) {
    m_printerName = DefaultPrinterName();
    const OwnedPrinter printer = Open(m_printerName);
    const LONG size = DriverProperties(printer.Get(), m_printerName, nullptr, nullptr, 0);
    if (size < static_cast<LONG>(sizeof(DEVMODEW))) Refuse("DocumentPropertiesW");
    std::vector<unsigned char> mode(static_cast<std::size_t>(size));
    auto* const output = reinterpret_cast<DEVMODEW*>(mode.data());
    if (DriverProperties(printer.Get(), m_printerName, output, nullptr, DM_OUT_BUFFER) != IDOK) {
      Refuse("DocumentPropertiesW");
    }
    m_deviceMode = std::move(mode);
  }
  return *reinterpret_cast<DEVMODEW*>(m_deviceMode.data());
}

PrinterSettings WindowsPrinter::Settings() {
  const DEVMODEW& mode = DeviceMode();
  // 0 stands for what the driver does not know.
  return {(mode.dmFields & DM_ORIENTATION) != 0 ? mode.dmOrientation : 0,
          (mode.dmFields & DM_PAPERSIZE) != 0 ? mode.dmPaperSize : 0, m_scale};
}

void WindowsPrinter::ChangeSettings(const PrinterSettings& settings) {
  if (m_inDocument) Refuse("ChangeSettings", 0);
  DEVMODEW& mode = DeviceMode();
  mode.dmOrientation = static_cast<short>(settings.orientation);
  mode.dmPaperSize = static_cast<short>(settings.paperSize);
  // A size in millimetres or a named form would win over the paper's number.
  mode.dmFields &= ~static_cast<DWORD>(DM_ORIENTATION | DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME);
  if (settings.orientation != 0) mode.dmFields |= DM_ORIENTATION;
  if (settings.paperSize != 0) mode.dmFields |= DM_PAPERSIZE;
  const OwnedPrinter printer = Open(m_printerName);
  // The driver makes the rest of its data fit.
  if (DriverProperties(printer.Get(), m_printerName, &mode, &mode, DM_IN_BUFFER | DM_OUT_BUFFER) != IDOK) {
    Refuse("DocumentPropertiesW");
  }
  m_scale = settings.scale;
  m_context.Reset();
}

void WindowsPrinter::SetFontSize(double points) {
  m_fontSize = points;
  m_fontIsCurrent = false;
}

void WindowsPrinter::SetBold(bool bold) {
  m_bold = bold;
  m_fontIsCurrent = false;
}

HDC WindowsPrinter::Context() {
  if (!m_context) {
    const DEVMODEW& mode = DeviceMode();
    m_context.Reset(CreateDCW(L"WINSPOOL", m_printerName.c_str(), nullptr, &mode));
    if (!m_context) Refuse("CreateDCW");
    m_fontIsCurrent = false;
    SetBkMode(m_context.Get(), TRANSPARENT);
    SetTextColor(m_context.Get(), RGB(0, 0, 0));
  }
  return m_context.Get();
}

HDC WindowsPrinter::ContextWithFont() {
  const HDC context = Context();
  if (!m_fontIsCurrent) {
    const int pixels = ToInt(m_fontSize * GetDeviceCaps(context, LOGPIXELSY) / kPointsPerInch);
    OwnedFont font(CreateFontW(-pixels, 0, 0, 0, m_bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                               OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, VARIABLE_PITCH | FF_SWISS,
                               kFontName));
    if (!font || SelectObject(context, font.Get()) == nullptr) Refuse("CreateFontW");
    // Only now is the font before it selected no more.
    m_font = std::move(font);
    m_fontIsCurrent = true;
  }
  return context;
}

HDC WindowsPrinter::Page() {
  const HDC context = Context();
  if (!m_inDocument) {
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = m_documentTitle.c_str();
    if (StartDocW(context, &document) <= 0) Refuse("StartDocW");
    m_inDocument = true;
    if (StartPage(context) <= 0) Refuse("StartPage");
  }
  return context;
}

double WindowsPrinter::PixelsPerUnit(int pixelsPerInchIndex) {
  const double unitsPerInch = m_scale == PrinterScale::Millimetres ? kMillimetresPerInch : kTwipsPerInch;
  return GetDeviceCaps(Context(), pixelsPerInchIndex) / unitsPerInch;
}

SIZE WindowsPrinter::Extent(std::wstring_view text) {
  SIZE extent{};
  if (!GetTextExtentPoint32W(ContextWithFont(), text.data(), static_cast<int>(text.size()), &extent))
    Refuse("GetTextExtentPoint32W");
  return extent;
}

double WindowsPrinter::TextWidth(std::wstring_view text) {
  return static_cast<double>(Extent(text).cx) / PixelsPerUnit(LOGPIXELSX);
}

double WindowsPrinter::TextHeight(std::wstring_view) {
  // Lines are equally high whatever stands in them.
  TEXTMETRICW metrics{};
  if (!GetTextMetricsW(ContextWithFont(), &metrics)) Refuse("GetTextMetricsW");
  return metrics.tmHeight / PixelsPerUnit(LOGPIXELSY);
}

void WindowsPrinter::Print(double x, double y, std::wstring_view text) {
  Page();
  const HDC context = ContextWithFont();
  if (text.empty()) return;
  if (!TextOutW(context, ToInt(x * PixelsPerUnit(LOGPIXELSX)), ToInt(y * PixelsPerUnit(LOGPIXELSY)), text.data(),
                static_cast<int>(text.size()))) {
    Refuse("TextOutW");
  }
}

void WindowsPrinter::Line(double fromX, double fromY, double toX, double toY) {
  const HDC context = Page();
  const int width = std::max(1, ToInt(GetDeviceCaps(context, LOGPIXELSY) / kRulesPerInch));
  const OwnedPen pen(CreatePen(PS_SOLID, width, RGB(0, 0, 0)));
  if (!pen) Refuse("CreatePen");
  const ObjectSelection selection(context, pen.Get());
  const double horizontal = PixelsPerUnit(LOGPIXELSX);
  const double vertical = PixelsPerUnit(LOGPIXELSY);
  if (!MoveToEx(context, ToInt(fromX * horizontal), ToInt(fromY * vertical), nullptr) ||
      !LineTo(context, ToInt(toX * horizontal), ToInt(toY * vertical))) {
    Refuse("LineTo");
  }
}

void WindowsPrinter::NewPage() {
  const HDC context = Page();
  if (EndPage(context) <= 0 || StartPage(context) <= 0) Refuse("StartPage");
}

void WindowsPrinter::EndDocument() {
  const HDC context = Page();
  if (EndPage(context) <= 0 || EndDoc(context) <= 0) Refuse("EndDoc");
  m_inDocument = false;
  m_context.Reset();
}

}  // namespace kvez
