// kvezdata check: reads the program's data files and says what is wrong with them.

#include <array>
#include <map>
#include <string_view>

#include "database/data_files.h"
#include "database/loose_ends.h"
#include "platform/portable/portable_path.h"
#include "platform/portable/szdd.h"
#include "text/windows1250.h"
#include "tools/commands.h"
#include "tools/files.h"
#include "tools/name_rules.h"
#include "tools/tool.h"

namespace kvez {
namespace {

struct List {
  const DataFile& file;
  const char* records;
};

constexpr std::array<List, 3> kLists = {
    {{kMunicipalityFile, "municipalities"}, {kPostOfficeFile, "post offices"}, {kDistrictFile, "districts"}}};

constexpr std::int32_t kGreatestCode = 99999;

struct Record {
  std::int32_t code = 0;
  std::string name;
  std::string district;
};

/// The records of one file. Throws ToolError with the place where it stops making sense.
class RecordReader {
 public:
  RecordReader(const std::filesystem::path& path, RecordLayout layout)
      : m_layout(layout), m_path(Shown(path)), m_bytes(ReadWholeFile(path)), m_compressed(IsSzdd(m_bytes)) {
    if (m_bytes.empty()) throw ToolError(m_path + ": offset 0: the file is empty; at least one record was expected");
    if (!m_compressed) return;
    SzddResult result = ExpandSzdd(m_bytes);
    if (!result.Ok()) {
      throw ToolError(m_path + ": offset " + std::to_string(result.offset) + ": " + result.error);
    }
    m_bytes = std::move(result.bytes);
    if (m_bytes.empty())
      throw ToolError(m_path + ": offset " + std::to_string(kSzddLengthOffset) +
                      ": it declares 0 bytes; at least one record was expected");
  }

  std::vector<Record> Read() const {
    std::vector<Record> records;
    FieldReader reader(m_bytes);
    while (!reader.AtEnd()) records.push_back(ReadRecord(reader, records.size() + 1));
    return records;
  }

 private:
  Record ReadRecord(FieldReader& reader, std::size_t number) const {
    RecordFields record;
    for (const Field field : m_layout) {
      const std::uint64_t begin = reader.Position();
      ReadField(reader, field, record);
      if (reader.Overrun()) FailAtEnd(number, field, begin, reader);
      const std::string fault = ValueFault(record, field);
      if (!fault.empty()) Fail(number, begin, "the " + std::string(NameOf(field)) + " " + fault);
    }
    return {record.code, std::string(record.name), std::string(record.district)};
  }

  static std::string_view NameOf(Field field) {
    return field == Field::District ? "district name" : field == Field::Name ? "name" : "code";
  }

  /// What the program would take as it is, but nobody could have meant.
  static std::string ValueFault(const RecordFields& record, Field field) {
    if (field == Field::Name) return NameFault(FromWindows1250(record.name));
    if (field == Field::District) return NameFault(FromWindows1250(record.district));
    if (record.code >= 0 && record.code <= kGreatestCode) return {};
    return std::to_string(record.code) + " is not from 0 to " + std::to_string(kGreatestCode);
  }

  [[noreturn]] void Fail(std::size_t number, std::uint64_t offset, const std::string& what) const {
    throw ToolError(m_path + ": offset " + std::to_string(offset) + (m_compressed ? " of the expanded data" : "") +
                    ": record " + std::to_string(number) + ": " + what);
  }

  [[noreturn]] void FailAtEnd(std::size_t number, Field field, std::uint64_t begin, const FieldReader& reader) const {
    const std::uint64_t left = reader.Length() - begin;
    const std::string name(NameOf(field));
    std::string expected;
    if (field == Field::Code32 || field == Field::Code16) {
      expected = "the " + name + " of " + std::to_string(reader.Position() - begin) + " bytes";
    } else if (left < 2) {
      expected = "the length of the " + name + " of 2 bytes";
    } else {
      expected = "the " + name + " of 2 + " + std::to_string(reader.Position() - begin - 2) + " bytes";
    }
    Fail(number, begin, expected + " was expected where " + std::to_string(left) + " bytes are left");
  }

  RecordLayout m_layout;
  std::string m_path;
  Bytes m_bytes;
  bool m_compressed;
};

using Lists = std::array<std::vector<Record>, kLists.size()>;

/// Refuses a district that has two codes: the program would list it twice, each time with the municipalities of both.
void ExpectOneCodeADistrict(const std::vector<Record>& districts, const std::string& path) {
  std::map<std::wstring, std::pair<std::int32_t, std::size_t>> known;
  std::size_t number = 0;
  for (const Record& district : districts) {
    ++number;
    const std::wstring name = FromWindows1250(district.name);
    const auto& [code, record] = known.try_emplace(ComparedName(name), district.code, number).first->second;
    if (code == district.code) continue;
    throw ToolError(path + ": record " + std::to_string(number) + ": the district " + InApostrophes(name) +
                    " has another code than in record " + std::to_string(record));
  }
}

Lists ReadLists(const std::filesystem::path& folder, std::ostream& out) {
  Lists lists;
  std::string damage;
  for (std::size_t i = 0; i < kLists.size(); ++i) {
    const DataFile& file = kLists[i].file;
    const std::filesystem::path path = folder / PathFromText(std::wstring(file.Name()));
    try {
      lists[i] = RecordReader(path, file.record).Read();
      if (&file == &kDistrictFile) ExpectOneCodeADistrict(lists[i], Shown(path));
      out << kLists[i].records << ": " << lists[i].size() << '\n';
    } catch (const ToolError& error) {
      damage.append(damage.empty() ? "" : "\n").append(error.what());
    }
  }
  // All three were looked at: whoever mends them wants to know of every one.
  if (!damage.empty()) throw ToolError(damage);
  return lists;
}

/// What does not hang together: a municipality that is shown without its post office or found in no district, and what
/// no municipality leads to, which files of different times have.
std::size_t PrintLooseEnds(const Lists& lists, std::ostream& out) {
  const auto& [municipalities, offices, districts] = lists;
  ListKeys<std::string_view> keys;
  for (const Record& record : municipalities) keys.municipalities.emplace_back(record.code, record.district);
  for (const Record& record : offices) keys.postOffices.push_back(record.code);
  for (const Record& record : districts) keys.districts.push_back(record.name);
  const LooseEnds ends = keys.Count();
  out << "municipalities without a post office: " << ends.municipalitiesWithoutPostOffice
      << "\nmunicipalities in no listed district: " << ends.municipalitiesInNoDistrict
      << "\npost offices without a municipality: " << ends.postOfficesWithoutMunicipality
      << "\ndistricts without a municipality: " << ends.districtsWithoutMunicipality << '\n';
  return ends.All();
}

}  // namespace

void CheckCommand(const Arguments& arguments, std::ostream& out) {
  const bool isStrict = arguments.size() == 2;
  if (isStrict && arguments[1] != L"--strict") {
    throw ToolError(InApostrophes(arguments[1]) + " is not understood; check takes --strict");
  }
  const std::filesystem::path folder = PathArgument(arguments[0]);
  ExpectNoReplacement(folder);
  const Lists lists = ReadLists(folder, out);
  if (PrintLooseEnds(lists, out) > 0 && isStrict) {
    throw ToolError("the files in " + Shown(folder) + " do not belong together");
  }
}

}  // namespace kvez
