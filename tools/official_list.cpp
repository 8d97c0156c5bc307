#include "tools/official_list.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <unordered_map>

#include "text/utf8.h"
#include "text/windows1250.h"
#include "tools/lines.h"
#include "tools/name_rules.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

constexpr std::string_view kHeading = "NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE";
constexpr std::size_t kColumns = 6;
constexpr std::int32_t kLowestCode = 10000;
constexpr std::int32_t kHighestCode = 79999;
constexpr std::wstring_view kCzechLetters = L"áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ";
// What a whole list cannot be without. Names begin with a few of the marked capitals only, Czech has "ú" at beginnings
// of words, and "q", "w" and "x" in foreign ones.
constexpr std::wstring_view kLettersOfALongList = L"aábcčdďeéěfghiíjklmnňoóprřsštťuůvyýzžČŘŠÚŽ";
constexpr std::size_t kLongList = 1000;  // rows
// One row in so many may stand in the list a second time, letter by letter; none does in those seen so far.
constexpr std::size_t kRowsForARepeat = 10;

std::string HeadingExpected() { return "the heading '" + std::string(kHeading) + "' was expected"; }

void DropBlanksAtTheEnd(std::wstring_view& text) {
  while (text.ends_with(L' ')) text.remove_suffix(1);
}

/// "has ..." when a parenthesis has no counterpart, else empty.
std::string ParenthesisFault(std::wstring_view name) {
  int open = 0;
  for (const wchar_t character : name) {
    if (character == L'(') ++open;
    if (character == L')' && --open < 0) return "has a parenthesis that was not opened";
  }
  return open == 0 ? "" : "has a parenthesis that is not closed";
}

/// Where the alias mark begins, with the blanks before it: " x)" as a rule, and whatever people make of it: "x)", "
/// X)", " (x)", " x )". The end of the name when there is none, as in "Kostelec (Max)".
std::size_t AliasMarkBegin(std::wstring_view name) {
  std::wstring_view rest = name;
  DropBlanksAtTheEnd(rest);
  if (!rest.ends_with(L')')) return name.size();
  rest.remove_suffix(1);
  DropBlanksAtTheEnd(rest);
  if (!rest.ends_with(L'x') && !rest.ends_with(L'X')) return name.size();
  rest.remove_suffix(1);
  DropBlanksAtTheEnd(rest);
  if (rest.ends_with(L'(')) rest.remove_suffix(1);
  DropBlanksAtTheEnd(rest);
  return ParenthesisFault(rest).empty() ? rest.size() : name.size();
}

/// What is wrong with a heading that is not the list's: its first column that is out of place.
std::string HeadingFault(const std::vector<std::wstring>& columns, const std::vector<std::wstring>& expected) {
  const auto missing = [](const std::wstring& column, const std::vector<std::wstring>& among) {
    return std::find(among.begin(), among.end(), column) == among.end();
  };
  for (const std::wstring& column : columns) {
    if (missing(column, expected)) return "the column " + InApostrophes(column) + " is unexpected";
  }
  for (const std::wstring& column : expected) {
    if (missing(column, columns)) return "the column " + InApostrophes(column) + " is missing";
  }
  for (std::size_t i = 0;; ++i) {
    if (i >= expected.size()) return "the column " + InApostrophes(columns[i]) + " stands there twice";
    if (columns[i] != expected[i]) {
      return "column " + std::to_string(i + 1) + " is " + InApostrophes(columns[i]) + " and not " +
             InApostrophes(expected[i]);
    }
  }
}

bool IsUtf16(std::string_view text) {
  if (text.size() < 2) return false;
  return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") || text[0] == '\0' || text[1] == '\0';
}

class ListReader {
 public:
  ListReader(const Bytes& list, const std::string& name)
      : m_name(name), m_text(reinterpret_cast<const char*>(list.data()), list.size()) {}

  std::vector<OfficialRow> Read() {
    const std::vector<std::string_view> lines = SplitLines(m_text);
    m_line = 1;
    if (m_text.starts_with("\xEF\xBB\xBF")) Fail("the file is UTF-8; the list comes in Windows-1250");
    if (IsUtf16(m_text)) Fail("the file is UTF-16; the list comes in Windows-1250");
    if (lines.empty()) Fail(HeadingExpected());
    std::vector<OfficialRow> rows;
    rows.reserve(lines.size());
    for (const std::string_view line : lines) {
      const std::wstring text = Decode(line);
      if (m_line == 1) {
        ExpectHeading(text);
      } else {
        if (line == kHeading) Fail("the heading stands here again: the list is in the file twice");
        rows.push_back(ParseRow(text));
        CheckAgainstEarlier(rows.back());
      }
      ++m_line;
    }
    if (rows.empty()) Fail("at least one row was expected");
    ExpectNoSecondList(lines);
    if (rows.size() >= kLongList) ExpectWholeAlphabet(rows);
    return rows;
  }

 private:
  [[noreturn]] void Fail(const std::string& what) const { throw ToolError(AtLine(m_name, m_line) + what); }

