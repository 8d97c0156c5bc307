// The list text: the one form in which a list leaves the program as text.

#include "database/clspsc.h"
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

std::wstring clspsc::pSeznam() {
  std::wstring text;
  text.reserve(m_result.size() * kUsualRowLength + 256);
  text += kHeader;
  text += kLineEnd;
  for (const tpclspsc& entry : m_result) {
    pscDetail(entry.tpPozice());
    text += kLineEnd;
    if (m_hasCurrent) text += FormattedCode(m_currentCode);
    // Nothing is quoted: a name that contains the separator is written as it stands.
    for (const std::wstring* field : {&m_currentPostOffice, &m_currentName, &m_currentDistrictName}) {
      text += kFieldSeparator;
      text += *field;
    }
  }
  for (int line = 0; line < 3; ++line) text += kLineEnd;
  text += m_platform.formats.Date(m_platform.output.clock.Now(), kMomentPicture);
  for (int line = 0; line < 3; ++line) text += kLineEnd;
  text += TitleLine(m_platform.output.version);
  return text;
}

std::wstring clspsc::TextUnderHeading(const std::wstring& heading) {
  std::wstring text = heading;
  text += kLineEnd;
  text += kLineEnd;
  text += pSeznam();
  return text;
}

}  // namespace kvez
