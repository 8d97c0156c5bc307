#include "platform/portable/portable_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <streambuf>

#include "platform/portable/local_time.h"
#include "platform/portable/read_stream.h"
#include "tests/support/temporary_folder.h"

namespace kvez {
namespace {

using Bytes = std::vector<std::uint8_t>;

class PortableFilesTest : public testing::Test {
 protected:
  std::wstring Path(const wchar_t* name) const { return TextFromPath(folder.Path()) + L"\\" + name; }

  TemporaryFolder folder;
  PortableFiles files;
};

TEST_F(PortableFilesTest, WholeFileIsRead) {
  const Bytes bytes = {'a', 0, '\r', '\n', 0x1A, 0xFF};
  folder.Write("file", bytes);
  folder.Write("empty", Bytes());
  EXPECT_EQ(files.Read(Path(L"file")), bytes);
  EXPECT_EQ(files.Read(Path(L"empty")), Bytes());
}

TEST_F(PortableFilesTest, WhatIsNoFileIsNotRead) {
  std::filesystem::create_directory(folder.Path() / "folder");
  EXPECT_EQ(files.Read(Path(L"missing")), std::nullopt);
  EXPECT_EQ(files.Read(Path(L"folder")), std::nullopt);
}

/// The calendar day of the same moment in UTC; the tests keep away from midnight by 15 hours, more than any time zone.
TEST_F(PortableFilesTest, LastWriteTimeIsThatOfTheClockOnTheWall) {
  folder.Write("file", Bytes{1});
  using namespace std::chrono;
  const sys_seconds moment = sys_days(2024y / March / 5) + hours(12) + minutes(34) + seconds(56);
  std::filesystem::last_write_time(folder.Path() / "file", file_clock::from_sys(moment));
  const auto written = files.LastWriteTime(Path(L"file"));
  ASSERT_TRUE(written.has_value());
  const auto expected = LocalDateTime(system_clock::to_time_t(moment));
  EXPECT_EQ(written, expected);
  EXPECT_EQ(written->year, 2024);
  EXPECT_EQ(written->month, 3);
  EXPECT_GE(written->day, 4);
  EXPECT_LE(written->day, 6);
  EXPECT_EQ(written->second, 56);
}

TEST_F(PortableFilesTest, MissingFileHasNoTime) { EXPECT_EQ(files.LastWriteTime(Path(L"missing")), std::nullopt); }

TEST(LocalDateTime, KeepsTheOrderOfTheFields) {
  // Two days on: no time zone has the first of January 1970 any more.
  const auto moment = LocalDateTime(2 * 24 * 3600);
  ASSERT_TRUE(moment.has_value());
  EXPECT_EQ(moment->year, 1970);
  EXPECT_EQ(moment->month, 1);
  EXPECT_GE(moment->day, 2);
  EXPECT_LE(moment->day, 3);
  const auto later = LocalDateTime(2 * 24 * 3600 + 61);
  ASSERT_TRUE(later.has_value());
  EXPECT_EQ(later->second, moment->second + 1);
  EXPECT_EQ(later->minute, (moment->minute + 1) % 60);
}

TEST(LocalDateTime, MomentBeyondTheCalendarIsNone) {
  EXPECT_EQ(LocalDateTime(std::numeric_limits<std::time_t>::max()), std::nullopt);
}

/// A stream that says it is longer than it is.
class ShortBuffer : public std::streambuf {
 public:
  explicit ShortBuffer(std::streamoff said) : m_said(said) { setg(m_bytes, m_bytes, m_bytes + sizeof m_bytes); }

 protected:
  pos_type seekoff(off_type, std::ios_base::seekdir, std::ios_base::openmode) override { return pos_type(m_said); }
  pos_type seekpos(pos_type position, std::ios_base::openmode) override { return position; }

 private:
  std::streamoff m_said;
  char m_bytes[3] = {'a', 'b', 'c'};
};

TEST(ReadStream, StreamThatEndsBeforeItsLengthIsNotRead) {
  ShortBuffer buffer(4);
  std::istream stream(&buffer);
  EXPECT_EQ(ReadStream(stream), std::nullopt);
}

TEST(ReadStream, StreamOfItsLengthIsReadAgainAndAgain) {
  for (int turn = 0; turn < 2; ++turn) {
    ShortBuffer buffer(3);
    std::istream stream(&buffer);
    // What an earlier reading came to does not count.
    stream.setstate(std::ios::failbit | std::ios::eofbit);
    EXPECT_EQ(ReadStream(stream), (Bytes{'a', 'b', 'c'}));
  }
}

TEST(ReadStream, StreamThatCannotBeSoughtInIsNotRead) {
  ShortBuffer buffer(-1);
  std::istream stream(&buffer);
  EXPECT_EQ(ReadStream(stream), std::nullopt);
}

}  // namespace
}  // namespace kvez
