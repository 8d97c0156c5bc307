// What the status bar offers after a search, on the postal list that the program is given to users with.

#include "database/search_offer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "database/name_pattern.h"
#include "platform/portable/portable_formats.h"
#include "text/utf8.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

/// The committed tables, in the program's own order.
class PostalList {
 public:
  PostalList() {
    ForEachRow("obce.csv", [this](std::int32_t code, const std::string& rest) {
      const std::size_t middle = rest.find(';');
      const std::string name = Bytes(rest.substr(0, middle));
      municipalities.push_back({code, name, Bytes(rest.substr(middle + 1))});
    });
    ForEachRow("posty.csv", [this](std::int32_t code, const std::string& rest) {
      tclsdodavaci office;
      office.tpPSC(code);
      office.tpDodavaci(FromWindows1250(Bytes(rest)));
      postOffices.push_back(office);
    });
  }

  MunicipalityList municipalities;
  std::vector<tclsdodavaci> postOffices;

 private:
  static std::string Bytes(const std::string& utf8) { return ToWindows1250(FromUtf8(utf8).value_or(L"")); }

  template <class Take>
  static void ForEachRow(const char* table, const Take& take) {
    std::ifstream stream(std::filesystem::path(KVEZ_SOURCE_DIR) / "data" / table, std::ios::binary);
    std::string line;
    std::getline(stream, line);
    while (std::getline(stream, line)) take(std::stoi(line), line.substr(line.find(';') + 1));
  }
};

/// As the program asks: the text is searched for, and how many it has found decides.
std::string OfferAfterName(const std::wstring& text) {
  static const PostalList list;
  PortableFormats formats;
  std::int32_t found = 0;
  if (!text.empty()) {
    if (const auto pattern = ParseNamePattern(text)) {
      found = static_cast<std::int32_t>(list.municipalities.Keys().Find(*pattern).size());
    }
  }
  return ToUtf8(OfferAfter({EndedSearch::By::Name, text, found}, list.municipalities, list.postOffices, formats));
}

std::string OfferAfterCode(const std::wstring& text) {
  PortableFormats formats;
  return ToUtf8(OfferAfter({EndedSearch::By::PostalCode, text, 0}, {}, {}, formats));
}

struct Typed {
  const wchar_t* text;
  const wchar_t* offer;
};

