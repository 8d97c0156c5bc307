#include "platform/portable/portable_lz_library.h"

#include <gtest/gtest.h>

#include "platform/portable/portable_files.h"
#include "platform/portable/szdd.h"
#include "tests/support/temporary_folder.h"

#ifdef __linux__
#include <unistd.h>
#endif

namespace kvez {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Lz = PortableLzLibrary;

class PortableLz : public testing::Test {
 protected:
  std::wstring Path(const wchar_t* name) const { return TextFromPath(folder.Path()) + L"\\" + name; }

  Bytes Read(const wchar_t* name) { return PortableFiles().Read(Path(name)).value_or(Bytes{'n', 'o', 'n', 'e'}); }

  /// What copying a file of these bytes gives, and that no handle stays open.
  std::int32_t CopyOf(const Bytes& source) {
    folder.Write("source", source);
    const std::int32_t from = lz.OpenFile(Path(L"source"), LzMode::Read);
    const std::int32_t to = lz.OpenFile(Path(L"target"), LzMode::Create);
    const std::int32_t result = lz.Copy(from, to);
    lz.Close(from);
    lz.Close(to);
    EXPECT_EQ(lz.OpenHandles(), 0U);
    return result;
  }

  TemporaryFolder folder;
  PortableLzLibrary lz;
  const Bytes text = {'K', 'v', 'e', 'z', ' ', 'K', 'v', 'e', 'z', ' ', 'K', 'v', 'e', 'z'};
};

TEST_F(PortableLz, CompressedFileIsExpanded) {
  EXPECT_EQ(CopyOf(CompressSzdd(text, 'n')), 14);
  EXPECT_EQ(Read(L"target"), text);
}

TEST_F(PortableLz, OtherFileIsPassedThroughUnchanged) {
  EXPECT_EQ(CopyOf(text), 14);
  EXPECT_EQ(Read(L"target"), text);
}

TEST_F(PortableLz, EmptySourceGivesZero) {
  EXPECT_EQ(CopyOf({}), 0);
  EXPECT_EQ(Read(L"target"), Bytes());
}

TEST_F(PortableLz, DamagedFileGivesAReadError) {
  Bytes file = CompressSzdd(text, 'n');
  file.pop_back();
  EXPECT_EQ(CopyOf(file), Lz::kReadError);
  EXPECT_EQ(Read(L"target"), Bytes());
  file.resize(8);
  EXPECT_EQ(CopyOf(file), Lz::kReadError);
}

TEST_F(PortableLz, UnknownModeGivesUnknownAlgorithm) {
  Bytes file = CompressSzdd(text, 'n');
  file[8] = 'B';
  EXPECT_EQ(CopyOf(file), Lz::kUnknownAlgorithm);
}

TEST_F(PortableLz, MissingSourceShowsInOpenAndCopy) {
  const std::int32_t from = lz.OpenFile(Path(L"missing"), LzMode::Read);
  EXPECT_EQ(from, Lz::kBadSource);
  const std::int32_t to = lz.OpenFile(Path(L"target"), LzMode::Create);
  EXPECT_EQ(lz.Copy(from, to), Lz::kBadSource);
  lz.Close(from);
  lz.Close(to);
  EXPECT_EQ(lz.OpenHandles(), 0U);
}

TEST_F(PortableLz, TargetThatCannotBeMadeShowsInOpenAndCopy) {
  folder.Write("source", text);
  const std::int32_t from = lz.OpenFile(Path(L"source"), LzMode::Read);
  const std::int32_t to = lz.OpenFile(TextFromPath(folder.Path()) + L"/no folder\\target", LzMode::Create);
  EXPECT_EQ(to, Lz::kBadTarget);
  EXPECT_EQ(lz.Copy(from, to), Lz::kBadTarget);
}

TEST_F(PortableLz, FolderIsNoFile) {
  std::filesystem::create_directory(folder.Path() / "folder");
  EXPECT_EQ(lz.OpenFile(Path(L"folder"), LzMode::Read), Lz::kBadSource);
  EXPECT_EQ(lz.OpenFile(Path(L"folder"), LzMode::Create), Lz::kBadTarget);
  EXPECT_EQ(lz.OpenFile(Path(L"folder"), LzMode::Delete), Lz::kBadSource);
  EXPECT_EQ(std::filesystem::exists(folder.Path() / "folder"), true);
}

TEST_F(PortableLz, HandlesWorkOnlyInTheirDirection) {
  folder.Write("source", text);
  const std::int32_t from = lz.OpenFile(Path(L"source"), LzMode::Read);
  const std::int32_t to = lz.OpenFile(Path(L"target"), LzMode::Create);
  EXPECT_EQ(lz.Copy(to, from), Lz::kBadSource);
  EXPECT_EQ(lz.Copy(from, from), Lz::kBadTarget);
  lz.Close(from);
  EXPECT_EQ(lz.Copy(from, to), Lz::kBadSource);
}

TEST_F(PortableLz, CreateOverwritesAnExistingFile) {
  folder.Write("target", Bytes(1000, 'x'));
  EXPECT_EQ(CopyOf(text), 14);
  EXPECT_EQ(Read(L"target"), text);
}

TEST_F(PortableLz, DeleteRemovesTheFileAndLeavesNothingToClose) {
  folder.Write("target", text);
  EXPECT_EQ(lz.OpenFile(Path(L"target"), LzMode::Delete), 0);
  EXPECT_EQ(std::filesystem::exists(folder.Path() / "target"), false);
  EXPECT_EQ(lz.OpenFile(Path(L"target"), LzMode::Delete), Lz::kBadSource);
  EXPECT_EQ(lz.OpenHandles(), 0U);
}

TEST_F(PortableLz, ClosingWhatIsNotOpenIsIgnored) {
  lz.Close(-1);
  lz.Close(0);
  lz.Close(99);
  EXPECT_EQ(lz.OpenHandles(), 0U);
}

TEST_F(PortableLz, MoreBytesThanTheResultMayTellAreRefused) {
  folder.Write("plain", text);
  folder.Write("compressed", CompressSzdd(text, 'n'));
  for (const auto& [most, result] : {std::pair(std::size_t{14}, 14), std::pair(std::size_t{13}, Lz::kBadValue)}) {
    PortableLzLibrary limited(most);
    for (const wchar_t* source : {L"plain", L"compressed"}) {
      const std::int32_t from = limited.OpenFile(Path(source), LzMode::Read);
      const std::int32_t to = limited.OpenFile(Path(L"target"), LzMode::Create);
      EXPECT_EQ(limited.Copy(from, to), result);
      limited.Close(to);
      EXPECT_EQ(Read(L"target"), result > 0 ? text : Bytes());
    }
  }
}

TEST_F(PortableLz, PathThatNoSystemTakesIsRefused) {
  const std::wstring path = Path(std::wstring(70000, L'x').c_str());
  EXPECT_EQ(lz.OpenFile(path, LzMode::Read), Lz::kBadSource);
  EXPECT_EQ(lz.OpenFile(path, LzMode::Create), Lz::kBadTarget);
  EXPECT_EQ(lz.OpenFile(path, LzMode::Delete), Lz::kBadSource);
}

#ifdef __linux__
TEST_F(PortableLz, SourceThatCannotBeSoughtInGivesAReadError) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const std::int32_t from = lz.OpenFile(L"/proc/self/fd/" + std::to_wstring(ends[0]), LzMode::Read);
  const std::int32_t to = lz.OpenFile(Path(L"target"), LzMode::Create);
  EXPECT_EQ(lz.Copy(from, to), Lz::kReadError);
  close(ends[0]);
  close(ends[1]);
}

TEST_F(PortableLz, FullDiskGivesAWriteError) {
  folder.Write("source", text);
  const std::int32_t from = lz.OpenFile(Path(L"source"), LzMode::Read);
  const std::int32_t to = lz.OpenFile(L"/dev/full", LzMode::Create);
  EXPECT_EQ(lz.Copy(from, to), Lz::kWriteError);
}
#endif

}  // namespace
}  // namespace kvez
