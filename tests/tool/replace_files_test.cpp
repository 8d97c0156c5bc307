// What becomes of the old file when the new one does not arrive as it should.

#include "tests/core/data_bytes.h"
#include "tests/tool/process.h"
#include "tests/tool/tool_test.h"
#include "tools/data_file_bytes.h"

namespace kvez {
namespace {

using fakes::Bytes;

class ReplaceFilesTest : public ToolTest {
 protected:
  ReplaceFilesTest() {
    folder.Write("in", std::string("new"));
    folder.Write("out", std::string("old"));
  }

  void ExpectNothingReplaced() {
    EXPECT_EQ(folder.Read("out"), "old");
    EXPECT_EQ(NamesIn(""), "in out");
  }
};

TEST_F(ReplaceFilesTest, FileThatFailsItsCheckReplacesNothing) {
  Bytes checked;
  const auto check = [&](const Bytes& back) {
    checked = back;
    throw ToolError("refused");
  };
  EXPECT_THROW(ReplaceFiles({{folder.Path() / "out", {'n', 'e', 'w'}, check}}), ToolError);
  EXPECT_EQ(checked, (Bytes{'n', 'e', 'w'}));
  ExpectNothingReplaced();
}

TEST_F(ReplaceFilesTest, EachDataFileMustExpandToWhatWentIntoIt) {
  Tables tables;
  tables.municipalities.push_back({35002, L"Aš", L"Cheb"});
  tables.postOffices.push_back({35002, L"Aš"});
  tables.districts.push_back({3402, L"Cheb"});
  const std::vector<NewFile> files = DataFiles(tables, folder.Path());
  ASSERT_EQ(files.size(), 3U);
  for (std::size_t i = 0; i < files.size(); ++i) {
    EXPECT_NO_THROW(files[i].check(files[i].bytes));
    // Sound, but that of another list.
    EXPECT_THROW(files[i].check(files[(i + 1) % 3].bytes), ToolError);
  }
}

#ifdef KVEZ_FAULTY_DISK

class FaultyDiskTest : public ReplaceFilesTest {
 protected:
  /// Expands "in", which is not compressed, into "out".
  ProcessRun ExpandWith(const std::wstring& fault) {
    // The sanitizers want to be the first library; here they need not be.
    return RunProcess(L"env ASAN_OPTIONS=verify_asan_link_order=0 LD_PRELOAD=" + Argument(KVEZ_FAULTY_DISK) + L" " +
                      fault + L" " + Argument(KVEZ_DATA_TOOL) + L" expand " + Argument(folder.Path() / "in") + L" " +
                      Argument(folder.Path() / "out") + L" 2>&1");
  }
};

TEST_F(FaultyDiskTest, FileThatReadsBackOtherThanItWasWrittenReplacesNothing) {
  const ProcessRun run = ExpandWith(L"KVEZ_ALTERED_WRITES=" + Argument(folder.Path()));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output.starts_with("kvezdata: " + Shown(L"out")), true) << run.output;
  ExpectNothingReplaced();
}

TEST_F(FaultyDiskTest, RefusedRenamingIsAnError) {
  const ProcessRun run = ExpandWith(L"KVEZ_REFUSED_RENAMES=1");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output.starts_with("kvezdata: " + Shown(L"out")), true) << run.output;
  EXPECT_EQ(folder.Read("out"), "old");
  // What such a disk does not let it take back, the next run on a sound one does.
  EXPECT_EQ(ExpandWith(L"KVEZ_ALTERED_WRITES=/no/such/folder").status, 0);
  EXPECT_EQ(folder.Read("out"), "new");
  EXPECT_EQ(NamesIn(""), "in out");
}

TEST_F(FaultyDiskTest, SoundDiskReplacesTheFile) {
  const ProcessRun run = ExpandWith(L"KVEZ_ALTERED_WRITES=/no/such/folder");
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(folder.Read("out"), "new");
}

#endif

}  // namespace
}  // namespace kvez
