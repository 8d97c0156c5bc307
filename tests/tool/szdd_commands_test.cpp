#include "platform/portable/szdd.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

class SzddCommandsTest : public ToolTest {
 protected:
  ToolRun Expand() { return RunCommand({L"expand", Path(L"in"), Path(L"out")}); }

  const std::string text = "Kvez Kvez Kvez Kvez";
};

TEST_F(SzddCommandsTest, CompressedFileExpandsToItself) {
  folder.Write("in.bin", text);
  ExpectSuccess(RunCommand({L"compress", Path(L"in.bin"), Path(L"in")}), "");
  EXPECT_EQ(folder.Read("in").substr(0, 10), std::string("SZDD\x88\xF0\x27\x33"
                                                         "An"));
  ExpectSuccess(Expand(), "");
  EXPECT_EQ(folder.Read("out"), text);
}

TEST_F(SzddCommandsTest, LastLetterOutsideAsciiIsLeftOut) {
  folder.Write(PathFromText(L"výběrč"), text);
  EXPECT_EQ(RunCommand({L"compress", Path(L"výběrč"), Path(L"out")}).status, 0);
  EXPECT_EQ(folder.Read("out")[9], '\0');
}

// Some systems have no file of such a name and take the one without the blank; the name is looked at as it was given.
TEST_F(SzddCommandsTest, LastCharacterIsLeftOutWhereItIsNoneToSee) {
  const auto lastOf = [&](const std::wstring& name) {
    folder.Write(PathFromText(name), text);
    EXPECT_EQ(RunCommand({L"compress", Path(name), Path(L"out")}).error, "");
    return folder.Read("out")[9];
  };
  EXPECT_EQ(lastOf(L"in "), '\0');
  EXPECT_EQ(lastOf(L"in!"), '!');
  EXPECT_EQ(lastOf(L"in~"), '~');
  EXPECT_EQ(lastOf(L"in\x7F"), '\0');
}

TEST_F(SzddCommandsTest, FileMayReplaceItself) {
  folder.Write("in", text);
  EXPECT_EQ(RunCommand({L"compress", Path(L"in"), Path(L"in")}).status, 0);
  EXPECT_EQ(folder.Read("in").substr(0, 4), "SZDD");
  EXPECT_EQ(RunCommand({L"expand", Path(L"in"), Path(L"in")}).status, 0);
  EXPECT_EQ(folder.Read("in"), text);
}

TEST_F(SzddCommandsTest, FileThatIsNotCompressedIsPassedThrough) {
  folder.Write("in", text);
  ExpectSuccess(Expand(), "");
  EXPECT_EQ(folder.Read("out"), text);
}

TEST_F(SzddCommandsTest, DamagedFileReplacesNothing) {
  std::vector<std::uint8_t> file = CompressSzdd(std::vector<std::uint8_t>{'a', 'b', 'c', 'd'}, 'n');
  file.pop_back();
  folder.Write("in", file);
  folder.Write("out", text);
  ExpectFailure(Expand(), Shown(L"in") + ": offset " + std::to_string(file.size()) +
                              ": the compressed stream ends after 3 of 4 declared bytes; more of it was expected");
  EXPECT_EQ(folder.Read("out"), text);
}

TEST_F(SzddCommandsTest, MissingFileIsAnError) {
  ExpectFailure(Expand(), Shown(L"in") + " cannot be read");
  ExpectFailure(RunCommand({L"compress", Path(L"in"), Path(L"out")}), Shown(L"in") + " cannot be read");
  ExpectFailure(RunCommand({L"expand", Path(), Path(L"out")}), Shown(L"") + " cannot be read");
  ExpectFailure(RunCommand({L"compress", Path() + L"/", Path(L"out")}), Shown(L"") + "/ cannot be read");
}

TEST_F(SzddCommandsTest, TargetThatCannotBeWrittenIsAnError) {
  folder.Write("in", text);
  ExpectFailure(RunCommand({L"compress", Path(L"in"), Path(L"no folder/out")}),
                Shown(L"no folder/out") + " cannot be written");
  std::filesystem::create_directory(folder.Path() / "out");
  ExpectFailure(Expand(), Shown(L"out") + " is there already and is no file");
}

}  // namespace
}  // namespace kvez
