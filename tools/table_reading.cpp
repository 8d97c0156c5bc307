// Reading of the project's three tables.

#include <limits>
#include <map>
#include <span>

#include "text/utf8.h"
#include "text/windows1250.h"
#include "tools/lines.h"
#include "tools/name_rules.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// One table, line by line. Throws ToolError with file and line.
class TableReader {
 public:
  TableReader(std::span<const std::uint8_t> table, const std::string& name, const TableFile& file) : m_name(name) {
    std::string_view text(reinterpret_cast<const char*>(table.data()), table.size());
    // Some editors mark UTF-8 files.
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    m_lines = SplitLines(text);
    m_columns = SplitFields(FromUtf8(file.heading).value()).size();
    if (m_lines.empty() || m_lines.front() != file.heading) {
      m_line = 1;
      Fail("the heading '" + std::string(file.heading) + "' was expected");
    }
  }

  /// The fields of the next row; false behind the last one.
  bool Next() {
    m_line = m_next + 1;
    if (m_next == m_lines.size()) {
      // An empty data file counts as damaged.
      if (m_next == 1) Fail("at least one row was expected");
      return false;
    }
    const auto line = FromUtf8(m_lines[m_next++]);
    if (!line) Fail("it is not UTF-8");
    m_fields = SplitFields(*line);
    if (m_fields.size() != m_columns) {
      Fail(std::to_string(m_columns) + " columns were expected, not " + std::to_string(m_fields.size()));
    }
    return true;
  }

  [[noreturn]] void Fail(const std::string& what) const { throw ToolError(AtLine(m_name, m_line) + what); }

  std::size_t Line() const { return m_line; }

  std::int32_t PostalCode(std::size_t column) const {
    const auto code = ParsePostalCode(m_fields[column]);
    if (!code) Fail(InApostrophes(m_fields[column]) + " is no postal code of five digits");
    return *code;
  }

  std::int16_t DistrictCode(std::size_t column) const {
    const auto code = ParseDistrictCode(m_fields[column]);
    if (!code) Fail(InApostrophes(m_fields[column]) + " is no district code from 0 to 32767");
    return *code;
  }

  std::wstring Name(std::size_t column) const {
    const std::wstring& name = m_fields[column];
    const std::string fault = NameFault(name);
    if (!fault.empty()) Fail("a name " + fault);
    if (name.size() > std::numeric_limits<std::uint16_t>::max()) Fail("a name is longer than 65535 letters");
    for (const wchar_t character : name) {
      if (!ToWindows1250(character)) {
        Fail(InApostrophes(std::wstring_view(&character, 1)) + " is no letter of Windows-1250");
      }
    }
    return name;
  }

 private:
  std::string m_name;
  std::vector<std::string_view> m_lines;
  std::vector<std::wstring> m_fields;
  std::size_t m_columns = 0;
  std::size_t m_next = 1;  // index of the next line; line numbers count from 1
  std::size_t m_line = 1;
};

/// Refuses a second row for the same code or name.
template <class Key>
class OnlyOnce {
 public:
  explicit OnlyOnce(const char* what) : m_what(what) {}

  void Add(const TableReader& reader, const Key& key) {
    const auto [earlier, added] = m_lines.emplace(key, reader.Line());
    if (added) return;
    reader.Fail(std::string("the ") + m_what + " has a row already, in line " + std::to_string(earlier->second));
  }

 private:
  const char* m_what;
  std::map<Key, std::size_t> m_lines;
};

}  // namespace

std::vector<MunicipalityRow> ParseMunicipalities(std::span<const std::uint8_t> table, const std::string& name) {
  std::vector<MunicipalityRow> rows;
  TableReader reader(table, name, kMunicipalityTable);
  while (reader.Next()) rows.push_back({reader.PostalCode(0), reader.Name(1), reader.Name(2)});
  return rows;
}

std::vector<PostOfficeRow> ParsePostOffices(std::span<const std::uint8_t> table, const std::string& name) {
  std::vector<PostOfficeRow> rows;
  TableReader reader(table, name, kPostOfficeTable);
  OnlyOnce<std::int32_t> once("code");
  while (reader.Next()) {
    rows.push_back({reader.PostalCode(0), reader.Name(1)});
    once.Add(reader, rows.back().code);
  }
  return rows;
}

std::vector<DistrictRow> ParseDistricts(std::span<const std::uint8_t> table, const std::string& name) {
  std::vector<DistrictRow> rows;
  TableReader reader(table, name, kDistrictTable);
  OnlyOnce<std::int16_t> codes("code");
  OnlyOnce<std::wstring> names("name");
  while (reader.Next()) {
    rows.push_back({reader.DistrictCode(0), reader.Name(1)});
    codes.Add(reader, rows.back().code);
    names.Add(reader, ComparedName(rows.back().name));
  }
  return rows;
}

Tables ReadTables(const std::filesystem::path& folder) {
  const auto read = [&folder](const TableFile& file, auto parse) {
    return parse(ReadWholeFile(folder / file.name), Shown(folder / file.name));
  };
  Tables tables;
  tables.municipalities = read(kMunicipalityTable, &ParseMunicipalities);
  tables.postOffices = read(kPostOfficeTable, &ParsePostOffices);
  tables.districts = read(kDistrictTable, &ParseDistricts);
  return tables;
}

}  // namespace kvez
