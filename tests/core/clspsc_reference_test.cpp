// The fast searches and cursors against the plain ones, on random lists with fixed seeds. The alphabets are small and
// full of the characters that rules hang on, so that every rule is met thousands of times.

#include <gtest/gtest.h>

#include <random>

#include "database/name_normalisation.h"
#include "tests/core/loaded_database.h"
#include "tests/core/reference.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;

class Random {
 public:
  explicit Random(std::uint32_t seed) : m_engine(seed) {}

  // Not a standard distribution: those differ between libraries.
  std::size_t Below(std::size_t limit) { return m_engine() % limit; }
  std::int32_t Between(std::int32_t least, std::int32_t greatest) {
    return least + static_cast<std::int32_t>(Below(static_cast<std::size_t>(greatest - least) + 1));
  }
  std::wstring Text(const std::wstring& alphabet, std::size_t longest) {
    std::wstring text(Below(longest + 1), L' ');
    for (wchar_t& character : text) character = alphabet[Below(alphabet.size())];
    return text;
  }

 private:
  std::mt19937 m_engine;
};

struct Lists {
  std::vector<reference::Municipality> municipalities;
  std::vector<reference::PostOffice> postOffices;

  void LoadInto(LoadedDatabase& loaded) const {
    for (const auto& m : municipalities) fakes::AppendMunicipality(loaded.municipalityFile, m.code, m.name, m.district);
    for (const auto& p : postOffices) fakes::AppendPostOffice(loaded.postOfficeFile, p.code, p.name);
    loaded.Load();
  }
};

/// Municipalities from 1 on, post offices from 0 on; codes around the same few values.
Lists RandomLists(Random& random, std::size_t municipalities, std::size_t postOffices, const std::wstring& alphabet) {
  Lists lists;
  for (std::size_t i = 0; i < municipalities; ++i) {
    lists.municipalities.push_back({random.Between(-3, 130), random.Text(alphabet, 8), random.Text(L"abAB", 2)});
  }
  for (std::size_t i = 0; i < postOffices; ++i) {
    lists.postOffices.push_back({random.Between(-3, 130), L"Pošta " + std::to_wstring(i)});
  }
  return lists;
}

std::vector<std::int32_t> Result(clspsc& database) {
  std::vector<std::int32_t> positions;
  for (std::int32_t i = 1; i <= database.pCelkem(); ++i) {
    database.pDetail(i);
    positions.push_back(database.pscPozice());
  }
  return positions;
}

TEST(Reference, NormalisationOfRandomNames) {
  Random random(1);
  for (int round = 0; round < 100000; ++round) {
    const std::wstring name = random.Text(L"ab IVX-1230(", 9);
    ASSERT_EQ(FromWindows1250(NormalisedName(ToWindows1250(name))), reference::Normalised(name)) << ToWindows1250(name);
  }
}

void CompareNameSearches(std::uint32_t seed, const std::wstring& names, const std::wstring& patterns) {
  Random random(seed);
  const Lists lists = RandomLists(random, 600, 5, names);
  LoadedDatabase loaded;
  lists.LoadInto(loaded);
  std::vector<std::wstring> normalised;
  for (const auto& m : lists.municipalities) normalised.push_back(reference::Normalised(m.name));
  std::size_t matches = 0;
  for (int round = 0; round < 500; ++round) {
    const std::wstring typed = random.Text(patterns, 5);
    std::vector<std::int32_t> expected;
    for (std::size_t i = 0; i < normalised.size(); ++i) {
      if (typed.empty() || reference::IsRefused(typed) || !reference::Matches(normalised[i], typed)) continue;
      expected.push_back(static_cast<std::int32_t>(i) + 1);
    }
    loaded.database.pscVyberPostu(typed, loaded.list, loaded.description);
    ASSERT_EQ(Result(loaded.database), expected) << ToWindows1250(typed);
    matches += expected.size();
  }
  EXPECT_GT(matches, 1000U);  // the patterns do meet the names
}

TEST(Reference, NameSearchOfTheDigraph) { CompareNameSearches(2, L"chCHo", L"chC*?"); }
TEST(Reference, NameSearchOfFewLetters) { CompareNameSearches(3, L"abAB", L"abB**"); }
TEST(Reference, NameSearchOfLettersWithDiacritics) { CompareNameSearches(4, L"čČžcC", L"čžŽcC*?"); }
TEST(Reference, NameSearchOfNumberedNames) { CompareNameSearches(5, L"ab IX-1(", L"ab I*-"); }

