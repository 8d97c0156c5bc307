#include "mainwindow/statusbar_font.h"

#include <algorithm>
#include <string_view>

#include "forms/dpi.h"
#include "mainwindow/clock_texts.h"

namespace kvez {
namespace {

// Pixels at 100 %. A panel's borders and the gaps beside its text take some of its width; the last of these pixels may
// be needed, as a digit does not fill its own.
constexpr int kTimeEdge = 34;
constexpr int kDateEdge = 142;
constexpr int kAroundText = 6;
constexpr int kLeastAroundText = 4;

int Scaled(int pixels, unsigned dpi) { return MulDiv(pixels, static_cast<int>(dpi), 96); }

OwnedFont CreateFontOf(LOGFONTW description, int height) {
  description.lfHeight = -height;
  return OwnedFont(CreateFontIndirectW(&description));
}

/// Measures in one font.
class ClockRuler {
 public:
  explicit ClockRuler(HFONT font) : m_context(CreateCompatibleDC(nullptr)), m_selection(m_context.Get(), font) {
    constexpr std::wstring_view digits = L"0123456789";
    m_widestDigit = *std::ranges::max_element(digits, {}, [this](wchar_t digit) { return Measure({&digit, 1}); });
  }

  /// The width of the text when its digits are the widest.
  int Width(std::wstring text) const {
    std::ranges::replace_if(
        text, [](wchar_t character) { return character >= L'0' && character <= L'9'; }, m_widestDigit);
    return Measure(text);
  }

  int Width(const std::vector<std::wstring>& texts) const {
    int widest = 0;
    for (const std::wstring& text : texts) widest = std::max(widest, Width(text));
    return widest;
  }

 private:
  int Measure(std::wstring_view text) const {
    SIZE size{};
    GetTextExtentPoint32W(m_context.Get(), text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
  }

  OwnedMemoryContext m_context;
  ObjectSelection m_selection;
  wchar_t m_widestDigit = L'0';
};

}  // namespace

LongestClockTexts::LongestClockTexts(Formats& formats)
    : time(TimePanelText(formats.Date({2026, 12, 20, 20, 0, 0}, L"H:mm"))) {
  constexpr std::uint16_t firstDay = 20;
  constexpr std::uint16_t weekdays = 7;
  for (std::uint16_t day = firstDay; day < firstDay + weekdays; ++day) {
    dates.push_back(DatePanelText(formats.Date({2026, 12, day, 0, 0, 0}, L"dddd, d.m.yyyy")));
  }
}

OwnedFont StatusBarFont(unsigned dpi, const LongestClockTexts& texts) {
  const int available = Scaled(kDateEdge - kTimeEdge - kAroundText, dpi);
  const int smallest = MulDiv(8, static_cast<int>(dpi), 72);
  const LOGFONTW description = forms::MessageFont(dpi);
  const int height = FittingFontHeight(
      -static_cast<int>(description.lfHeight), smallest, available,
      [&](int candidate) { return ClockRuler(CreateFontOf(description, candidate).Get()).Width(texts.dates); });
  return CreateFontOf(description, height);
}

std::array<int, 2> ClockPanelEdges(unsigned dpi, HFONT font, const LongestClockTexts& texts) {
  const ClockRuler ruler(font);
  const auto edge = [dpi](int left, int width, int usualEdge) {
    const int usual = Scaled(usualEdge, dpi);
    return left + width + Scaled(kLeastAroundText, dpi) <= usual ? usual : left + width + Scaled(kAroundText, dpi);
  };
  const int timeEdge = edge(0, ruler.Width(texts.time), kTimeEdge);
  return {timeEdge, edge(timeEdge, ruler.Width(texts.dates), kDateEdge)};
}

int FittingFontHeight(int height, int smallest, int available, const std::function<int(int)>& width) {
  while (height > smallest && width(height) > available) --height;
  return height;
}

}  // namespace kvez
