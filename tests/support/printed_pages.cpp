#include "tests/support/printed_pages.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/program_driver.h"

namespace kvez::test {
namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;
constexpr double kTolerance = 0.5;
constexpr double kHeightTolerance = 0.1;
constexpr double kLineTolerance = 0.25;
// A horizontal run of black dots that no letter has.
constexpr double kShortestLine = 5;
constexpr double kDotsPerMillimetre = 300 / 25.4;
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
                              (Attribute(line, "yMax") - Attribute(line, "yMin")) * kMillimetresPerPoint,
                              FromUtf8(Unescaped(line.substr(start, line.find("</word>") - start)))});
  }
}

// Each typeface is described by its name and then its measures, in thousandths:  /FontName/ABCDEF+Name-Bold ... /Ascent
// 799/Descent -204
void ReadMeasures(const std::filesystem::path& path, PrintedDocument& document) {
  const std::string pdf = ReadAll(path);
  const std::string nameKey = "/FontName/";
  const auto measure = [&pdf](const char* key, std::size_t from) {
    const std::size_t at = pdf.find(key, from);
    return at == std::string::npos ? 0 : std::strtod(pdf.c_str() + at + std::strlen(key), nullptr) / 1000;
  };
  for (std::size_t at = 0; (at = pdf.find(nameKey, at)) != std::string::npos; ++at) {
    const std::size_t name = at + nameKey.size();
    const bool bold = pdf.substr(name, pdf.find_first_of("\r\n/", name) - name).find("Bold") != std::string::npos;
    const double ascent = measure("/Ascent ", name);
    (bold ? document.boldAscent : document.ascent) = ascent;
    (bold ? document.boldExtent : document.extent) = ascent - measure("/Descent ", name);
  }
}

// The sheets as dots, a file each:  JOB-1.pgm, in it "P5", width, height, 255, and then a byte for each dot.
void ReadLines(const std::filesystem::path& folder, const std::string& job, int page, PrintedDocument& document) {
  std::istringstream stream(ReadAll(folder / (job + "-" + std::to_string(page) + ".pgm")));
  std::string magic;
  std::size_t width = 0;
  std::size_t height = 0;
  int white = 0;
  stream >> magic >> width >> height >> white;
  stream.get();
  std::string row(width, '\0');
  const auto left = [](std::size_t dots) {
    return static_cast<double>(dots) / kDotsPerMillimetre - kLeftMargin * kMillimetresPerPoint;
  };
  const auto top = [](std::size_t dots) {
    return static_cast<double>(dots) / kDotsPerMillimetre - kTopMargin * kMillimetresPerPoint;
  };
  for (std::size_t y = 0; y < height && stream.read(row.data(), static_cast<std::streamsize>(width)); ++y) {
    for (std::size_t x = 0; (x = row.find('\0', x)) != std::string::npos;) {
      const std::size_t end = std::min(row.find_first_not_of('\0', x), width);
      const PrintedLine line{page, left(x), left(end), top(y), top(y + 1)};
      x = end;
      if (line.right - line.left < kShortestLine) continue;
      // The next row of dots of the same rule.
      if (!document.lines.empty() && document.lines.back().page == page && document.lines.back().bottom == line.top) {
        document.lines.back().bottom = line.bottom;
      } else {
        document.lines.push_back(line);
      }
    }
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
  const double height = (style.bold ? boldExtent : extent) * style.points * kMillimetresPerPoint;
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
                   [height](const std::wstring& part, const PrintedWord& word) {
                     return part == word.text && std::abs(word.height - height) < kHeightTolerance;
                   })) {
      return true;
    }
  }
  return false;
}

bool PrintedDocument::HasLine(int page, double x, double y, double length) const {
  return std::any_of(lines.begin(), lines.end(), [&](const PrintedLine& line) {
    return line.page == page && std::abs(line.left - x) < kLineTolerance &&
           std::abs(line.right - (x + length)) < kLineTolerance && std::abs(line.top - y) < kLineTolerance &&
           line.bottom - line.top < kLineTolerance;
  });
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
    ReadMeasures(std::filesystem::path(done).replace_extension(L".pdf"), document);
    for (int page = 1; page <= document.pages; ++page) ReadLines(m_folder, done.stem().string(), page, document);
    documents.push_back(document);
  }
  return documents;
}

PrintedDocument PrintQueue::WaitForDocument() const {
  if (!WaitUntil([this] { return !Documents().empty(); }, 60)) {
    std::fprintf(stderr, "%s\n", ReadAll(m_folder.parent_path() / "log" / "error").c_str());
  }
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
