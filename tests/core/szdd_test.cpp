#include "platform/portable/szdd.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ostream>
#include <random>
#include <span>
#include <stdexcept>
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

// Text much like the real data: literals, matches, overlaps, blanks.
Bytes Sample() {
  Bytes plain = FromText("   Praha, Praha-Libeň, Praha-Libuš                    ");
  for (unsigned i = 0; i < 200; ++i) {
    const Bytes word = FromText("obec " + std::to_string(i * 7919 % 1000) + (i % 3 == 0 ? " okres" : "  "));
    plain.insert(plain.end(), word.begin(), word.end());
  }
  return plain;
}

TEST(Szdd, HeaderTellsModeLastCharacterAndLength) {
  const Bytes file = CompressSzdd(Bytes(0x00010203, 'x'), 'n');
  EXPECT_EQ(Bytes(file.begin(), file.begin() + 14),
            (Bytes{'S', 'Z', 'D', 'D', 0x88, 0xF0, 0x27, 0x33, 'A', 'n', 0x03, 0x02, 0x01, 0x00}));
}

TEST(Szdd, NothingIsAHeaderAlone) {
  EXPECT_EQ(CompressSzdd({}, 'n'), File(0, {}));
  const SzddResult result = ExpandSzdd(File(0, {}));
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.bytes, Bytes());
}

TEST(Szdd, MoreBytesThanAHeaderTellsAreRefused) {
  if constexpr (sizeof(std::size_t) > 4) {
    // The length alone decides; nobody looks at the bytes, which are not there.
    const std::uint8_t byte = 0;
    EXPECT_THROW(CompressSzdd(std::span(&byte, std::size_t{1} << 32), 'n'), std::length_error);
  }
}

TEST(Szdd, BlanksOfTheFreshWindowCostNoLiteral) {
  // One control byte and eight matches of 18.
  EXPECT_EQ(CompressSzdd(Bytes(144, ' '), 'n').size(), 14U + 17U);
}

TEST(Szdd, MatchesAreChosenForTheShortestStream) {
  // Taking "abc" at once would leave "defgh" to five literals; one literal first lets "bcdefgh" match.
  const Bytes plain = FromText("abcbcdefghabcdefgh");
  // Ten literals, then "a", then "bcdefgh" as one match: two control bytes, eleven literals, one match.
  EXPECT_EQ(CompressSzdd(plain, 'n').size(), 14U + 2U + 11U + 2U);
}

TEST(Szdd, SignatureMakesAnSzddFile) {
  const Bytes file = File(0, {});
  EXPECT_EQ(IsSzdd(file), true);
  EXPECT_EQ(IsSzdd(std::span(file).first(8)), true);
  EXPECT_EQ(IsSzdd(std::span(file).first(7)), false);
  Bytes other = file;
  other[7] = 0x34;
  EXPECT_EQ(IsSzdd(other), false);
}

TEST(Szdd, FileOfAnotherKindIsRefusedWhereItDiffers) {
  const SzddResult result = ExpandSzdd(FromText("SZAD plain text"));
  EXPECT_EQ(result.offset, 2U);
  EXPECT_EQ(result.error, "the SZDD signature was expected");
}

TEST(Szdd, EveryCutIsAnError) {
  const Bytes file = CompressSzdd(Sample(), 'n');
  for (std::size_t length = 0; length < file.size(); ++length) {
    // A copy of its own size, so that reading behind the cut shows.
    const Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
    const SzddResult result = ExpandSzdd(cut);
    EXPECT_NE(result.error, "") << "cut to " << length;
    EXPECT_EQ(result.bytes, Bytes()) << "cut to " << length;
    EXPECT_LE(result.offset, length);
  }
}

TEST(Szdd, EveryFlippedBitIsAnErrorOrOtherBytes) {
  const Bytes plain = Sample();
  const Bytes file = CompressSzdd(plain, 'n');
  for (std::size_t at = 0; at < file.size(); ++at) {
    for (unsigned bit = 0; bit < 8; ++bit) {
      Bytes flipped = file;
      flipped[at] = static_cast<std::uint8_t>(flipped[at] ^ 1U << bit);
      const SzddResult result = ExpandSzdd(flipped);
      // A flip in the declared length itself never fits the stream, so the length is the sample's or nothing.
      EXPECT_EQ(result.bytes.size(), result.Ok() ? plain.size() : 0U) << "byte " << at << ", bit " << bit;
    }
  }
}