constexpr Typed kTyped[] = {
    // The part behind the last hyphen, unless the list has the whole by its parts.
    {L"Praha-Bohnice", L"Nic nenalezeno. Zkuste Bohnice (2 obce)."},
    {L"praha-bohnice", L"Nic nenalezeno. Zkuste bohnice (2 obce)."},
    {L"Praha - Bohnice", L"Nic nenalezeno. Zkuste Bohnice (2 obce)."},
    {L"Plzeň 4-Doubravka", L"Nic nenalezeno. Zkuste Doubravka (3 obce)."},
    {L"Brno-Líšeň", L"Nic nenalezeno. Zkuste Líšeň (2 obce)."},
    {L"Ostrava-Poruba", L"Nic nenalezeno. Zkuste Poruba (4 obce)."},
    {L"Praha-Žižkov", L"Nic nenalezeno. Zkuste Žižkov (4 obce)."},
    {L"Praha-Zizkov", L"Nic nenalezeno. Zkuste Praha* (191 obcí)."},
    {L"Praha-", L"Nic nenalezeno. Zkuste Praha* (191 obcí)."},
    {L"-", L""},
    {L"-Bohnice", L"Nic nenalezeno. Zkuste Bohnice (2 obce)."},
    {L"Praha-Bohnice-Bohnice", L"Nic nenalezeno. Zkuste Bohnice (2 obce)."},
    {L"Frýdek-Místek", L"Nic nenalezeno. Zkuste Frýdek* (3 obce)."},
    {L"frýdek-místek", L"Nic nenalezeno. Zkuste frýdek* (3 obce)."},
    {L"Frydek-Mistek", L"Nic nenalezeno. Zkuste Frýdek* (3 obce)."},
    {L"Brumov-Bylnice", L"Nic nenalezeno. Zkuste Brumov* (6 obcí)."},
    {L"Bynov-Děčín IX", L"Nic nenalezeno. Zkuste Bynov* (2 obce)."},
    {L"Ostrovec-Lhotka", L"Nic nenalezeno. Zkuste Ostrovec* (7 obcí)."},
    {L"Zdejcina-Beroun", L"Nic nenalezeno. Zkuste Zdejcina* (1 obec)."},
    {L"Zruč-Senec", L"Nic nenalezeno. Zkuste Zruč* (3 obce)."},
    // Its beginning, as names are compared.
    {L"Ústí nad", L"Nic nenalezeno. Zkuste Ústí nad* (5 obcí)."},
    {L"Plz", L"Nic nenalezeno. Zkuste Plz* (24 obcí)."},
    {L"Karlovy", L"Nic nenalezeno. Zkuste Karlovy* (1 obec)."},
    {L"Kolin", L"Nic nenalezeno. Zkuste Kolin* (1 obec)."},
    {L"Chc", L"Nic nenalezeno. Zkuste Chc* (1 obec)."},
    {L"Nová", L"Nic nenalezeno. Zkuste Nová* (151 obcí)."},
    {L"Praha 999", L"Nic nenalezeno. Zkuste Praha* (191 obcí)."},
    {L"Hutisko-Solanec", L"Nic nenalezeno. Zkuste Hutisko* (2 obce)."},
    {L"Praha (část)", L"Nic nenalezeno. Zkuste Praha* (191 obcí)."},
    {L"Praha IX", L"Nic nenalezeno. Zkuste Praha* (191 obcí)."},
    // The same letters with their diacritics; of several beginnings the one that most names have.
    {L"Plzen", L"Nic nenalezeno. Zkuste Plzeň* (24 obcí)."},
    {L"PLZEN", L"Nic nenalezeno. Zkuste Plzeň* (24 obcí)."},
    {L"Ceske Budejovice", L"Nic nenalezeno. Zkuste České Budějovice* (21 obcí)."},
    {L"Usti nad Labem", L"Nic nenalezeno. Zkuste Ústí nad Labem* (2 obce)."},
    {L"Ricany", L"Nic nenalezeno. Zkuste Říčany* (2 obce)."},
    {L"Zdar nad Sazavou", L"Nic nenalezeno. Zkuste Žďár nad Sázavou* (9 obcí)."},
    {L"Libesice", L"Nic nenalezeno. Zkuste Liběšice* (4 obce)."},
    {L"Zamberk", L"Nic nenalezeno. Zkuste Žamberk* (2 obce)."},
    {L"Plžen", L"Nic nenalezeno. Zkuste Plzeň* (24 obcí)."},
    // A post office. What ends in a number is not shortened when a post office has it.
    {L"Praha 1", L"Pošta Praha 1 má PSČ 110 00."},
    {L"praha 10", L"Pošta Praha 10 má PSČ 100 00."},
    {L"Brno 2", L"Pošta Brno 2 má PSČ 602 00."},
    {L"Frýdek-Místek 1", L"Pošta Frýdek-Místek 1 má PSČ 738 01."},
    {L"Adamov 1", L"Pošta Adamov 1 má PSČ 679 04."},
    {L"Albrechtice u Českého Těšína", L"Pošta Albrechtice u Českého Těšína má PSČ 735 43."},
    // Found, but its beginning finds much more.
    {L"Plzeň", L"Plzeň* najde 24 obcí."},
    {L"Chrast", L"Chrast* najde 14 obcí."},
    {L"Ves", L"Ves* najde 70 obcí."},
    {L"Týn", L"Týn* najde 24 obcí."},
    // Found, and well so.
    {L"Klášterec", L""},
    {L"Praha", L""},
    {L"Brno", L""},
    {L"Kolín", L""},
    {L"Lhota", L""},
    // Nothing, and no names.
    {L"Nikdekdesi", L""},
    {L"Plzen*", L""},
    {L"?lzen", L""},
    {L"*", L""},
    {L"", L""},
    {L"東京", L""},
    {L"Plzeň東", L""},
    {L"(část)", L""},
    {L"§", L""}};

TEST(SearchOffer, AfterANameIsTheFirstThatFindsSomething) {
  for (const auto& [text, offer] : kTyped) EXPECT_EQ(OfferAfterName(text), ToUtf8(offer)) << ToUtf8(text);
}

TEST(SearchOffer, AfterAPostalCodeSaysThatItHasFiveDigits) {
  const std::string sentence = "PSČ má pět číslic. Podle jeho začátku hledá světlemodré pole.";
  for (const wchar_t* shorter : {L"6", L"69", L"692", L"6920", L"692 0", L"0"}) {
    EXPECT_EQ(OfferAfterCode(shorter), sentence) << ToUtf8(shorter);
  }
  for (const wchar_t* fine : {L"69201", L"692 01", L"692-01", L"00000", L""}) {
    EXPECT_EQ(OfferAfterCode(fine), "") << ToUtf8(fine);
  }
}

}  // namespace
}  // namespace kvez