TEST(Reference, NameSearchOfLongNames) {
  // Names of up to 300 characters: occurrences at every distance from the beginning and the end of a name.
  Random random(6);
  Lists lists;
  for (int i = 0; i < 400; ++i) lists.municipalities.push_back({1, random.Text(L"chaaaaaaaaaa", 300), L""});
  LoadedDatabase loaded;
  lists.LoadInto(loaded);
  for (const wchar_t* typed :
       {L"*ch*", L"*hc*", L"*hac*", L"*haaaaaaa*", L"*cc*", L"*aaaaaaaaaaaaaaac*", L"*h*", L"*c*"}) {
    std::vector<std::int32_t> expected;
    for (std::size_t i = 0; i < lists.municipalities.size(); ++i) {
      if (reference::Matches(lists.municipalities[i].name, typed)) expected.push_back(static_cast<std::int32_t>(i) + 1);
    }
    EXPECT_GT(expected.size(), 0U);
    loaded.database.pscVyberPostu(typed, loaded.list, loaded.description);
    EXPECT_EQ(Result(loaded.database), expected) << ToWindows1250(typed);
  }
}

TEST(Reference, BeginningsOfCodes) {
  Random random(7);
  const Lists lists = RandomLists(random, 500, 5, L"ab");
  LoadedDatabase loaded;
  lists.LoadInto(loaded);
  for (std::int32_t code = -20; code <= 1400; ++code) {
    const std::wstring typed = std::to_wstring(code);
    std::vector<std::int32_t> expected;
    for (std::size_t i = 0; i < lists.municipalities.size(); ++i) {
      if (reference::CodeBeginsWith(lists.municipalities[i].code, typed)) {
        expected.push_back(static_cast<std::int32_t>(i) + 1);
      }
    }
    loaded.database.pscNajdiPSC(false, typed, loaded.list, loaded.description);
    ASSERT_EQ(Result(loaded.database), expected) << code;
  }
}

void ExpectSame(const clspsc& database, const reference::Cursor& cursor) {
  ASSERT_EQ(database.pscPozice(), cursor.position);
  ASSERT_EQ(database.pscObec(), cursor.name);
  ASSERT_EQ(database.pscOkres(), cursor.district);
  ASSERT_EQ(database.pscDodavaci(), cursor.postOffice);
  ASSERT_EQ(database.pscNalezen(), cursor.found);
}

TEST(Reference, PostOfficesAreCarriedOverFromMoveToMove) {
  for (std::uint32_t seed = 10; seed < 30; ++seed) {
    Random random(seed);
    // From no post offices at all to several for each code.
    const Lists lists = RandomLists(random, 60, random.Below(300), L"ab");
    LoadedDatabase loaded;
    lists.LoadInto(loaded);
    reference::Cursor cursor(lists.municipalities, lists.postOffices);
    const auto count = static_cast<std::int32_t>(lists.municipalities.size());
    for (int move = 0; move < 2000; ++move) {
      switch (random.Below(4)) {
        case 0: {
          const std::int32_t n = random.Between(-1, count + 1);
          loaded.database.pscDetail(n);
          cursor.Detail(n);
          break;
        }
        case 1:
          loaded.database.pscDetailPlus();
          cursor.Detail(cursor.position + 1 > count ? cursor.position : cursor.position + 1);
          break;
        case 2:
          loaded.database.pscDetailMinus();
          cursor.Detail(cursor.position - 1 < 1 ? cursor.position : cursor.position - 1);
          break;
        default: {
          const std::wstring typed = random.Text(L"ab*", 3);
          if (typed.empty() || reference::IsRefused(typed)) break;
          loaded.database.pscVyberPostu(typed, loaded.list, loaded.description);
          cursor.found = false;
          for (std::int32_t n = 1; n <= count; ++n) {
            const std::wstring& name = lists.municipalities[static_cast<std::size_t>(n) - 1].name;
            if (reference::Matches(reference::Normalised(name), typed)) cursor.Detail(n);
          }
        }
      }
      ExpectSame(loaded.database, cursor);
      if (HasFatalFailure()) return;
    }
  }
}

}  // namespace
}  // namespace kvez
