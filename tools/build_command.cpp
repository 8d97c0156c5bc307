// kvezdata build: the project's tables become the program's data files.

#include <algorithm>
#include <unordered_set>

#include "platform/portable/portable_path.h"
#include "platform/portable/szdd.h"
#include "tools/commands.h"
#include "tools/data_file_bytes.h"
#include "tools/tables.h"
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

/// Rows that the program would show wrongly or not find, without any of the files being damaged.
void PrintLooseEnds(const Tables& tables, std::ostream& out) {
  std::unordered_set<std::int32_t> codes;
  for (const PostOfficeRow& row : tables.postOffices) codes.insert(row.code);
  std::unordered_set<std::wstring> districts;
  for (const DistrictRow& row : tables.districts) districts.insert(row.name);
  const auto& rows = tables.municipalities;
  const auto without = [&](auto missing) { return std::count_if(rows.begin(), rows.end(), missing); };
  out << "municipalities without a post office: "
      << without([&](const MunicipalityRow& row) { return !codes.contains(row.code); }) << '\n'
      << "municipalities in no listed district: "
      << without([&](const MunicipalityRow& row) { return !districts.contains(row.district); }) << '\n';
}

}  // namespace

void BuildCommand(const Arguments& arguments, std::ostream& out) {
  const Tables tables = ReadTables(PathFromText(arguments[0]));
  const std::filesystem::path folder = PathFromText(arguments[1]);
  const std::vector<NewFile> files = {Compressed(folder / "vd1.kl_", MunicipalityBytes(tables.municipalities)),
                                      Compressed(folder / "vd2.kl_", PostOfficeBytes(tables.postOffices)),
                                      Compressed(folder / "vd3.kl_", DistrictBytes(tables.districts))};
  MakeFolder(folder);
  ReplaceFiles(files);
  const auto print = [&](std::size_t rows, const char* what, const NewFile& file) {
    out << Shown(file.path.filename()) << ": " << rows << ' ' << what << ", " << file.bytes.size() << " bytes\n";
  };
  print(tables.municipalities.size(), "municipalities", files[0]);
  print(tables.postOffices.size(), "post offices", files[1]);
  print(tables.districts.size(), "districts", files[2]);
  PrintLooseEnds(tables, out);
}

}  // namespace kvez
