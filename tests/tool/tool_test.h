#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "platform/portable/portable_path.h"
#include "tests/support/temporary_folder.h"
#include "text/windows1250.h"
#include "tools/tool.h"

namespace kvez {

/// One run of the data tool, in the tests' own process.
struct ToolRun {
  int status = 0;
  std::string out;
  std::string error;
};

inline ToolRun RunCommand(const std::vector<std::wstring>& arguments) {
  std::ostringstream out;
  std::ostringstream error;
  const int status = RunTool(arguments, out, error);
  return {status, out.str(), error.str()};
}

/// Commands on files in a folder of their own. Messages name files by their path; Path() is that of one.
class ToolTest : public testing::Test {
 protected:
  std::wstring Path(const std::wstring& name = L"") const {
    return TextFromPath(name.empty() ? folder.Path() : (folder.Path() / PathFromText(name)).make_preferred());
  }
  std::string Shown(const std::wstring& name) const;

  /// Three small sound tables in "data".
  void WriteTables() const {
    std::filesystem::create_directories(folder.Path() / "data");
    folder.Write(
        "data/obce.csv",
        "psc;obec;okres\n35002;Cheb;Cheb\n11000;Staré Město;Hlavní město Praha\n60200;Žabovřesky;Brno-město\n");
    folder.Write("data/posty.csv", "psc;posta\n60200;Brno 2\n35002;Cheb 2\n11000;Praha 1\n");
    folder.Write("data/okresy.csv", "kod;okres\n3702;Brno-město\n3100;Hlavní město Praha\n3402;Cheb\n");
  }

  /// The data files of those tables in "out".
  void BuildFiles() const {
    WriteTables();
    const ToolRun run = RunCommand({L"build", Path(L"data"), Path(L"out")});
    ASSERT_EQ(run.error, "");
    ASSERT_EQ(run.status, 0);
  }

  /// The names of everything in a folder, sorted and joined by blanks.
  std::string NamesIn(const std::string& name) const;

  TemporaryFolder folder;
};

/// That a run failed with exactly this message and printed no result.
inline void ExpectFailure(const ToolRun& run, const std::string& message) {
  EXPECT_EQ(run.error, "kvezdata: " + message + "\n");
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.status, 1);
}

inline void ExpectSuccess(const ToolRun& run, const std::string& out) {
  EXPECT_EQ(run.out, out);
  EXPECT_EQ(run.error, "");
  EXPECT_EQ(run.status, 0);
}

}  // namespace kvez
