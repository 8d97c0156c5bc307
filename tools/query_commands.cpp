// kvezdata list and search: what the program itself would load and find.

#include <new>

#include "text/error.h"
#include "text/fold.h"
#include "text/utf8.h"
#include "tools/commands.h"
#include "tools/loaded_database.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// A list box that nobody sees.
class NoListBox : public ListBox {
 public:
  void Clear() override {}
  void BeginFill(std::size_t, std::size_t) override {}
  void EndFill() override {}
  void AddRow(std::wstring_view, std::int32_t) override {}
  int TextWidth(std::wstring_view) override { return 0; }
  void SetHorizontalExtent(int) override {}
};

void ListMunicipalities(const PostalDatabase& database, std::ostream& out) {
  const MunicipalityList& list = database.Municipalities();
  for (std::size_t i = 0; i < list.size(); ++i) {
    const tclspsc row = list[i];
    out << ToUtf8(PostalCodeText(row.tpscPSC()) + L";" + row.tpscObec() + L";" + row.tpscOkres()) << '\n';
  }
}

void ListPostOffices(const PostalDatabase& database, std::ostream& out) {
  for (const tclsdodavaci& row : database.PostOffices()) {
    out << ToUtf8(PostalCodeText(row.tpPSC()) + L";" + row.tpDodavaci()) << '\n';
  }
}

void ListDistricts(const PostalDatabase& database, std::ostream& out) {
  for (const tclsokresy& row : database.Districts()) {
    out << ToUtf8(std::to_wstring(row.tpscoKod()) + L";" + row.tpscoOkres()) << '\n';
  }
}

/// The 1-based index of a district by its name, without regard to case.
std::int32_t DistrictIndex(const PostalDatabase& database, const std::wstring& name) {
  std::int32_t index = 0;
  for (const tclsokresy& row : database.Districts()) {
    ++index;
    if (EqualIgnoringCase(row.tpscoOkres(), name)) return index;
  }
  throw ToolError("there is no district " + InApostrophes(name));
}

std::wstring Search(PostalDatabase& database, const Arguments& arguments) {
  const std::wstring& kind = arguments[1];
  const std::wstring& text = arguments[2];
  const bool exact = arguments.size() == 4;
  NoListBox list;
  std::wstring description;
  if (kind == L"psc") {
    try {
      database.pscNajdiPSC(exact, text, list, description);
    } catch (const ConversionError&) {
      // The program's own text quotes what it has made of the code.
      throw ToolError(InApostrophes(text) + " is no postal code");
    }
  } else if (kind == L"name") {
    database.pscVyberPostu(text, list, description);
  } else {
    database.pscoDetail(text.empty() ? 0 : DistrictIndex(database, text));
    database.pscoVyberPostu(list, description);
  }
  if (description == kOutOfMemory) throw std::bad_alloc();
  return description;
}

}  // namespace

void ListCommand(const Arguments& arguments, std::ostream& out) {
  void (*print)(const PostalDatabase&, std::ostream&) = arguments[1] == L"municipalities" ? &ListMunicipalities
                                                        : arguments[1] == L"offices"      ? &ListPostOffices
                                                        : arguments[1] == L"districts"    ? &ListDistricts
                                                                                          : nullptr;
  if (print == nullptr) {
    throw ToolError("there is no list " + InApostrophes(arguments[1]) + ", only municipalities, offices and districts");
  }
  LoadedDatabase loaded(PathArgument(arguments[0]));
  print(loaded.Database(), out);
}

void SearchCommand(const Arguments& arguments, std::ostream& out) {
  const std::wstring& kind = arguments[1];
  if (kind != L"name" && kind != L"psc" && kind != L"district") {
    throw ToolError("there is no search " + InApostrophes(kind) + ", only name, psc and district");
  }
  if (arguments.size() == 4 && (kind != L"psc" || arguments[3] != L"--exact")) {
    throw ToolError(InApostrophes(arguments[3]) + " is not understood; only search DIR psc TEXT takes --exact");
  }
  LoadedDatabase loaded(PathArgument(arguments[0]));
  PostalDatabase& database = loaded.Database();
  const std::wstring description = Search(database, arguments);
  loaded.Messages().ThrowIfAny();
  out << ToUtf8(description) << '\n' << ToUtf8(database.pVybran()) << '\n';
  const std::int32_t count = database.pCelkem();
  for (std::int32_t i = 1; i <= count; ++i) {
    database.pDetail(i);
    out << ToUtf8(database.pscPSC() + L" ; " + database.pscDodavaci() + L" ; " + database.pscObec() + L" ; " +
                  database.pscOkres())
        << '\n';
  }
}

}  // namespace kvez
