#include "database/record_layout.h"

#include <gtest/gtest.h>

#include "database/loose_ends.h"

namespace kvez {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Each record once, byte by byte: whoever changes the layout changes the files that are out there.
const Bytes kMunicipality = {0xF8, 0x2A, 0x00, 0x00, 0x03, 0x00, 'A', 0x9A, 'b', 0x02, 0x00, 0x8E, 'd'};
const Bytes kPostOffice = {0xFE, 0xFF, 0xFF, 0xFF, 0x01, 0x00, 'P'};
const Bytes kDistrict = {0xFF, 0xFF, 0x02, 0x00, 'O', 'k'};

void ExpectRecord(const Bytes& bytes, RecordLayout layout, const RecordFields& expected) {
  FieldReader reader(bytes);
  const RecordFields record = ReadRecord(reader, layout);
  EXPECT_EQ(record.code, expected.code);
  EXPECT_EQ(record.name, expected.name);
  EXPECT_EQ(record.district, expected.district);
  EXPECT_TRUE(reader.AtEnd());
  Bytes written;
  AppendRecord(written, layout, expected);
  EXPECT_EQ(written, bytes);
}

TEST(RecordLayout, MunicipalityIsACodeOf32BitsAndTwoNames) {
  ExpectRecord(kMunicipality, kMunicipalityRecord,
               {11000,
                "A\x9A"
                "b",
                "\x8E"
                "d"});
}

TEST(RecordLayout, PostOfficeIsACodeOf32BitsAndAName) { ExpectRecord(kPostOffice, kPostOfficeRecord, {-2, "P", {}}); }

TEST(RecordLayout, DistrictIsACodeOf16BitsWithASignAndAName) {
  ExpectRecord(kDistrict, kDistrictRecord, {-1, "Ok", {}});
}

TEST(RecordLayout, RecordsFollowEachOther) {
  Bytes file;
  AppendRecord(file, kPostOfficeRecord, {11000, "Praha 1", {}});
  AppendRecord(file, kPostOfficeRecord, {60200, "Brno 2", {}});
  FieldReader reader(file);
  EXPECT_EQ(ReadRecord(reader, kPostOfficeRecord).name, "Praha 1");
  EXPECT_EQ(ReadRecord(reader, kPostOfficeRecord).name, "Brno 2");
  EXPECT_TRUE(reader.AtEnd());
}

TEST(ListKeys, CountTheFourWaysInWhichListsDoNotHangTogether) {
  ListKeys<std::string_view> keys;
  keys.municipalities = {{1, "a"}, {1, "a"}, {2, "b"}, {3, "c"}};
  keys.postOffices = {1, 4, 5, 6};
  keys.districts = {"a", "b", "d", "d"};
  const LooseEnds ends = keys.Count();
  EXPECT_EQ(ends.municipalitiesWithoutPostOffice, 2U);
  EXPECT_EQ(ends.municipalitiesInNoDistrict, 1U);
  EXPECT_EQ(ends.postOfficesWithoutMunicipality, 3U);
  EXPECT_EQ(ends.districtsWithoutMunicipality, 2U);
  EXPECT_EQ(ends.All(), 8U);
}

}  // namespace
}  // namespace kvez
