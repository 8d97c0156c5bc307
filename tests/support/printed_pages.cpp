#include "tests/support/printed_pages.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/program_driver.h"

namespace kvez::test {
namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;
constexpr double kTolerance = 0.5;
// Where the queue's printer says that its printable area begins (kvez.ppd), in points.
constexpr double kLeftMargin = 26;
constexpr double kTopMargin = 14;

std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::wstring FromUtf8(const std::string& bytes) {
  const int length = static_cast<int>(bytes.size());
  std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), static_cast<int>(text.size()));
  return text;
}

double Attribute(const std::string& line, const std::string& name) {
  const std::size_t start = line.find(name + "=\"");
  return start == std::string::npos ? 0 : std::strtod(line.c_str() + start + name.size() + 2, nullptr);
}

std::string Unescaped(std::string text) {
  const std::pair<const char*, const char*> entities[] = {
      {"&quot;", "\""}, {"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}};
  for (const auto& [entity, character] : entities) {
    for (std::size_t at; (at = text.find(entity)) != std::string::npos;) {
      text.replace(at, std::string(entity).size(), character);
    }
  }
  return text;
}

// The places of all words, one line each:  <word xMin="25.9" yMin="14.5" xMax="49.5" yMax="25.3">Příliš</word>
void ReadWords(const std::filesystem::path& path, PrintedDocument& document) {
  std::istringstream lines(ReadAll(path));
  for (std::string line; std::getline(lines, line);) {
    if (line.find("<page ") != std::string::npos) {
      ++document.pages;
      document.sheetWidth = Attribute(line, "width") * kMillimetresPerPoint;
      document.sheetHeight = Attribute(line, "height") * kMillimetresPerPoint;
    }
    const std::size_t open = line.find("<word ");
    if (open == std::string::npos) continue;
    const std::size_t start = line.find('>', open) + 1;
    document.words.push_back({document.pages, (Attribute(line, "xMin") - kLeftMargin) * kMillimetresPerPoint,
                              (Attribute(line, "yMin") - kTopMargin) * kMillimetresPerPoint,
                              FromUtf8(Unescaped(line.substr(start, line.find("</word>") - start)))});
  }
}

// Each typeface is described by its name and then its measures, in thousandths:  /FontName/ABCDEF+Name-Bold ... /Ascent
// 799
void ReadAscents(const std::filesystem::path& path, PrintedDocument& document) {
  const std::string pdf = ReadAll(path);
  const std::string nameKey = "/FontName/";
  const std::string ascentKey = "/Ascent ";
  for (std::size_t at = 0; (at = pdf.find(nameKey, at)) != std::string::npos; ++at) {
    const std::size_t name = at + nameKey.size();
    const bool bold = pdf.substr(name, pdf.find_first_of("\r\n/", name) - name).find("Bold") != std::string::npos;
    const std::size_t ascent = pdf.find(ascentKey, name);
    if (ascent == std::string::npos) return;
    (bold ? document.boldAscent : document.ascent) =
        std::strtod(pdf.c_str() + ascent + ascentKey.size(), nullptr) / 1000;
  }
}

std::vector<std::filesystem::path> Finished(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() == L".done") paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

// A device context of the default printer with a font.
class Ruler {
 public:
  explicit Ruler(PrintedStyle style) {
    wchar_t name[256] = {};
    DWORD length = 256;
    GetDefaultPrinterW(name, &length);
    m_context = CreateICW(L"WINSPOOL", name, nullptr, nullptr);
    const int pixels = static_cast<int>(std::lround(style.points * GetDeviceCaps(m_context, LOGPIXELSY) / 72));
    m_font = CreateFontW(-pixels, 0, 0, 0, style.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                         0, 0, L"Arial");
    SelectObject(m_context, m_font);
  }
  Ruler(const Ruler&) = delete;
  Ruler& operator=(const Ruler&) = delete;
  ~Ruler() {
    DeleteDC(m_context);
    DeleteObject(m_font);
  }

  SIZE Measure(std::wstring_view text) const {
    SIZE size{};
    GetTextExtentPoint32W(m_context, text.data(), static_cast<int>(text.size()), &size);
    return size;
  }
  LONG Ascent() const {
    TEXTMETRICW metrics{};
    GetTextMetricsW(m_context, &metrics);
    return metrics.tmAscent;
  }
  double Millimetres(LONG pixels) const { return pixels * 25.4 / GetDeviceCaps(m_context, LOGPIXELSX); }

 private:
  HDC m_context;
  HFONT m_font;
};

}  // namespace

bool PrintedDocument::HasText(int page, double x, double y, std::wstring_view text, PrintedStyle style) const {
  // From the top of the line down to where its letters stand, and up to the top of the highest ones.
  const Ruler ruler(style);
  const double top =
      y + ruler.Millimetres(ruler.Ascent()) - (style.bold ? boldAscent : ascent) * style.points * kMillimetresPerPoint;
  // Words of one text follow each other; only its first one has a place that can be told beforehand.
  std::vector<std::wstring> parts(1);
  for (const wchar_t character : text) {
    if (character == L' ') {
      if (!parts.back().empty()) parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  if (parts.back().empty()) parts.pop_back();
  for (std::size_t i = 0; i + parts.size() <= words.size(); ++i) {
    const PrintedWord& first = words[i];
    if (first.page != page || std::abs(first.left - x) > kTolerance || std::abs(first.top - top) > kTolerance) continue;
    if (std::equal(parts.begin(), parts.end(), words.begin() + static_cast<std::ptrdiff_t>(i),
                   [](const std::wstring& part, const PrintedWord& word) { return part == word.text; })) {
      return true;
    }
  }
  return false;
}

PrintQueue::PrintQueue() {
  wchar_t folder[MAX_PATH] = {};
  GetEnvironmentVariableW(L"KVEZ_PRINT_FOLDER", folder, MAX_PATH);
  m_folder = std::filesystem::path(L"Z:" + std::wstring(folder) + L"/out");
  m_before = Finished(m_folder);
}

bool PrintQueue::IsThere() const {
  wchar_t name[256] = {};
  DWORD length = 256;
  return std::filesystem::exists(m_folder) && GetDefaultPrinterW(name, &length);
}

std::vector<PrintedDocument> PrintQueue::Documents() const {
  std::vector<PrintedDocument> documents;
  for (const auto& done : Finished(m_folder)) {
    if (std::find(m_before.begin(), m_before.end(), done) != m_before.end()) continue;
    PrintedDocument document;
    document.title = ReadAll(std::filesystem::path(done).replace_extension(L".title"));
    ReadWords(std::filesystem::path(done).replace_extension(L".words"), document);
    ReadAscents(std::filesystem::path(done).replace_extension(L".pdf"), document);
    documents.push_back(document);
  }
  return documents;
}

PrintedDocument PrintQueue::WaitForDocument() const {
  WaitUntil([this] { return !Documents().empty(); }, 60);
  const auto documents = Documents();
  return documents.empty() ? PrintedDocument{} : documents.front();
}

double PrintedWidth(std::wstring_view text, PrintedStyle style) {
  const Ruler ruler(style);
  return ruler.Millimetres(ruler.Measure(text).cx);
}

double PrintedHeight(PrintedStyle style) {
  const Ruler ruler(style);
  return ruler.Millimetres(ruler.Measure(L"H").cy);
}

}  // namespace kvez::test
