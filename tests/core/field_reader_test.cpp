#include "database/field_reader.h"

#include <gtest/gtest.h>

#include "tests/core/fakes.h"

namespace kvez {
namespace {

using fakes::Bytes;

TEST(FieldReader, IntegersAreLittleEndianAndSigned) {
  const Bytes file = {0xF8, 0x2A, 0x00, 0x00, 0xFE, 0xFF, 0xFF, 0xFF, 0x34, 0x12, 0xFF, 0x7F};
  FieldReader reader(file);
  EXPECT_EQ(reader.Int32(), 11000);
  EXPECT_EQ(reader.Int32(), -2);
  EXPECT_EQ(reader.Int16(), 0x1234);
  EXPECT_EQ(reader.Int16(), 32767);
  EXPECT_EQ(reader.AtEnd(), true);
}

TEST(FieldReader, EmptyTextHasALengthAndNoBytes) {
  const Bytes file = {0x00, 0x00};
  FieldReader reader(file);
  EXPECT_EQ(reader.CountedText(), "");
  EXPECT_EQ(reader.AtEnd(), true);
}

TEST(FieldReader, LengthHasNoSign) {
  Bytes file = {0x00, 0x80};
  file.resize(2 + 0x8000, 'x');
  FieldReader reader(file);
  EXPECT_EQ(reader.CountedText().size(), 0x8000U);
  EXPECT_EQ(reader.AtEnd(), true);
}

TEST(FieldReader, BehindTheEndEverythingIsZeroAndThePositionGoesOn) {
  const Bytes file = {0x01, 0x02, 0x03};
  FieldReader reader(file);
  EXPECT_EQ(reader.Int32(), 0x00030201);
  EXPECT_EQ(reader.Position(), 4U);
  EXPECT_EQ(reader.Overrun(), true);
  EXPECT_EQ(reader.Int32(), 0);
  EXPECT_EQ(reader.Position(), 8U);
  EXPECT_EQ(reader.CountedText(), "");
  EXPECT_EQ(reader.Position(), 10U);
}

TEST(FieldReader, TextThatRunsPastTheEndMovesThePositionByItsDeclaredLength) {
  const Bytes file = {0xFF, 0xFF, 'a', 'b'};
  FieldReader reader(file);
  EXPECT_EQ(reader.CountedText(), "ab");
  EXPECT_EQ(reader.Position(), 2U + 0xFFFFU);
  EXPECT_EQ(reader.Overrun(), true);
}

TEST(FieldReader, LengthWithOnlyItsLowByteInTheFileStillCounts) {
  const Bytes file = {0x05};
  FieldReader reader(file);
  EXPECT_EQ(reader.CountedText(), "");
  EXPECT_EQ(reader.Position(), 2U + 5U);
}

TEST(FieldReader, EmptyFileIsAtItsEnd) {
  FieldReader reader({});
  EXPECT_EQ(reader.AtEnd(), true);
  EXPECT_EQ(reader.Length(), 0U);
}

}  // namespace
}  // namespace kvez
