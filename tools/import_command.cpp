// kvezdata import: the official list becomes the project's tables.

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <tuple>

#include "platform/collation.h"
#include "tools/commands.h"
#include "tools/name_rules.h"
#include "tools/official_list.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// Municipalities of one name lie in different districts.
using MunicipalityKey = std::pair<std::wstring, std::int16_t>;

constexpr wchar_t kHyphen = L'-';
constexpr std::wstring_view kPartNote = L" (část)";

bool HasHyphen(std::wstring_view name) { return name.find(kHyphen) != std::wstring_view::npos; }

/// Whether whoever looks for the municipality finds this row and reads the municipality's whole name in it (as in
/// Liberec, Liberec II-Nové Město, Brno-Líšeň). A name with a hyphen or a Roman number is looked for by what the search
/// leaves of it.
bool CarriesName(std::wstring_view name, std::wstring_view municipality) {
  return name.starts_with(municipality) && Finds(SearchedName(municipality), name);
}

/// How the rows are named that a municipality gets which none of its own carries.
enum class AddedName : std::uint8_t {
  None,
  WithPart,  // Praha-Bohnice (část)
  Plain      // Frýdek-Místek, since nobody writes Frýdek-Místek-Frýdek, nor Petřvald-Petřvald 1-Petřvald
};

/// The name in a form that `searched` finds. Where a number at its end makes the search cut it there, and not at the
/// hyphen, the list's own note for a part of a part ends that.
std::wstring Findable(const std::wstring& name, std::wstring_view searched) {
  const std::wstring noted = name + std::wstring(kPartNote);
  return !Finds(searched, name) && Finds(searched, noted) ? noted : name;
}

/// An alias is there so that its part is found by its own name: Bynov-Děčín IX, which the list has as Děčín IX-Bynov,
/// too.
std::wstring FindableAlias(const std::wstring& alias) {
  return Findable(alias, SearchedName(alias.substr(0, alias.find(kHyphen))));
}

struct ImportFigures {
  std::size_t rows = 0;
  std::size_t aliasMarks = 0;
  std::size_t notedAliases = 0;
  std::size_t municipalities = 0;
  std::size_t notCarried = 0;
  std::size_t addedWithPart = 0;
  std::size_t addedPlain = 0;
  std::size_t duplicates = 0;
};

class Importer {
 public:
  explicit Importer(const std::vector<OfficialRow>& list) : m_list(list) { m_figures.rows = list.size(); }

  void Run() {
    std::map<MunicipalityKey, bool> carried;
    for (const OfficialRow& row : m_list) {
      bool& isCarried = carried[KeyOf(row)];
      isCarried = isCarried || CarriesName(row.part, row.municipality);
    }
    m_figures.municipalities = carried.size();
    for (const auto& [municipality, isCarried] : carried) {
      m_figures.notCarried += isCarried ? 0U : 1U;
      m_added[municipality] = isCarried                       ? AddedName::None
                              : HasHyphen(municipality.first) ? AddedName::Plain
                                                              : AddedName::WithPart;
    }
    for (const OfficialRow& row : m_list) {
      AddedName& added = m_added.at(KeyOf(row));
      const bool namesBoth = HasHyphen(row.part) && row.part.find(row.municipality) != std::wstring::npos;
      if (added == AddedName::WithPart && namesBoth) added = AddedName::Plain;
    }
    for (const OfficialRow& row : m_list) AddRow(row);
  }

  const ImportFigures& Figures() const { return m_figures; }
  Tables& Result() { return m_tables; }

 private:
  static MunicipalityKey KeyOf(const OfficialRow& row) { return {row.municipality, row.districtCode}; }

  void AddRow(const OfficialRow& row) {
    std::wstring name = row.part;
    if (!row.aliasMark.empty()) {
      ++m_figures.aliasMarks;
      name = FindableAlias(name);
      if (name != row.part) ++m_figures.notedAliases;
    }
    if (!AddMunicipality(row, name)) ++m_figures.duplicates;
    // Nobody who looks for Praha would find it among its parts. The list itself does the same for Brno-Líšeň.
    const AddedName added = m_added.at(KeyOf(row));
    if (added == AddedName::WithPart &&
        AddMunicipality(row, Findable(row.municipality + kHyphen + row.part, row.municipality))) {
      ++m_figures.addedWithPart;
    }
    if (added == AddedName::Plain && AddMunicipality(row, row.municipality)) ++m_figures.addedPlain;
    if (m_codes.insert(row.code).second) m_tables.postOffices.push_back({row.code, row.postOffice});
    if (m_districts.insert(row.districtCode).second) m_tables.districts.push_back({row.districtCode, row.district});
  }

  /// False for a row that is there already.
  bool AddMunicipality(const OfficialRow& row, const std::wstring& name) {
    if (!m_known.emplace(row.code, name, row.district).second) return false;
    m_tables.municipalities.push_back({row.code, name, row.district});
    return true;
  }

  const std::vector<OfficialRow>& m_list;
  std::map<MunicipalityKey, AddedName> m_added;
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
  add("aliases written with \" (část)\" behind them", figures.notedAliases);
  add("municipalities", figures.municipalities);
  add("municipalities that no row of theirs carries by name", figures.notCarried);
  add("rows municipality-part added for them", figures.addedWithPart);
  add("rows municipality added for them", figures.addedPlain);
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