TEST(Szdd, RandomStreamsStayInsideTheirBuffers) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    const Bytes stream = RandomBytes(1500, 256, seed);
    for (const std::uint32_t length : {1U, 1000U, 5000U, 9000U}) {
      const SzddResult result = ExpandSzdd(File(length, stream));
      EXPECT_EQ(result.bytes.size(), result.Ok() ? length : 0U);
    }
  }
}

TEST(Szdd, DeclaredLengthGoesAsFarAsTheStreamCanReach) {
  const auto errorOf = [](std::uint32_t length, std::size_t stream) {
    // Nothing but the longest matches.
    Bytes bytes(stream, 0x0F);
    for (std::size_t i = 0; i < stream; i += 17) bytes[i] = 0;
    return ExpandSzdd(File(length, bytes)).error;
  };
  EXPECT_EQ(errorOf(144, 17), "");
  EXPECT_EQ(errorOf(145, 17), "a length of 145 is declared where at most 144 was expected of a stream of 17 bytes");
  EXPECT_EQ(errorOf(144 + 18, 17 + 3), "");
  EXPECT_EQ(errorOf(144 + 19, 17 + 3),
            "a length of 163 is declared where at most 162 was expected of a stream of 20 bytes");
  EXPECT_EQ(errorOf(1, 1), "a length of 1 is declared where at most 0 was expected of a stream of 1 bytes");
}

struct Damage {
  const char* file;
  std::size_t offset;
  const char* error;
};

std::ostream& operator<<(std::ostream& stream, const Damage& damage) { return stream << damage.file; }

class DamagedSzdd : public testing::TestWithParam<Damage> {};

TEST_P(DamagedSzdd, IsRefusedWithThePlaceOfItsDamage) {
  std::ifstream stream(std::string(KVEZ_SOURCE_DIR "/tests/core/damaged/szdd/") + GetParam().file + ".kl_",
                       std::ios::binary);
  const Bytes file((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  ASSERT_NE(file, Bytes());
  const SzddResult result = ExpandSzdd(file);
  EXPECT_EQ(result.error, GetParam().error);
  EXPECT_EQ(result.offset, GetParam().offset);
  EXPECT_EQ(result.bytes, Bytes());
}

// All of them but for the damage: five literals and a match of nine, "Brno Brno Brno".
INSTANTIATE_TEST_SUITE_P(
    Corpus, DamagedSzdd,
    testing::Values(
        Damage{"header-cut-behind-the-signature", 8, "a header of 14 bytes was expected"},
        Damage{"header-cut-in-the-declared-length", 12, "a header of 14 bytes was expected"},
        Damage{"mode-is-not-A", 8, "the compression mode 'A' was expected"},
        Damage{"stream-missing", 10, "a length of 14 is declared where at most 0 was expected of a stream of 0 bytes"},
        Damage{"stream-cut-in-the-literals", 17,
               "the compressed stream ends after 2 of 14 declared bytes; more of it was expected"},
        Damage{"stream-cut-before-a-match", 20,
               "the compressed stream ends after 5 of 14 declared bytes; more of it was expected"},
        Damage{"stream-cut-in-a-match", 21,
               "the compressed stream ends after 5 of 14 declared bytes; more of it was expected"},
        Damage{"stream-cut-at-the-end-of-a-group", 23,
               "the compressed stream ends after 8 of 9 declared bytes; more of it was expected"},
        Damage{"stream-goes-on-by-one-byte", 22, "the end of the file was expected after the declared 14 bytes"},
        Damage{"stream-goes-on-by-a-match", 20, "the end of the file was expected after the declared 5 bytes"},
        Damage{"declared-length-ends-in-a-match", 20,
               "a match of 9 bytes where at most 8 were expected before the declared length"},
        Damage{"declared-length-one-too-long", 22,
               "the compressed stream ends after 14 of 15 declared bytes; more of it was expected"},
        Damage{"declared-length-zero", 14, "the end of the file was expected after the declared 0 bytes"},
        Damage{"declared-length-beyond-144-for-17", 10,
               "a length of 145 is declared where at most 144 was expected of a stream of 17 bytes"},
        Damage{"declared-length-of-four-gigabytes", 10,
               "a length of 4294967295 is declared where at most 55 was expected of a stream of 8 bytes"}),
    [](const testing::TestParamInfo<Damage>& test) {
      std::string name = test.param.file;
      std::replace(name.begin(), name.end(), '-', '_');
      return name;
    });

}  // namespace
}  // namespace kvez
