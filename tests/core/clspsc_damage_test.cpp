#include <gtest/gtest.h>

#include <algorithm>

#include "platform/portable/portable_files.h"
#include "tests/core/loaded_database.h"

namespace kvez {
namespace {

using fakes::Bytes;
using fakes::kFolder;
using fakes::LoadedDatabase;

/// The three files by the beginnings of the corpus's names.
struct List {
  const char* name;
  int file;
  Bytes LoadedDatabase::*bytes;
  RecordLayout record;
};
constexpr List kLists[] = {{"municipalities", 1, &LoadedDatabase::municipalityFile, kMunicipalityRecord},
                           {"post-offices", 2, &LoadedDatabase::postOfficeFile, kPostOfficeRecord},
                           {"districts", 3, &LoadedDatabase::districtFile, kDistrictRecord}};

LoadedDatabase SoundDatabase() {
  return {
      {{11000, L"Staré Město", L"Hlavní město Praha"}, {60200, L"Žabovřesky", L"Brno-město"}, {35002, L"Cheb", L""}},
      {{11000, L"Praha 1"}, {60200, L"Brno 2"}, {35002, L""}},
      {{3100, L"Hlavní město Praha"}, {3702, L"Brno-město"}, {-1, L"Cheb"}}};
}

// How many records of a list are there. The post offices show only in the municipalities that they serve, and the
// last one of the sound database has no name to show.
std::int32_t Records(clspsc& database, const List& list) {
  if (list.file == 1) return database.pscCelkem();
  if (list.file == 3) return database.pscoCelkem();
  std::int32_t found = 0;
  for (std::int32_t n = 1; n <= database.pscCelkem(); ++n) {
    database.pscDetail(0);
    database.pscDetail(n);
    if (!database.pscDodavaci().empty()) ++found;
  }
  return found;
}

// Each file is named after its damage; the rest of the database is sound.
class Damaged : public testing::TestWithParam<const char*> {};

TEST_P(Damaged, FileIsRejectedAsAWhole) {
  const std::string name = GetParam();
  const auto list = std::find_if(std::begin(kLists), std::end(kLists),
                                 [&](const List& candidate) { return name.starts_with(candidate.name); });
  ASSERT_NE(list, std::end(kLists));
  const std::string path = std::string(KVEZ_SOURCE_DIR "/tests/core/damaged/records/") + name + ".bin";
  const auto damaged = PortableFiles().Read(std::wstring(path.begin(), path.end()));
  ASSERT_TRUE(damaged.has_value()) << path;

  LoadedDatabase loaded = SoundDatabase();
  ASSERT_TRUE(loaded.machine.messages.messages.empty());
  loaded.database.pscUvolni();
  loaded.*(list->bytes) = *damaged;
  loaded.machine.messages.messages.clear();
  loaded.Load();
  EXPECT_EQ(loaded.machine.messages.messages.size(), 1U);
  EXPECT_EQ(Records(loaded.database, *list), 0);
  EXPECT_EQ(loaded.database.pscCelkem(), list->file == 1 ? 0 : 3);
  EXPECT_EQ(loaded.database.pscoCelkem(), list->file == 3 ? 0 : 3);
  EXPECT_EQ(loaded.machine.disk.files.size(), 3U);  // no expanded file is left
  EXPECT_EQ(loaded.machine.lz.OpenHandles(), 0U);
}

std::string NameOf(const testing::TestParamInfo<const char*>& info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(
    Municipalities, Damaged,
    testing::Values("municipalities-one-stray-byte-at-the-end", "municipalities-three-stray-bytes-at-the-end",
                    "municipalities-cut-in-the-code", "municipalities-cut-behind-the-code",
                    "municipalities-cut-in-the-name-length", "municipalities-cut-in-the-name",
                    "municipalities-cut-behind-the-name", "municipalities-cut-in-the-district-length",
                    "municipalities-cut-in-the-district", "municipalities-first-name-length-ffff",
                    "municipalities-last-name-length-one-too-great", "municipalities-first-name-length-one-too-small",
                    "municipalities-last-district-length-one-too-great",
                    "municipalities-last-district-length-one-too-small", "municipalities-last-district-length-8000",
                    "municipalities-lengths-big-endian", "municipalities-a-web-page-instead",
                    "municipalities-the-post-offices-instead", "municipalities-a-single-byte",
                    "municipalities-bytes-ff"),
    NameOf);
INSTANTIATE_TEST_SUITE_P(PostOffices, Damaged,
                         testing::Values("post-offices-one-stray-byte-at-the-end", "post-offices-cut-in-the-code",
                                         "post-offices-cut-in-the-name-length", "post-offices-cut-in-the-name",
                                         "post-offices-first-name-length-ffff",
                                         "post-offices-last-name-length-one-too-great",
                                         "post-offices-last-name-length-one-too-small",
                                         "post-offices-with-16-bit-codes", "post-offices-the-districts-instead"),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Districts, Damaged,
                         testing::Values("districts-one-stray-byte-at-the-end", "districts-cut-in-the-code",
                                         "districts-cut-in-the-name-length", "districts-cut-in-the-name",
                                         "districts-first-name-length-ffff", "districts-last-name-length-one-too-great",
                                         "districts-last-name-length-one-too-small", "districts-with-32-bit-codes",
                                         "districts-the-municipalities-instead"),
                         NameOf);

// A cut file loads as far as it goes when the cut falls between two records, and not at all everywhere else.
TEST(CutFiles, EveryByteOfEveryFile) {
  LoadedDatabase sound = SoundDatabase();
  for (const List& list : kLists) {
    const Bytes whole = sound.*list.bytes;
    std::vector<std::size_t> ends;
    FieldReader reader(whole);
    while (!reader.AtEnd()) {
      ReadRecord(reader, list.record);
      ends.push_back(static_cast<std::size_t>(reader.Position()));
    }
    ASSERT_EQ(ends.size(), 3U);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
      LoadedDatabase loaded;
      loaded.municipalityFile = sound.municipalityFile;
      loaded.postOfficeFile = sound.postOfficeFile;
      loaded.districtFile = sound.districtFile;
      loaded.*list.bytes = Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      loaded.Load();
      const auto end = std::find(ends.begin(), ends.end(), length);
      const auto records = end == ends.end() ? 0 : static_cast<std::int32_t>(end - ends.begin()) + 1;
      EXPECT_EQ(loaded.machine.messages.messages.size(), records == 0 ? 1U : 0U) << list.name << " " << length;
      EXPECT_EQ(Records(loaded.database, list), list.file == 2 ? std::min(records, 2) : records) << length;
      EXPECT_EQ(loaded.machine.disk.files.size(), 3U) << length;
    }
  }
}

}  // namespace
}  // namespace kvez
