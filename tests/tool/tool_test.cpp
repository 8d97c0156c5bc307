#include "tests/tool/tool_test.h"

#include <algorithm>
#include <new>

#include "text/error.h"
#include "text/utf8.h"

namespace kvez {

std::string ToolTest::Shown(const std::wstring& name) const { return ToUtf8(Path(name)); }

std::string ToolTest::NamesIn(const std::string& name) const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path() / name)) {
    names.push_back(ToUtf8(TextFromPath(entry.path().filename())));
  }
  std::sort(names.begin(), names.end());
  std::string joined;
  for (const std::string& each : names) joined.append(joined.empty() ? "" : " ").append(each);
  return joined;
}

namespace {

const std::string kUsage =
    "usage:\n"
    "  kvezdata import LIST.csv DATADIR\n"
    "  kvezdata compare OLDDATADIR NEWDATADIR [--anyway]\n"
    "  kvezdata build DATADIR OUTDIR\n"
    "  kvezdata check DIR [--strict]\n"
    "  kvezdata list DIR municipalities|offices|districts\n"
    "  kvezdata search DIR name TEXT | search DIR psc TEXT [--exact] | search DIR district NAME\n"
    "  kvezdata expand IN OUT\n"
    "  kvezdata compress IN OUT\n";
const std::string kUsageAsMessage = kUsage.substr(0, kUsage.size() - 1);

TEST(Tool, HelpShowsTheCommands) {
  for (const wchar_t* word : {L"help", L"--help", L"-h"}) ExpectSuccess(RunCommand({word}), kUsage);
}

TEST(Tool, NoCommandIsRefused) { ExpectFailure(RunCommand({}), "no command is given\n" + kUsageAsMessage); }

TEST(Tool, UnknownCommandIsRefused) {
  ExpectFailure(RunCommand({L"dovoz"}), "there is no command 'dovoz'\n" + kUsageAsMessage);
}

TEST(Tool, WrongNumberOfArgumentsIsRefused) {
  ExpectFailure(RunCommand({L"import", L"a"}), "usage: kvezdata import LIST.csv DATADIR");
  ExpectFailure(RunCommand({L"build", L"a", L"b", L"c"}), "usage: kvezdata build DATADIR OUTDIR");
  ExpectFailure(RunCommand({L"check"}), "usage: kvezdata check DIR [--strict]");
  ExpectFailure(RunCommand({L"list", L"a"}), "usage: kvezdata list DIR municipalities|offices|districts");
  ExpectFailure(RunCommand({L"search", L"a", L"name"}),
                "usage: kvezdata search DIR name TEXT | search DIR psc TEXT [--exact] | search DIR district NAME");
  ExpectFailure(RunCommand({L"expand", L"a"}), "usage: kvezdata expand IN OUT");
  ExpectFailure(RunCommand({L"compress", L"a"}), "usage: kvezdata compress IN OUT");
}

TEST(Tool, EmptyPathIsRefusedAsItWasTyped) {
  for (const std::vector<std::wstring>& command :
       std::vector<std::vector<std::wstring>>{{L"import", L"", L"a"},
                                              {L"import", L"a", L""},
                                              {L"build", L"", L"a"},
                                              {L"build", L"a", L""},
                                              {L"check", L""},
                                              {L"list", L"", L"offices"},
                                              {L"search", L"", L"name", L"a"},
                                              {L"expand", L"", L"a"},
                                              {L"expand", L"a", L""},
                                              {L"compress", L"", L"a"},
                                              {L"compress", L"a", L""}}) {
    ExpectFailure(RunCommand(command), "'' is no path");
  }
}

// No text of a library reaches the user.
TEST(Tool, FailuresHaveWordsOfTheirOwn) {
  const auto words = [](const auto& failure) {
    try {
      throw failure;
    } catch (...) {
      return CurrentFailure();
    }
  };
  EXPECT_EQ(words(ToolError("words")), "words");
  EXPECT_EQ(words(ConversionError(L"věta")), "věta");
  EXPECT_EQ(words(std::bad_alloc()), "there is not enough memory");
  EXPECT_EQ(words(std::length_error("vector::reserve")), "there is not enough memory");
  EXPECT_EQ(words(std::filesystem::filesystem_error("cannot", "a", std::error_code())), "a cannot be reached");
  EXPECT_EQ(words(std::runtime_error("basic_filebuf")), "something failed that should not");
  EXPECT_EQ(words(1), "something failed that should not");
}

TEST(Tool, OutputThatCannotBeWrittenIsAnError) {
  std::ostringstream out;
  std::ostringstream error;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(RunTool({L"help"}, out, error), 1);
  EXPECT_EQ(error.str(), "kvezdata: the output cannot be written\n");
}

}  // namespace
}  // namespace kvez
