// Any bytes as one of the three tables: they are refused with the line, or their rows give the same table again and a
// data file that the program loads as those rows.
//
// Input: a byte that says which of the three tables it is and whether a data file is made of it, too, which takes many
// times as long; then the table.

#include <string>
#include <string_view>

#include "database/record_layout.h"
#include "fuzz/require.h"
#include "platform/portable/szdd.h"
#include "text/utf8.h"
#include "text/windows1250.h"
#include "tools/data_file_bytes.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// The bytes of one file of TableFiles.
Bytes Written(const Tables& tables, std::size_t table) { return TableFiles(tables, "folder").at(table).bytes; }

/// The expanded bytes of one of the program's data files.
Bytes DataFile(const Tables& tables, std::size_t file) {
  const SzddResult expanded = ExpandSzdd(DataFiles(tables, "folder").at(file).bytes);
  Require(expanded.Ok(), "a data file expands");
  return expanded.bytes;
}

void ParseTable(Tables& tables, std::size_t table, const Bytes& bytes, const std::string& name) {
  if (table == 0) tables.municipalities = ParseMunicipalities(bytes, name);
  if (table == 1) tables.postOffices = ParsePostOffices(bytes, name);
  if (table == 2) tables.districts = ParseDistricts(bytes, name);
}

void CheckMunicipalities(const Tables& tables, FieldReader& reader) {
  for (const MunicipalityRow& row : tables.municipalities) {
    const RecordFields fields = ReadRecord(reader, kMunicipalityRecord);
    Require(fields.code == row.code && FromWindows1250(fields.name) == row.name &&
                FromWindows1250(fields.district) == row.district,
            "the data file has the municipality");
  }
}

void CheckPostOffices(const Tables& tables, FieldReader& reader) {
  for (const PostOfficeRow& row : tables.postOffices) {
    const RecordFields fields = ReadRecord(reader, kPostOfficeRecord);
    Require(fields.code == row.code && FromWindows1250(fields.name) == row.name, "the data file has the post office");
  }
}

void CheckDistricts(const Tables& tables, FieldReader& reader) {
  for (const DistrictRow& row : tables.districts) {
    const RecordFields fields = ReadRecord(reader, kDistrictRecord);
    Require(fields.code == row.code && FromWindows1250(fields.name) == row.name, "the data file has the district");
  }
}

void CheckDataFile(const Tables& tables, std::size_t table) {
  const Bytes file = DataFile(tables, table);
  FieldReader reader(file);
  constexpr void (*checks[])(const Tables&, FieldReader&) = {&CheckMunicipalities, &CheckPostOffices, &CheckDistricts};
  checks[table](tables, reader);
  Require(reader.AtEnd(), "the data file has no more than the rows");
}

void CheckTable(unsigned kind, const Bytes& bytes) {
  const std::size_t table = kind % 3;
  Tables tables;
  try {
    ParseTable(tables, table, bytes, "table");
  } catch (const ToolError& error) {
    Require(std::string_view(error.what()).starts_with("table: line "), "an error names the table and the line");
    return;
  }
  const Bytes written = Written(tables, table);
  Tables again;
  ParseTable(again, table, written, "written");
  Require(Written(again, table) == written, "what is written reads back");
  if (kind / 3 % 16 == 0) CheckDataFile(tables, table);
}

/// The tables are text in UTF-8.
void CheckText(std::string_view bytes) {
  const auto text = FromUtf8(bytes);
  if (text) Require(ToUtf8(*text) == bytes, "a text has one form in UTF-8");
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  kvez::CheckText({reinterpret_cast<const char*>(data) + 1, size - 1});
  kvez::CheckTable(data[0], kvez::Bytes(data + 1, data + size));
  return 0;
}
