#include "platform/portable/portable_formats.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <vector>

namespace kvez {
namespace {

constexpr wchar_t kThousandsSeparator = 0x00A0;  // a space at which no line breaks

constexpr std::array<std::wstring_view, 12> kMonths = {L"leden",  L"únor",   L"březen",   L"duben",
                                                       L"květen", L"červen", L"červenec", L"srpen",
                                                       L"září",   L"říjen",  L"listopad", L"prosinec"};
constexpr std::array<std::wstring_view, 7> kWeekdays = {L"neděle",  L"pondělí", L"úterý", L"středa",
                                                        L"čtvrtek", L"pátek",   L"sobota"};

/// One piece of a picture: a character that stands for itself, or a run of one sign.
struct Piece {
  bool literal;
  wchar_t sign;
  std::size_t count;
};

std::vector<Piece> Split(std::wstring_view picture, std::wstring_view signs) {
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    if (picture[i] == L'\\') {
      if (++i < picture.size()) pieces.push_back({true, picture[i], 1});
    } else if (signs.find(picture[i]) == std::wstring_view::npos) {
      pieces.push_back({true, picture[i], 1});
    } else if (!pieces.empty() && !pieces.back().literal && pieces.back().sign == picture[i]) {
      ++pieces.back().count;
    } else {
      pieces.push_back({false, picture[i], 1});
    }
  }
  return pieces;
}

std::wstring Padded(int value, std::size_t width) {
  std::wstring digits = std::to_wstring(value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
  return digits;
}

std::wstring_view WeekdayName(const DateTime& date) {
  const std::chrono::year_month_day day{std::chrono::year(date.year),
                                        std::chrono::month(static_cast<unsigned>(date.month)),
                                        std::chrono::day(static_cast<unsigned>(date.day))};
  return kWeekdays[std::chrono::weekday(std::chrono::sys_days(day)).c_encoding()];
}

std::wstring DatePart(const DateTime& date, const Piece& piece, bool afterHour) {
  switch (piece.sign) {
    case L'd':
      return piece.count >= 4 ? std::wstring(WeekdayName(date)) : Padded(date.day, piece.count);
    case L'm':
      if (afterHour) return Padded(date.minute, piece.count);
      if (piece.count >= 4) return std::wstring(kMonths[static_cast<std::size_t>(date.month) - 1]);
      return Padded(date.month, piece.count);
    case L'y':
      return piece.count >= 3 ? Padded(date.year, 4) : Padded(date.year % 100, 2);
    default:
      return Padded(date.hour, piece.count);
  }
}

}  // namespace

std::wstring PortableFormats::Number(std::int32_t value, std::wstring_view picture) {
  const std::vector<Piece> pieces = Split(picture, L"0#,");
  std::size_t places = 0;
  bool grouped = false;
  for (const Piece& piece : pieces) {
    if (!piece.literal && piece.sign == L',') grouped = true;
    if (!piece.literal && piece.sign != L',') places += piece.count;
  }
  // The number 0 has no digits: its zeros come from the picture.
  const std::wstring digits =
      value == 0 ? std::wstring() : std::to_wstring(value < 0 ? -static_cast<std::int64_t>(value) : value);

  std::wstring text = value < 0 ? L"-" : L"";
  std::size_t position = std::max(places, digits.size());  // of the next digit, counted from the right
  for (const Piece& piece : pieces) {
    if (piece.literal) text += piece.sign;
    if (piece.literal || piece.sign == L',') continue;
    for (std::size_t i = 0; i < piece.count; ++i) {
      --places;
      // The first place takes all digits that the others have no room for.
      for (; position > places; --position) {
        const bool hasDigit = position <= digits.size();
        if (!hasDigit && piece.sign == L'#') continue;
        text += hasDigit ? digits[digits.size() - position] : L'0';
        if (grouped && position > 1 && (position - 1) % 3 == 0) text += kThousandsSeparator;
      }
    }
  }
  return text;
}

std::wstring PortableFormats::Date(const DateTime& value, std::wstring_view picture) {
  if (value.month < 1 || value.month > 12 || value.day < 1 || value.day > 31) return {};
  std::wstring text;
  bool afterHour = false;
  for (const Piece& piece : Split(picture, L"dmyH")) {
    if (piece.literal) {
      text += piece.sign;
      continue;
    }
    text += DatePart(value, piece, afterHour);
    afterHour = piece.sign == L'H';
  }
  return text;
}

}  // namespace kvez
