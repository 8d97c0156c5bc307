// kvezdata import: the official list becomes the project's tables.

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <tuple>

#include "platform/collation.h"
#include "tools/commands.h"
#include "tools/official_list.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// Municipalities of one name lie in different districts.
using MunicipalityKey = std::pair<std::wstring, std::int16_t>;

/// Whether whoever looks for the municipality finds this row: its name begins with the municipality's own, whole (as
/// in Liberec, Liberec II-Nové Město, Brno-Líšeň, Ruzyně (část)), and not just with the same letters.
bool CarriesName(std::wstring_view name, std::wstring_view municipality) {
  if (!name.starts_with(municipality)) return false;
  name.remove_prefix(municipality.size());
  return name.empty() || name.front() == L' ' || name.front() == L'-';
}

struct ImportFigures {
  std::size_t rows = 0;
  std::size_t aliasMarks = 0;
  std::size_t municipalities = 0;
  std::size_t listedByParts = 0;
  std::size_t added = 0;
  std::size_t duplicates = 0;
};

class Importer {
 public:
  explicit Importer(const std::vector<OfficialRow>& list) : m_list(list) { m_figures.rows = list.size(); }

  void Run() {
    for (const OfficialRow& row : m_list) {
      bool& carried = m_nameCarried[{row.municipality, row.districtCode}];
      carried = carried || CarriesName(row.part, row.municipality);
    }
    m_figures.municipalities = m_nameCarried.size();
    for (const auto& [municipality, carried] : m_nameCarried) m_figures.listedByParts += carried ? 0U : 1U;
    for (const OfficialRow& row : m_list) AddRow(row);
  }

  const ImportFigures& Figures() const { return m_figures; }
  Tables& Result() { return m_tables; }

 private:
  void AddRow(const OfficialRow& row) {
    if (row.alias) ++m_figures.aliasMarks;
    AddMunicipality(row, row.part);
    // Nobody who looks for Praha would find it among its parts. The list itself does the same for Brno-Líšeň.
    if (!m_nameCarried.at({row.municipality, row.districtCode})) {
      ++m_figures.added;
      AddMunicipality(row, row.municipality + L"-" + row.part);
    }
    if (m_codes.insert(row.code).second) m_tables.postOffices.push_back({row.code, row.postOffice});
    if (m_districts.insert(row.districtCode).second) m_tables.districts.push_back({row.districtCode, row.district});
  }

  void AddMunicipality(const OfficialRow& row, const std::wstring& name) {
    if (m_known.emplace(row.code, name, row.district).second) {
      m_tables.municipalities.push_back({row.code, name, row.district});
    } else {
      ++m_figures.duplicates;
    }
  }

  const std::vector<OfficialRow>& m_list;
  std::map<MunicipalityKey, bool> m_nameCarried;
  std::set<std::tuple<std::int32_t, std::wstring, std::wstring>> m_known;
  std::set<std::int32_t> m_codes;
  std::set<std::int16_t> m_districts;
  Tables m_tables;
  ImportFigures m_figures;
};

void SortAsCzech(Tables& tables) {
  try {
    Sort(tables, *CreateCzechCollation());
  } catch (const std::runtime_error&) {
    throw ToolError("this machine cannot sort as Czech sorts");
  }
}

/// What the import did, line by line.
std::string Report(const ImportFigures& figures, const Tables& tables) {
  std::string report;
  const auto add = [&report](const char* what, std::size_t figure, const char* unit = "") {
    report.append(what).append(": ").append(std::to_string(figure)).append(unit).append("\n");
  };
  add("rows of the list", figures.rows);
  add("alias marks \" x)\" removed", figures.aliasMarks);
  add("municipalities", figures.municipalities);
  add("municipalities without a row of their own name", figures.listedByParts);
  add("rows municipality-part added for them", figures.added);
  add("exact duplicates removed", figures.duplicates);
  add(kMunicipalityTable.name, tables.municipalities.size(), " rows");
  add(kPostOfficeTable.name, tables.postOffices.size(), " rows");
  add(kDistrictTable.name, tables.districts.size(), " rows");
  return report;
}

}  // namespace

void ImportCommand(const Arguments& arguments, std::ostream& out) {
  const std::filesystem::path listPath = PathArgument(arguments[0]);
  const std::filesystem::path folder = PathArgument(arguments[1]);
  const std::vector<OfficialRow> list = ReadOfficialList(ReadWholeFile(listPath), Shown(listPath));
  Importer importer(list);
  importer.Run();
  Tables& tables = importer.Result();
  SortAsCzech(tables);
  // Made before anything is written: from then on nothing may fail any more but the output.
  const std::string report = Report(importer.Figures(), tables);
  const std::vector<NewFile> files = TableFiles(tables, folder);
  MakeFolder(folder);
  ReplaceFiles(files);
  out << report;
}

}  // namespace kvez
