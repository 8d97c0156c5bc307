// kvezdata check: reads the program's data files and says what is wrong with them.

#include <array>
#include <set>
#include <span>

#include "database/field_reader.h"
#include "platform/portable/portable_path.h"
#include "platform/portable/szdd.h"
#include "tools/commands.h"
#include "tools/files.h"
#include "tools/tool.h"

namespace kvez {
namespace {

enum class Field { Code32, Code16, Name, District };

struct Layout {
  const char* file;
  const char* records;
  std::span<const Field> fields;
};

constexpr std::array kMunicipalityFields = {Field::Code32, Field::Name, Field::District};
constexpr std::array kPostOfficeFields = {Field::Code32, Field::Name};
constexpr std::array kDistrictFields = {Field::Code16, Field::Name};
constexpr std::array<Layout, 3> kLayouts = {{{"vd1.kl_", "municipalities", kMunicipalityFields},
                                             {"vd2.kl_", "post offices", kPostOfficeFields},
                                             {"vd3.kl_", "districts", kDistrictFields}}};

struct Record {
  std::int32_t code = 0;
  std::string name;
  std::string district;
};

/// The records of one file. Throws ToolError with the place where it stops making sense.
class RecordReader {
 public:
  RecordReader(const std::filesystem::path& folder, const Layout& layout)
      : m_layout(layout),
        m_path(Shown(folder / layout.file)),
        m_bytes(ReadWholeFile(folder / layout.file)),
        m_compressed(IsSzdd(m_bytes)) {
    if (m_bytes.empty()) throw ToolError(m_path + ": offset 0: the file is empty; at least one record was expected");
    if (!m_compressed) return;
    SzddResult result = ExpandSzdd(m_bytes);
    if (!result.Ok()) {
      throw ToolError(m_path + ": offset " + std::to_string(result.offset) + ": " + result.error);
    }
    m_bytes = std::move(result.bytes);
    if (m_bytes.empty()) throw ToolError(m_path + ": offset 10: it declares 0 bytes; at least one record was expected");
  }

  std::vector<Record> Read() const {
    std::vector<Record> records;
    FieldReader reader(m_bytes);
    while (!reader.AtEnd()) records.push_back(ReadRecord(reader, records.size() + 1));
    return records;
  }

 private:
  Record ReadRecord(FieldReader& reader, std::size_t number) const {
    Record record;
    for (const Field field : m_layout.fields) {
      const std::uint64_t begin = reader.Position();
      switch (field) {
        case Field::Code32:
          record.code = reader.Int32();
          break;
        case Field::Code16:
          record.code = reader.Int16();
          break;
        case Field::Name:
          record.name = reader.CountedText();
          break;
        case Field::District:
          record.district = reader.CountedText();
          break;
      }
      if (reader.Overrun()) Fail(number, field, begin, reader);
    }
    return record;
  }

  [[noreturn]] void Fail(std::size_t number, Field field, std::uint64_t begin, const FieldReader& reader) const {
    const std::uint64_t left = reader.Length() - begin;
    const std::string name = field == Field::District ? "district name" : field == Field::Name ? "name" : "code";
    std::string expected;
    if (field == Field::Code32 || field == Field::Code16) {
      expected = "the " + name + " of " + std::to_string(reader.Position() - begin) + " bytes";
    } else if (left < 2) {
      expected = "the length of the " + name + " of 2 bytes";
    } else {
      expected = "the " + name + " of 2 + " + std::to_string(reader.Position() - begin - 2) + " bytes";
    }
    throw ToolError(m_path + ": offset " + std::to_string(begin) + (m_compressed ? " of the expanded data" : "") +
                    ": record " + std::to_string(number) + ": " + expected + " was expected where " +
                    std::to_string(left) + " bytes are left");
  }

  const Layout& m_layout;
  std::string m_path;
  Bytes m_bytes;
  bool m_compressed;
};

}  // namespace

void CheckCommand(const Arguments& arguments, std::ostream& out) {
  std::array<std::vector<Record>, kLayouts.size()> lists;
  std::string damage;
  for (std::size_t i = 0; i < kLayouts.size(); ++i) {
    try {
      lists[i] = RecordReader(PathFromText(arguments[0]), kLayouts[i]).Read();
      out << kLayouts[i].records << ": " << lists[i].size() << '\n';
    } catch (const ToolError& error) {
      damage.append(damage.empty() ? "" : "\n").append(error.what());
    }
  }
  // All three were looked at: whoever mends them wants to know of every one.
  if (!damage.empty()) throw ToolError(damage);

  std::set<std::int32_t> codes;
  for (const Record& office : lists[1]) codes.insert(office.code);
  std::set<std::string> districts;
  for (const Record& district : lists[2]) districts.insert(district.name);
  std::size_t withoutOffice = 0;
  std::size_t withoutDistrict = 0;
  for (const Record& municipality : lists[0]) {
    withoutOffice += codes.contains(municipality.code) ? 0U : 1U;
    withoutDistrict += districts.contains(municipality.district) ? 0U : 1U;
  }
  out << "municipalities without a post office: " << withoutOffice << '\n'
      << "municipalities in no listed district: " << withoutDistrict << '\n';
}

}  // namespace kvez
