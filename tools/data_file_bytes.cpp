#include "tools/data_file_bytes.h"

#include "database/data_files.h"
#include "platform/portable/portable_path.h"
#include "platform/portable/szdd.h"
#include "text/windows1250.h"
#include "tools/tool.h"

namespace kvez {
namespace {

NewFile Compressed(const std::filesystem::path& path, Bytes plain) {
  // The last letter of "vd1.bin".
  Bytes file = CompressSzdd(plain, 'n');
  return {path, std::move(file), [path, plain = std::move(plain)](const Bytes& back) {
            if (ExpandSzdd(back).bytes != plain) throw ToolError(Shown(path) + " does not expand to what went into it");
          }};
}

std::string DistrictOf(const MunicipalityRow& row) { return ToWindows1250(row.district); }
template <class Row>
std::string DistrictOf(const Row&) {
  return {};
}

template <class Row>
NewFile DataFileOf(const std::vector<Row>& rows, const DataFile& file, const std::filesystem::path& folder) {
  Bytes plain;
  for (const Row& row : rows) {
    const std::string name = ToWindows1250(row.name);
    const std::string district = DistrictOf(row);
    AppendRecord(plain, file.record, {row.code, name, district});
  }
  return Compressed(folder / PathFromText(std::wstring(file.Name())), std::move(plain));
}

}  // namespace

std::vector<NewFile> DataFiles(const Tables& tables, const std::filesystem::path& folder) {
  return {DataFileOf(tables.municipalities, kMunicipalityFile, folder),
          DataFileOf(tables.postOffices, kPostOfficeFile, folder), DataFileOf(tables.districts, kDistrictFile, folder)};
}

}  // namespace kvez
