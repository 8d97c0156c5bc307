// kvezdata build: the project's tables become the program's data files.

#include "database/loose_ends.h"
#include "tools/commands.h"
#include "tools/data_file_bytes.h"
#include "tools/data_state.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// Rows that the program would show wrongly or not find, without any of the files being damaged.
std::string LooseEndsOf(const Tables& tables) {
  ListKeys<std::wstring_view> keys;
  for (const MunicipalityRow& row : tables.municipalities) keys.municipalities.emplace_back(row.code, row.district);
  for (const PostOfficeRow& row : tables.postOffices) keys.postOffices.push_back(row.code);
  for (const DistrictRow& row : tables.districts) keys.districts.push_back(row.name);
  const LooseEnds ends = keys.Count();
  return "municipalities without a post office: " + std::to_string(ends.municipalitiesWithoutPostOffice) +
         "\nmunicipalities in no listed district: " + std::to_string(ends.municipalitiesInNoDistrict) + "\n";
}

std::string Report(const Tables& tables, const std::vector<NewFile>& files) {
  std::string report;
  const auto add = [&report](std::size_t rows, const char* what, const NewFile& file) {
    report += Shown(file.path.filename()) + ": " + std::to_string(rows) + " " + what + ", " +
              std::to_string(file.bytes.size()) + " bytes\n";
  };
  add(tables.municipalities.size(), "municipalities", files[0]);
  add(tables.postOffices.size(), "post offices", files[1]);
  add(tables.districts.size(), "districts", files[2]);
  return report + LooseEndsOf(tables);
}

}  // namespace

void BuildCommand(const Arguments& arguments, std::ostream& out) {
  const std::filesystem::path tableFolder = PathArgument(arguments[0]);
  const std::filesystem::path folder = PathArgument(arguments[1]);
  FinishReplacement(tableFolder);
  const Tables tables = ReadTables(tableFolder);
  std::vector<NewFile> files = DataFiles(tables, folder);
  const std::optional<DataState> state = ReadDataState(tableFolder);
  if (state) {
    for (NewFile& file : files) file.time = state->FileTime();
  }
  // Made before anything is written: from then on nothing may fail any more but the output.
  const std::string report = Report(tables, files) + (state ? "state of the list: " + state->day + "\n" : "");
  MakeFolder(folder);
  ReplaceFiles(files);
  out << report;
}

}  // namespace kvez
