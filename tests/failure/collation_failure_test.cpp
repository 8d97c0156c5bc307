// The order of the alphabet comes from a library with memory of its own, which runs out here.

#include <gtest/gtest.h>
#include <unicode/uclean.h>

#include <cstdlib>
#include <new>

#include "platform/collation.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

// How many more pieces there are; nothing runs out below 0.
int pieces = -1;

bool IsOut() { return pieces == 0 || (pieces > 0 && --pieces < 0); }
void* U_CALLCONV Allocate(const void*, size_t size) { return IsOut() ? nullptr : std::malloc(size); }
void* U_CALLCONV Reallocate(const void*, void* memory, size_t size) {
  return IsOut() ? nullptr : std::realloc(memory, size);
}
void U_CALLCONV Free(const void*, void* memory) { std::free(memory); }

// The library takes these only before its first use.
const UErrorCode ours = [] {
  UErrorCode status = U_ZERO_ERROR;
  u_setMemoryFunctions(nullptr, &Allocate, &Reallocate, &Free, &status);
  return status;
}();

class CollationFailure : public testing::Test {
 protected:
  ~CollationFailure() override { pieces = -1; }
};

TEST_F(CollationFailure, KeyOfALongTextWithoutMemory) {
  ASSERT_EQ(ours, U_ZERO_ERROR);
  const auto collation = CreateCzechCollation();
  const std::wstring text(2000, L'\x17E');
  const std::string key = collation->SortKey(text);
  int most = 0;
  for (;; ++most) {
    pieces = most;
    try {
      EXPECT_EQ(collation->SortKey(text), key);
      break;
    } catch (const std::bad_alloc&) {
    }
  }
  // One for the text, others for the key.
  EXPECT_GT(most, 1);
}

TEST_F(CollationFailure, MachineWithoutTheCzechOrder) {
  const TemporaryFolder folder;
  folder.Write("list.csv",
               std::string("NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE\r\nCheb;35002;Cheb 2;3402;Cheb;Cheb\r\n"));
  pieces = 0;
  const ToolRun run = RunCommand({L"import", TextFromPath(folder.Path() / "list.csv"), TextFromPath(folder.Path())});
  pieces = -1;
  EXPECT_EQ(run.error, "kvezdata: this machine cannot sort as Czech sorts\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(folder.Read("obce.csv"), "(missing)");
}

}  // namespace
}  // namespace kvez
