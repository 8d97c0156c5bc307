#include "platform/portable/szdd.h"

#include <gtest/gtest.h>

#include <random>
#include <string_view>

namespace kvez {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes FromText(std::string_view text) { return Bytes(text.begin(), text.end()); }

/// The header of a file that expands to `length` bytes, followed by `stream`.
Bytes File(std::uint32_t length, const Bytes& stream) {
  Bytes file = {'S', 'Z', 'D', 'D', 0x88, 0xF0, 0x27, 0x33, 'A', 'n'};
  for (unsigned shift = 0; shift < 32; shift += 8) file.push_back(static_cast<std::uint8_t>(length >> shift));
  file.insert(file.end(), stream.begin(), stream.end());
  return file;
}

Bytes RandomBytes(std::size_t count, unsigned letters, unsigned seed) {
  std::mt19937 generator(seed);
  Bytes bytes(count);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(generator() % letters);
  return bytes;
}

void ExpectRoundTrip(const Bytes& plain) {
  const Bytes file = CompressSzdd(plain, 'n');
  const SzddResult result = ExpandSzdd(file);
  ASSERT_EQ(result.error, "") << "at " << result.offset;
  EXPECT_EQ(result.bytes, plain);
}

TEST(Szdd, LiteralsExpandToThemselves) { EXPECT_EQ(ExpandSzdd(File(3, {0xFF, 'a', 'b', 'c'})).bytes, FromText("abc")); }

TEST(Szdd, MatchIntoTheFreshWindowExpandsToBlanks) {
  // Position 0 is far from the write position 4080; length 3 + 2.
  EXPECT_EQ(ExpandSzdd(File(5, {0x00, 0x00, 0x02})).bytes, FromText("     "));
}

TEST(Szdd, MatchReachesFromTheBlanksIntoTheText) {
  // Begins one byte before the text at 4080 (0xFEF): a blank, then the two letters just written.
  EXPECT_EQ(ExpandSzdd(File(5, {0x03, 'a', 'b', 0xEF, 0xF0})).bytes, FromText("ab ab"));
}

TEST(Szdd, OverlappingMatchRepeats) {
  EXPECT_EQ(ExpandSzdd(File(19, {0x01, 'x', 0xF0, 0xFF})).bytes, FromText("xxxxxxxxxxxxxxxxxxx"));
}

TEST(Szdd, MatchAtTheWritePositionReadsTheOldestByte) {
  // 4096 bytes written: the write position is at 4080 again, and so is the first letter.
  Bytes plain = RandomBytes(4096, 256, 1);
  Bytes stream;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    if (i % 8 == 0) stream.push_back(0xFF);
    stream.push_back(plain[i]);
  }
  stream.insert(stream.end(), {0x00, 0xF0, 0xFF});
  Bytes expected = plain;
  expected.insert(expected.end(), plain.begin(), plain.begin() + 18);
  EXPECT_EQ(ExpandSzdd(File(4096 + 18, stream)).bytes, expected);
}

TEST(Szdd, RoundTripOfEveryShortLength) {
  for (std::size_t length = 0; length <= 300; ++length) {
    ExpectRoundTrip(RandomBytes(length, 2, static_cast<unsigned>(length)));
    ExpectRoundTrip(RandomBytes(length, 256, static_cast<unsigned>(length)));
    ExpectRoundTrip(Bytes(length, ' '));
  }
}

TEST(Szdd, RoundTripOfLongData) {
  for (const unsigned letters : {1U, 2U, 3U, 16U, 256U}) ExpectRoundTrip(RandomBytes(100'000, letters, letters));
  ExpectRoundTrip(Bytes(50'000, ' '));
}

}  // namespace
}  // namespace kvez
