// Whether every municipality of the official list is found by whoever types its whole name, in the data files that the
// build makes. Which municipalities there are stands in municipalities.csv, with the codes of each.

#include <fstream>
#include <map>
#include <set>

#include "database/name_pattern.h"
#include "database/search_offer.h"
#include "platform/portable/portable_formats.h"
#include "tests/tool/tool_test.h"
#include "text/utf8.h"
#include "tools/lines.h"
#include "tools/loaded_database.h"
#include "tools/tables.h"

namespace kvez {
namespace {

using NameAndDistrict = std::pair<std::wstring, std::wstring>;

/// The third column of a table of the tests, by the first two.
std::map<NameAndDistrict, std::wstring> ReadByMunicipality(const char* name) {
  std::ifstream stream(std::string(KVEZ_SOURCE_DIR "/tests/tool/") + name, std::ios::binary);
  std::map<NameAndDistrict, std::wstring> rows;
  std::string line;
  std::getline(stream, line);
  while (std::getline(stream, line)) {
    const std::vector<std::wstring> fields = SplitFields(FromUtf8(line).value_or(L""));
    EXPECT_EQ(fields.size(), 3U) << line;
    if (fields.size() != 3) continue;
    EXPECT_TRUE(rows.emplace(NameAndDistrict(fields[0], fields[1]), fields[2]).second) << line;
  }
  return rows;
}

class MunicipalityNames : public testing::Test {
 protected:
  /// The names of the municipality's rows that a typed text finds: its codes in its district.
  std::vector<std::wstring> Found(const std::wstring& typed, const NameAndDistrict& municipality) {
    std::vector<std::wstring> names;
    const std::wstring codes = L" " + m_codes.at(municipality) + L" ";
    for (const tclspsc& row : Rows(typed)) {
      const bool isOfIt = codes.find(L" " + PostalCodeText(row.tpscPSC()) + L" ") != std::wstring::npos;
      if (isOfIt && row.tpscOkres() == municipality.second) names.push_back(row.tpscObec());
    }
    return names;
  }

  std::vector<tclspsc> Rows(const std::wstring& typed) {
    std::vector<tclspsc> rows;
    const auto pattern = ParseNamePattern(typed);
    if (!pattern) return rows;
    const MunicipalityList& list = m_data.Database().Municipalities();
    for (const tpclspsc& place : list.Keys().Find(*pattern)) {
      rows.push_back(list[static_cast<std::size_t>(place.tpPozice()) - 1]);
    }
    return rows;
  }

  /// What the status bar tells the user to try who has found nothing.
  std::wstring Offered(const std::wstring& typed) {
    const PostalDatabase& database = m_data.Database();
    PortableFormats formats;
    const std::wstring sentence =
        OfferAfter({EndedSearch::By::Name, typed, 0}, database.Municipalities(), database.PostOffices(), formats);
    const std::wstring_view opening = L"Nic nenalezeno. Zkuste ";
    if (!sentence.starts_with(opening)) return {};
    return sentence.substr(opening.size(), sentence.rfind(L" (") - opening.size());
  }

  const std::map<NameAndDistrict, std::wstring> m_codes = ReadByMunicipality("municipalities.csv");
  const std::map<NameAndDistrict, std::wstring> m_exceptions = ReadByMunicipality("municipalities_not_found.csv");
  LoadedDatabase m_data{KVEZ_DATA_FOLDER};
};

TEST_F(MunicipalityNames, EachIsFoundByItsWholeNameButForTheExceptions) {
  ASSERT_GT(m_codes.size(), 6000U);
  for (const auto& [municipality, codes] : m_codes) {
    const bool isFound = !Found(municipality.first, municipality).empty();
    EXPECT_EQ(isFound, !m_exceptions.contains(municipality))
        << ToUtf8(municipality.first + L";" + municipality.second)
        << (isFound ? " is found after all" : ";REASON is missing") << " in tests/tool/municipalities_not_found.csv";
  }
}

TEST_F(MunicipalityNames, ExceptionsAreMunicipalitiesAndHaveReasons) {
  for (const auto& [municipality, reason] : m_exceptions) {
    EXPECT_TRUE(m_codes.contains(municipality)) << ToUtf8(municipality.first);
    EXPECT_GT(reason.size(), 20U) << ToUtf8(municipality.first);
  }
}

TEST_F(MunicipalityNames, OfferLeadsToTheExceptions) {
  for (const auto& [municipality, reason] : m_exceptions) {
    const std::wstring& name = municipality.first;
    const std::wstring offered = Offered(name);
    bool isRead = false;
    for (const std::wstring& found : Found(offered, municipality)) isRead = isRead || found.starts_with(name);
    EXPECT_TRUE(isRead) << ToUtf8(name) << ": " << ToUtf8(offered);
  }
}

// Whoever types the beginning sees the name.
TEST_F(MunicipalityNames, EachIsReadWholeAmongThoseThatBeginLikeIt) {
  const MunicipalityList& list = m_data.Database().Municipalities();
  std::set<NameAndDistrict> read;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const std::wstring name = list[i].tpscObec();
    for (std::size_t length = 1; length <= name.size(); ++length) {
      const bool isWhole = length == name.size() || name[length] == L' ' || name[length] == L'-';
      if (isWhole) read.emplace(name.substr(0, length), list[i].tpscOkres());
    }
  }
  for (const auto& [municipality, codes] : m_codes) {
    EXPECT_TRUE(read.contains(municipality)) << ToUtf8(municipality.first + L", " + municipality.second);
  }
}

}  // namespace
}  // namespace kvez
