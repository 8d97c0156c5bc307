// The expansion library that keeps in memory what files expand to.

#include "platform/portable/memory_lz_library.h"

#include <gtest/gtest.h>

#include "platform/portable/szdd.h"
#include "tests/support/temporary_folder.h"

namespace kvez {
namespace {

using Bytes = std::vector<std::uint8_t>;

const Bytes kText = {'B', 'r', 'n', 'o', ' ', 'B', 'r', 'n', 'o', ' ', 'B', 'r', 'n', 'o'};

class MemoryLz : public testing::Test {
 protected:
  std::wstring Path(const wchar_t* name) const { return TextFromPath(folder.Path() / PathFromText(name)); }

  /// The result of one copy of a file of these bytes.
  std::int32_t Expand(const Bytes& file) {
    folder.Write("vd_", file);
    const std::int32_t source = lz.OpenFile(Path(L"vd_"), LzMode::Read);
    const std::int32_t target = lz.OpenFile(Path(L"vd"), LzMode::Create);
    const std::int32_t result = lz.Copy(source, target);
    lz.Close(source);
    lz.Close(target);
    return result;
  }

  TemporaryFolder folder;
  MemoryLzLibrary lz;
};

TEST_F(MemoryLz, ExpandedFileIsThereUntilItIsDeleted) {
  EXPECT_EQ(Expand(CompressSzdd(kText, 'd')), 14);
  EXPECT_EQ(lz.Read(Path(L"vd")), kText);
  EXPECT_EQ(folder.Read("vd"), "(missing)");
  EXPECT_EQ(lz.OpenFile(Path(L"vd"), LzMode::Delete), 0);
  EXPECT_EQ(lz.Read(Path(L"vd")), std::nullopt);
  EXPECT_EQ(lz.OpenFile(Path(L"vd"), LzMode::Delete), LzExpansion::kBadSource);
  EXPECT_EQ(lz.OpenHandles(), 0U);
}

TEST_F(MemoryLz, OnlyExpandedFilesAreRead) {
  folder.Write("vd", std::string("on the disk"));
  EXPECT_EQ(lz.Read(Path(L"vd")), std::nullopt);
}

TEST_F(MemoryLz, FileThatIsNotCompressedIsPassedThrough) {
  EXPECT_EQ(Expand(kText), 14);
  EXPECT_EQ(lz.Read(Path(L"vd")), kText);
}

TEST_F(MemoryLz, DamagedFileComesToNothing) {
  Bytes cut = CompressSzdd(kText, 'd');
  cut.pop_back();
  EXPECT_EQ(Expand(cut), LzExpansion::kReadError);
  EXPECT_EQ(lz.Read(Path(L"vd")), Bytes());
  Bytes otherMode = CompressSzdd(kText, 'd');
  otherMode[8] = 'B';
  EXPECT_EQ(Expand(otherMode), LzExpansion::kUnknownAlgorithm);
  Bytes signature = CompressSzdd(kText, 'd');
  signature.resize(8);
  EXPECT_EQ(Expand(signature), LzExpansion::kReadError);
}

TEST_F(MemoryLz, HandleServesItsOwnMode) {
  EXPECT_EQ(lz.OpenFile(Path(L"missing"), LzMode::Read), LzExpansion::kBadSource);
  folder.Write("vd_", kText);
  const std::int32_t source = lz.OpenFile(Path(L"vd_"), LzMode::Read);
  const std::int32_t target = lz.OpenFile(Path(L"vd"), LzMode::Create);
  const std::int32_t unknown = target + 1;
  EXPECT_EQ(lz.Copy(unknown, target), LzExpansion::kBadSource);
  EXPECT_EQ(lz.Copy(target, target), LzExpansion::kBadSource);
  EXPECT_EQ(lz.Copy(source, unknown), LzExpansion::kBadTarget);
  EXPECT_EQ(lz.Copy(source, source), LzExpansion::kBadTarget);
  EXPECT_EQ(lz.OpenHandles(), 2U);
}

TEST_F(MemoryLz, DateIsThatOfTheFileOnTheDisk) {
  EXPECT_EQ(lz.LastWriteTime(Path(L"vd_")), std::nullopt);
  folder.Write("vd_", kText);
  EXPECT_EQ(lz.LastWriteTime(Path(L"vd_")), PortableFiles().LastWriteTime(Path(L"vd_")));
  EXPECT_NE(lz.LastWriteTime(Path(L"vd_")), std::nullopt);
}

// The library tells lengths by a signed number of 32 bits.
TEST(LzLimit, MoreBytesThanAResultCanTellAreRefused) {
  EXPECT_EQ(ExpandAsLibrary(kText, 14).result, 14);
  EXPECT_EQ(ExpandAsLibrary(kText, 13).result, LzExpansion::kBadValue);
  EXPECT_EQ(ExpandAsLibrary(kText, 13).bytes, Bytes());
  EXPECT_EQ(ExpandAsLibrary(CompressSzdd(kText, 'd'), 14).result, 14);
  EXPECT_EQ(ExpandAsLibrary(CompressSzdd(kText, 'd'), 13).result, LzExpansion::kBadValue);
}

}  // namespace
}  // namespace kvez
