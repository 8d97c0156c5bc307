// kvezdata compare: what a renewed list has that the present one has not, and the other way round.

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "text/utf8.h"
#include "tools/commands.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

constexpr std::size_t kSamples = 5;
// Municipalities come and go by the dozen in years. A list that loses more is a damaged one, as a rule.
constexpr std::size_t kMostLostPercent = 3;
constexpr std::wstring_view kNoteOfAPart = L" (část)";

/// Of a row, what stays when a part gets a second code or loses it.
using RowKey = std::tuple<std::wstring, std::int32_t, std::wstring>;

std::set<RowKey> KeysOf(const std::vector<MunicipalityRow>& rows) {
  std::set<RowKey> keys;
  for (const MunicipalityRow& row : rows) {
    std::wstring name = row.name;
    if (name.ends_with(kNoteOfAPart)) name.resize(name.size() - kNoteOfAPart.size());
    keys.emplace(std::move(name), row.code, row.district);
  }
  return keys;
}

std::string Text(const RowKey& key) {
  return ToUtf8(PostalCodeText(std::get<1>(key)) + L";" + std::get<0>(key) + L";" + std::get<2>(key));
}

std::map<std::int32_t, std::wstring> OfficesOf(const Tables& tables) {
  std::map<std::int32_t, std::wstring> offices;
  for (const PostOfficeRow& row : tables.postOffices) offices.emplace(row.code, row.name);
  return offices;
}

std::set<std::wstring> DistrictsOf(const Tables& tables) {
  std::set<std::wstring> districts;
  for (const DistrictRow& row : tables.districts) districts.insert(row.name);
  return districts;
}

/// What `from` has and `to` has not.
template <class Key>
std::vector<Key> Without(const std::set<Key>& from, const std::set<Key>& to) {
  std::vector<Key> rest;
  std::set_difference(from.begin(), from.end(), to.begin(), to.end(), std::back_inserter(rest));
  return rest;
}

class Difference {
 public:
  Difference(const Tables& before, const Tables& now) : m_rows(before.municipalities.size()) {
    const std::set<RowKey> oldKeys = KeysOf(before.municipalities);
    const std::set<RowKey> newKeys = KeysOf(now.municipalities);
    Figure("rows", before.municipalities.size(), now.municipalities.size());
    Figure("post offices", before.postOffices.size(), now.postOffices.size());
    Figure("districts", before.districts.size(), now.districts.size());
    std::vector<std::string> gone;
    for (const RowKey& key : Without(oldKeys, newKeys)) gone.push_back(Text(key));
    m_gone = gone.size();
    Samples("rows gone", gone);
    std::vector<std::string> come;
    for (const RowKey& key : Without(newKeys, oldKeys)) come.push_back(Text(key));
    Samples("rows new", come);
    CompareOffices(OfficesOf(before), OfficesOf(now));
    for (const std::wstring& district : Without(DistrictsOf(before), DistrictsOf(now))) {
      m_lostDistricts.push_back(ToUtf8(district));
    }
    Samples("districts gone", m_lostDistricts);
  }

  const std::string& Report() const { return m_report; }

  void ExpectNoLoss() const {
    if (!m_lostDistricts.empty()) throw ToolError("the district " + m_lostDistricts.front() + " is lost" + kAnyway);
    if (m_gone * 100 <= m_rows * kMostLostPercent) return;
    throw ToolError(std::to_string(m_gone) + " of " + std::to_string(m_rows) + " rows are lost, more than " +
                    std::to_string(kMostLostPercent) + " %" + kAnyway);
  }

 private:
  static constexpr const char* kAnyway = "; with --anyway that is taken";

  void Figure(const char* what, std::size_t before, std::size_t now) {
    m_report += std::string(what) + ": " + std::to_string(before) + " before, " + std::to_string(now) + " now\n";
  }

  /// The figure, and rows from all over: of those in a row the first may be all alike.
  void Samples(const char* what, const std::vector<std::string>& all) {
    m_report += std::string(what) + ": " + std::to_string(all.size()) + "\n";
    const std::size_t count = std::min(all.size(), kSamples);
    for (std::size_t i = 0; i < count; ++i) m_report += "  " + all[i * all.size() / count] + "\n";
  }

  void CompareOffices(const std::map<std::int32_t, std::wstring>& before,
                      const std::map<std::int32_t, std::wstring>& now) {
    std::vector<std::string> renamed;
    std::vector<std::string> gone;
    std::vector<std::string> come;
    for (const auto& [code, name] : before) {
      const auto found = now.find(code);
      const std::string text = ToUtf8(PostalCodeText(code) + L";" + name);
      if (found == now.end()) {
        gone.push_back(text);
      } else if (found->second != name) {
        renamed.push_back(text + " is now " + ToUtf8(found->second));
      }
    }
    for (const auto& [code, name] : now) {
      if (!before.contains(code)) come.push_back(ToUtf8(PostalCodeText(code) + L";" + name));
    }
    Samples("codes gone", gone);
    Samples("codes new", come);
    Samples("post offices with another name", renamed);
  }

  std::size_t m_rows;
  std::size_t m_gone = 0;
  std::vector<std::string> m_lostDistricts;
  std::string m_report;
};

}  // namespace

void CompareCommand(const Arguments& arguments, std::ostream& out) {
  const std::filesystem::path before = PathArgument(arguments[0]);
  const std::filesystem::path now = PathArgument(arguments[1]);
  const bool anyway = arguments.size() == 3;
  if (anyway && arguments[2] != L"--anyway") {
    throw ToolError(InApostrophes(arguments[2]) + " is not understood; compare takes --anyway");
  }
  ExpectNoReplacement(before);
  ExpectNoReplacement(now);
  const Difference difference(ReadTables(before), ReadTables(now));
  out << difference.Report();
  if (!anyway) difference.ExpectNoLoss();
}

}  // namespace kvez
