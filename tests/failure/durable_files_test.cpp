// What the calls for durable files answer to each failure of the system by its own number.

#include "platform/durable_files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "tests/support/system_call_faults.h"
#include "tests/support/temporary_folder.h"

namespace kvez::durable {
namespace {

namespace system_calls = test::system_calls;

constexpr std::uint8_t kByte = 'n';

class DurableFiles : public testing::Test {
 protected:
  ~DurableFiles() override { system_calls::Disarm(); }

  /// The next call of this name fails.
  static void Refuse(const char* call, int error) {
    system_calls::AtNext(call, [error] { return error; });
  }

  bool IsThere() const { return std::filesystem::exists(file); }

  TemporaryFolder folder;
  FilePath file = folder.Path() / "file";
};

TEST_F(DurableFiles, NewFileThatCannotBeWrittenLeavesNothing) {
  const std::pair<const char*, int> refusals[] = {{"open", EACCES}, {"pwrite", ENOSPC}, {"fsync", EIO}, {"close", EIO}};
  for (const auto& [call, error] : refusals) {
    Refuse(call, error);
    EXPECT_EQ(MakeFile(file, {&kByte, 1}), Answer::No) << call;
    EXPECT_FALSE(IsThere()) << call;
  }
}

TEST_F(DurableFiles, NewFileIsWholeWhereTheSystemOnlyCannotFlush) {
  const std::pair<const char*, int> answers[] = {{"fsync", EINVAL}, {"fsync", ENOSYS}, {"fsync", EINTR},
                                                 {"close", EINTR},  {"open", EINTR},   {"pwrite", EINTR}};
  for (const auto& [call, error] : answers) {
    Refuse(call, error);
    EXPECT_EQ(MakeFile(file, {&kByte, 1}), Answer::Yes) << call << ' ' << std::strerror(error);
    EXPECT_EQ(folder.Read("file"), "n");
    ASSERT_TRUE(Remove(file));
  }
}

TEST_F(DurableFiles, NewFileTakesNoName) {
  folder.Write("file", std::string("old"));
  EXPECT_EQ(MakeFile(file, {&kByte, 1}), Answer::NameIsTaken);
  EXPECT_EQ(folder.Read("file"), "old");
}

TEST_F(DurableFiles, MissingFileIsToldFromOneThatCannotBeLookedAt) {
  EXPECT_EQ(Look(file), Answer::Missing);
  folder.Write("file", std::string("old"));
  EXPECT_EQ(Look(file), Answer::Yes);
  EXPECT_EQ(Look(file / "below"), Answer::Missing);
  Refuse("lstat", EACCES);
  EXPECT_EQ(Look(file), Answer::No);
}

TEST_F(DurableFiles, MissingFileCountsAsRemoved) {
  EXPECT_TRUE(Remove(file));
  folder.Write("file", std::string("old"));
  Refuse("unlink", EACCES);
  EXPECT_FALSE(Remove(file));
  EXPECT_TRUE(IsThere());
}

TEST_F(DurableFiles, NamesOfAFolderAreFlushed) {
  for (const FilePath& name : {folder.Path(), FilePath()}) {
    bool isFlushed = false;
    system_calls::AtNext("fsync", [&] {
      isFlushed = true;
      return 0;
    });
    FlushNames(name);
    EXPECT_TRUE(isFlushed) << name;
  }
  Refuse("open", EACCES);
  system_calls::Arm(0, system_calls::Fault::Refuse);
  FlushNames(folder.Path());
  EXPECT_EQ(system_calls::Disarm(), 0U) << "calls after the refused one";
}

TEST_F(DurableFiles, HeldFileIsMadeByOneProcess) {
  Refuse("open", EACCES);
  EXPECT_EQ(HeldFile().Make(file), Answer::No);
  Refuse("flock", EWOULDBLOCK);
  EXPECT_EQ(HeldFile().Make(file), Answer::NameIsTaken);
  ASSERT_TRUE(Remove(file));
  // Somebody else takes it for a run that was killed, and removes it, between its making and its locking.
  system_calls::AtNext("flock", [this] {
    std::filesystem::remove(file);
    return 0;
  });
  EXPECT_EQ(HeldFile().Make(file), Answer::NameIsTaken);
  EXPECT_FALSE(IsThere());
  // And makes another one.
  system_calls::AtNext("flock", [&] {
    folder.Write("other", std::string("other"));
    std::filesystem::rename(folder.Path() / "other", file);
    return 0;
  });
  EXPECT_EQ(HeldFile().Make(file), Answer::NameIsTaken);
  EXPECT_EQ(folder.Read("file"), "other");
}

TEST_F(DurableFiles, FileSystemWithoutLocksHoldsNothing) {
  Refuse("flock", ENOLCK);
  EXPECT_EQ(HeldFile().Make(file), Answer::Yes);
  Refuse("flock", ENOLCK);
  EXPECT_EQ(HeldFile().Open(file), Answer::Yes);
}

TEST_F(DurableFiles, HeldFileOfAnotherProcessIsInUse) {
  EXPECT_EQ(HeldFile().Open(file), Answer::Missing);
  folder.Write("file", std::string("old"));
  EXPECT_EQ(HeldFile().Open(file / "below"), Answer::Missing);
  Refuse("open", EACCES);
  EXPECT_EQ(HeldFile().Open(file), Answer::No);
  Refuse("flock", EWOULDBLOCK);
  EXPECT_EQ(HeldFile().Open(file), Answer::InUse);
  Refuse("fstat", EIO);
  EXPECT_EQ(HeldFile().Open(file), Answer::InUse);
  system_calls::AtNext("flock", [this] {
    std::filesystem::remove(file);
    return 0;
  });
  EXPECT_EQ(HeldFile().Open(file), Answer::InUse);
}

TEST_F(DurableFiles, HeldFileThatCannotBeReadGivesNothing) {
  folder.Write("file", std::string("old"));
  HeldFile held;
  ASSERT_EQ(held.Open(file), Answer::Yes);
  Refuse("pread", EIO);
  EXPECT_FALSE(held.Read());
  EXPECT_TRUE(held.Read());
  Refuse("pwrite", ENOSPC);
  EXPECT_FALSE(held.Write(0, {&kByte, 1}));
  Refuse("unlink", EACCES);
  EXPECT_FALSE(held.Remove());
  EXPECT_EQ(folder.Read("file"), "old");
}

}  // namespace
}  // namespace kvez::durable
