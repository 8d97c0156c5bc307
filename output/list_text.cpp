#include "output/list_text.h"

#include "output/title_line.h"

namespace kvez {
namespace {

constexpr std::wstring_view kHeader = L"PSČ ; POŠTA ; OBEC ; OKRES";
constexpr std::wstring_view kFieldSeparator = L" ; ";
constexpr std::wstring_view kLineEnd = L"\r\n";
// No blank stands between the day's full stop and the month.
constexpr std::wstring_view kMomentPicture = L"dddd, d.mmmm yyyy HH:mm";
constexpr std::size_t kUsualRowLength = 64;

}  // namespace

std::wstring ListText(const std::wstring& heading, ResultRows& rows, Formats& formats, Clock& clock,
                      VersionInformation& version) {
  std::wstring text;
  text.reserve(heading.size() + static_cast<std::size_t>(rows.Count()) * kUsualRowLength + 256);
  text.append(heading).append(kLineEnd).append(kLineEnd);
  text += kHeader;
  text += kLineEnd;
  for (std::int32_t position = 1; position <= rows.Count(); ++position) {
    const ResultRow row = rows.Row(position);
    text += kLineEnd;
    text += row.code;
    // Nothing is quoted: a name that contains the separator is written as it stands.
    for (const std::wstring_view field : {row.postOffice, row.municipality, row.district}) {
      text += kFieldSeparator;
      text += field;
    }
  }
  for (int line = 0; line < 3; ++line) text += kLineEnd;
  text += formats.Date(clock.Now(), kMomentPicture);
  for (int line = 0; line < 3; ++line) text += kLineEnd;
  text += TitleLine(version);
  return text;
}

}  // namespace kvez
