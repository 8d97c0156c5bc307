#include "tools/official_list.h"

#include <map>
#include <string_view>

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
constexpr std::wstring_view kAliasMark = L" x)";
constexpr std::wstring_view kCzechLetters = L"áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ";

class ListReader {
 public:
  ListReader(const Bytes& list, const std::string& name)
      : m_name(name), m_text(reinterpret_cast<const char*>(list.data()), list.size()) {}

  std::vector<OfficialRow> Read() {
    const std::vector<std::string_view> lines = SplitLines(m_text);
    m_line = 1;
    if (lines.empty()) Fail("the heading '" + std::string(kHeading) + "' was expected");
    std::vector<OfficialRow> rows;
    rows.reserve(lines.size());
    for (const std::string_view line : lines) {
      const std::wstring text = Decode(line);
      if (m_line > 1) {
        rows.push_back(ParseRow(text));
        CheckAgainstEarlier(rows.back());
      } else if (line != kHeading) {
        Fail("the heading '" + std::string(kHeading) + "' was expected");
      }
      ++m_line;
    }
    if (rows.empty()) Fail("at least one row was expected");
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

  std::wstring Name(const std::wstring& field, const char* column) const {
    const std::string fault = NameFault(field);
    if (!fault.empty()) Fail(std::string(column) + " " + fault);
    if (field.front() == L' ' || field.back() == L' ') Fail(std::string(column) + " has a blank at its end");
    return field;
  }

  OfficialRow ParseRow(const std::wstring& line) const {
    std::vector<std::wstring> fields = SplitFields(line);
    if (fields.size() != kColumns) {
      Fail(std::to_string(kColumns) + " columns were expected, not " + std::to_string(fields.size()));
    }
    OfficialRow row;
    std::wstring& part = fields[0];
    row.alias = part.ends_with(kAliasMark);
    if (row.alias) part.resize(part.size() - kAliasMark.size());
    row.part = Name(part, "NAZCOBCE");
    const auto code = ParsePostalCode(fields[1]);
    if (!code) Fail("PSC " + InApostrophes(fields[1]) + " is no postal code of five digits");
    row.code = *code;
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
