// Any bytes as one of the three tables: they are refused with the line, or their rows give the same table again and a
// data file that the program loads as those rows.
//
// Input: a byte that says which of the three tables it is, then the table.

#include <string>
#include <string_view>

#include "database/field_reader.h"
#include "database/windows1250.h"
#include "fuzz/require.h"
#include "platform/portable/utf8.h"
#include "tools/data_file_bytes.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// The bytes of one file of TableFiles.
Bytes Written(const Tables& tables, std::size_t table) { return TableFiles(tables, "folder").at(table).bytes; }

void CheckMunicipalities(const Bytes& table) {
  Tables tables;
  tables.municipalities = ParseMunicipalities(table, "table");
  Require(ParseMunicipalities(Written(tables, 0), "written") == tables.municipalities, "what is written reads back");
  const Bytes file = MunicipalityBytes(tables.municipalities);
  FieldReader reader(file);
  for (const MunicipalityRow& row : tables.municipalities) {
    const MunicipalityFields fields = ReadMunicipality(reader);
    Require(fields.code == row.code && FromWindows1250(fields.name) == row.name &&
                FromWindows1250(fields.district) == row.district,
            "the data file has the row");
  }
  Require(reader.AtEnd(), "the data file has no more than the rows");
}

void CheckPostOffices(const Bytes& table) {
  Tables tables;
  tables.postOffices = ParsePostOffices(table, "table");
  Require(ParsePostOffices(Written(tables, 1), "written") == tables.postOffices, "what is written reads back");
  const Bytes file = PostOfficeBytes(tables.postOffices);
  FieldReader reader(file);
  for (const PostOfficeRow& row : tables.postOffices) {
    const PostOfficeFields fields = ReadPostOffice(reader);
    Require(fields.code == row.code && FromWindows1250(fields.name) == row.name, "the data file has the row");
  }
  Require(reader.AtEnd(), "the data file has no more than the rows");
}

void CheckDistricts(const Bytes& table) {
  Tables tables;
  tables.districts = ParseDistricts(table, "table");
  Require(ParseDistricts(Written(tables, 2), "written") == tables.districts, "what is written reads back");
  const Bytes file = DistrictBytes(tables.districts);
  FieldReader reader(file);
  for (const DistrictRow& row : tables.districts) {
    const DistrictFields fields = ReadDistrict(reader);
    Require(fields.code == row.code && FromWindows1250(fields.name) == row.name, "the data file has the row");
  }
  Require(reader.AtEnd(), "the data file has no more than the rows");
}

void CheckTable(unsigned kind, const Bytes& table) {
  constexpr void (*checks[])(const Bytes&) = {&CheckMunicipalities, &CheckPostOffices, &CheckDistricts};
  try {
    checks[kind % 3](table);
  } catch (const ToolError& error) {
    Require(std::string_view(error.what()).starts_with("table: line "), "an error names the table and the line");
  }
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