  /// The list holds Czech names and nothing else. Every other encoding of Czech (UTF-8, ISO 8859-2, CP852) makes other
  /// characters of its bytes, so that it shows in its first letter with a diacritic.
  std::wstring Decode(std::string_view line) const {
    std::wstring text = FromWindows1250(line);
    for (std::size_t i = 0; i < text.size(); ++i) {
      const wchar_t character = text[i];
      // A quotation mark would mean fields with semicolons in them, which the list does not have.
      const bool plain = character >= L' ' && character < 0x7F && character != L'"';
      if (plain || kCzechLetters.find(character) != std::wstring_view::npos) continue;
      std::string what = "byte " + HexByte(static_cast<std::uint8_t>(line[i])) + " at position " +
                         std::to_string(i + 1) + " is no character of a Czech list in Windows-1250";
      if (character > 0x7F && FromUtf8(m_text)) what += "; the file looks like UTF-8";
      Fail(what);
    }
    return text;
  }

  void ExpectHeading(const std::wstring& heading) const {
    const std::wstring expected = FromWindows1250(kHeading);
    if (heading == expected) return;
    Fail(HeadingFault(SplitFields(heading), SplitFields(expected)) + "; " + HeadingExpected());
  }

  void ExpectNoSecondList(const std::vector<std::string_view>& lines) {
    std::unordered_map<std::string_view, std::size_t> earlier;
    std::size_t repeats = 0;
    std::size_t first = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
      if (earlier.emplace(lines[i], i + 1).second || ++repeats > 1) continue;
      first = i + 1;
    }
    const std::size_t rows = lines.size() - 1;
    if (repeats * kRowsForARepeat <= rows) return;
    m_line = first;
    Fail("the row of line " + std::to_string(earlier.at(lines[first - 1])) + " stands here again, as " +
         std::to_string(repeats) + " of " + std::to_string(rows) + " rows do: the list is in the file twice");
  }

  void ExpectWholeAlphabet(const std::vector<OfficialRow>& rows) {
    std::set<wchar_t> letters;
    for (const OfficialRow& row : rows) {
      for (const std::wstring* name : {&row.part, &row.postOffice, &row.district, &row.municipality}) {
        letters.insert(name->begin(), name->end());
      }
    }
    for (const wchar_t letter : kLettersOfALongList) {
      if (letters.contains(letter)) continue;
      m_line = rows.size() + 1;
      Fail("up to this last line there is no " + InApostrophes(std::wstring_view(&letter, 1)) + " in " +
           std::to_string(rows.size()) + " rows: the list has lost a letter");
    }
  }

  std::wstring Name(const std::wstring& field, const char* column) const {
    const std::string fault = NameFault(field);
    if (!fault.empty()) Fail(std::string(column) + " " + fault);
    if (field.front() == L' ' || field.back() == L' ') Fail(std::string(column) + " has a blank at its end");
    if (field.find(L"  ") != std::wstring::npos) Fail(std::string(column) + " has two blanks in a row");
    const std::string parenthesis = ParenthesisFault(field);
    if (!parenthesis.empty()) Fail(std::string(column) + " " + parenthesis);
    return field;
  }

  OfficialRow ParseRow(const std::wstring& line) const {
    std::vector<std::wstring> fields = SplitFields(line);
    if (fields.size() != kColumns) {
      Fail(std::to_string(kColumns) + " columns were expected, not " + std::to_string(fields.size()));
    }
    OfficialRow row;
    std::wstring& part = fields[0];
    const std::size_t mark = AliasMarkBegin(part);
    row.aliasMark = part.substr(mark);
    part.resize(mark);
    row.part = Name(part, "NAZCOBCE");
    const auto code = ParsePostalCode(fields[1]);
    if (!code) Fail("PSC " + InApostrophes(fields[1]) + " is no postal code of five digits");
    row.code = *code;
    if (row.code < kLowestCode || row.code > kHighestCode) {
      Fail("PSC " + InApostrophes(fields[1]) + " is not between " + std::to_string(kLowestCode) + " and " +
           std::to_string(kHighestCode));
    }
    row.postOffice = Name(fields[2], "NAZPOST");
    const auto districtCode = ParseDistrictCode(fields[3]);
    if (!districtCode) {
      Fail("KODOKRESU " + InApostrophes(fields[3]) + " is no district code from 0 to 32767");
    }
    row.districtCode = *districtCode;
    row.district = Name(fields[4], "NAZOKRESU");
    row.municipality = Name(fields[5], "NAZOBCE");
    return row;
  }

  template <class Key, class Value>
  void ExpectSame(std::map<Key, std::pair<Value, std::size_t>>& known, const Key& key, const Value& value,
                  const std::string& what) {
    const auto& [earlier, line] = known.try_emplace(key, value, m_line).first->second;
    if (earlier != value) Fail(what + " than in line " + std::to_string(line));
  }

  void CheckAgainstEarlier(const OfficialRow& row) {
    ExpectSame(m_postOffices, row.code, row.postOffice,
               "PSC " + ToUtf8(PostalCodeText(row.code)) + " has another post office");
    ExpectSame(m_districts, row.districtCode, row.district,
               "KODOKRESU " + std::to_string(row.districtCode) + " has another name");
    ExpectSame(m_districtCodes, row.district, row.districtCode,
               "the district " + ToUtf8(row.district) + " has another code");
  }

  std::string m_name;
  std::string_view m_text;
  std::size_t m_line = 1;
  std::map<std::int32_t, std::pair<std::wstring, std::size_t>> m_postOffices;
  std::map<std::int16_t, std::pair<std::wstring, std::size_t>> m_districts;
  std::map<std::wstring, std::pair<std::int16_t, std::size_t>> m_districtCodes;
};

}  // namespace

std::vector<OfficialRow> ReadOfficialList(const Bytes& list, const std::string& name) {
  return ListReader(list, name).Read();
}

}  // namespace kvez
