// Single files on a real disk.
#include "platform/windows/windows_file_operations.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/temporary_folder.h"

namespace kvez {
namespace {

class FileOperationsTest : public ::testing::Test {
 protected:
  std::wstring Path(const wchar_t* name) const { return (folder.Path() / name).wstring(); }
  void Write(const wchar_t* name, const std::string& text) const {
    std::ofstream(folder.Path() / name, std::ios::binary) << text;
  }
  std::string Read(const wchar_t* name) const {
    std::ifstream stream(folder.Path() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::size_t Count() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }
  ULONGLONG Written(const wchar_t* name) const {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    EXPECT_TRUE(GetFileAttributesExW(Path(name).c_str(), GetFileExInfoStandard, &data));
    return ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32 | data.ftLastWriteTime.dwLowDateTime;
  }

  TemporaryFolder folder;
  WindowsFileOperations files;
};

TEST_F(FileOperationsTest, CopyHasTheBytesAndTheDate) {
  Write(L"a", "old");
  Write(L"b", "something longer");
  std::filesystem::last_write_time(folder.Path() / L"a",
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000));
  EXPECT_TRUE(files.Copy(Path(L"a"), Path(L"b")));
  EXPECT_EQ(Read(L"a"), "old");
  EXPECT_EQ(Read(L"b"), "old");
  EXPECT_EQ(Written(L"a"), Written(L"b"));
  EXPECT_EQ(Count(), 2U);
}

TEST_F(FileOperationsTest, CopyOfAReadOnlyFileCanBePutBackAndRemoved) {
  Write(L"a", "old");
  SetFileAttributesW(Path(L"a").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(files.Copy(Path(L"a"), Path(L"b")));
  EXPECT_TRUE(files.Copy(Path(L"a"), Path(L"b")));
  EXPECT_TRUE(files.Remove(Path(L"b")));
  EXPECT_EQ(Count(), 1U);
  SetFileAttributesW(Path(L"a").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileOperationsTest, CopyIsNobodyElsesWhileItsMakerRuns) {
  Write(L"a", "old");
  WindowsFileOperations others;
  {
    WindowsFileOperations makers;
    EXPECT_TRUE(makers.Copy(Path(L"a"), Path(L"b")));
    EXPECT_TRUE(others.Exists(Path(L"b")));
    EXPECT_FALSE(others.Remove(Path(L"b")));
    EXPECT_FALSE(others.Move(Path(L"b"), Path(L"a")));
    EXPECT_EQ(Read(L"b"), "old");
    EXPECT_TRUE(makers.Copy(Path(L"a"), Path(L"b")));
    EXPECT_TRUE(makers.Move(Path(L"b"), Path(L"a")));
    EXPECT_TRUE(makers.Copy(Path(L"a"), Path(L"b")));
  }
  EXPECT_TRUE(others.Remove(Path(L"b")));
  EXPECT_EQ(Count(), 1U);
}

TEST_F(FileOperationsTest, CopyThatFailsLeavesNothing) {
  EXPECT_FALSE(files.Copy(Path(L"missing"), Path(L"b")));
  Write(L"a", "old");
  std::filesystem::create_directory(folder.Path() / L"b");
  EXPECT_FALSE(files.Copy(Path(L"a"), Path(L"b")));
  EXPECT_EQ(Count(), 2U);
  EXPECT_FALSE(files.Copy(Path(L"a"), Path(L"no\\b")));
}

TEST_F(FileOperationsTest, MovesOverTheFileThatIsThere) {
  Write(L"a", "old");
  Write(L"b", "new");
  EXPECT_TRUE(files.Exists(Path(L"a")));
  EXPECT_TRUE(files.Move(Path(L"a"), Path(L"b")));
  EXPECT_FALSE(files.Exists(Path(L"a")));
  EXPECT_EQ(Read(L"b"), "old");
  EXPECT_FALSE(files.Move(Path(L"a"), Path(L"b")));
  EXPECT_EQ(Read(L"b"), "old");
}

TEST_F(FileOperationsTest, HiddenAndSystemFilesAndFoldersAreNotNormal) {
  EXPECT_FALSE(files.IsNormalFile(Path(L"a")));
  Write(L"a", "text");
  for (const DWORD attributes : std::initializer_list<DWORD>{FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_READONLY,
                                                             FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM}) {
    SetFileAttributesW(Path(L"a").c_str(), attributes);
    EXPECT_EQ(files.IsNormalFile(Path(L"a")),
              attributes == FILE_ATTRIBUTE_NORMAL || attributes == FILE_ATTRIBUTE_READONLY)
        << attributes;
    EXPECT_TRUE(files.Exists(Path(L"a")));
  }
  std::filesystem::create_directory(folder.Path() / L"b");
  EXPECT_FALSE(files.IsNormalFile(Path(L"b")));
  EXPECT_TRUE(files.Exists(Path(L"b")));
  SetFileAttributesW(Path(L"a").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileOperationsTest, MissingOneCountsAsRemoved) {
  EXPECT_TRUE(files.Remove(Path(L"a")));
  EXPECT_FALSE(files.Exists(Path(L"a")));
}

}  // namespace
}  // namespace kvez
