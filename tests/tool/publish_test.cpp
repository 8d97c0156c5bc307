// What packaging/publish gives to nobody. It is a shell script, so natively only.

#ifndef _WIN32

#include "tests/support/help_bytes.h"
#include "tests/tool/process.h"
#include "tests/tool/tool_test.h"

namespace kvez {
namespace {

class PublishTest : public ToolTest {
 protected:
  void SetUp() override { BuildFiles(); }

  ProcessRun Publish(const std::string& help) {
    folder.Write("out/kvez.chm", help);
    return RunProcess(Argument(std::filesystem::path(KVEZ_SOURCE_DIR) / "packaging" / "publish") + L" " +
                      Argument(folder.Path() / "out") + L" " + Argument(KVEZ_DATA_TOOL) + L" stav " +
                      Argument(folder.Path() / "published") + L" 2>&1");
  }
  void ExpectRefused(const ProcessRun& run) {
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "publish: " + ToUtf8(TextFromPath(folder.Path() / "out")) +
                              "/kvez.chm is no help, or not a whole one; nothing was published.\n");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "published"));
  }
};

TEST_F(PublishTest, LaysOutAWholeSet) {
  const ProcessRun run = Publish(test::HelpBytes());
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_EQ(NamesIn("published"), "index.html kvez.chm kvez.ico kvez.png vd1.kl_ vd2.kl_ vd3.kl_");
}

TEST_F(PublishTest, RefusesAHelpThatTheProgramWouldNotOpen) {
  ExpectRefused(Publish("<html>404</html>"));
  ExpectRefused(Publish("ITSF"));
  ExpectRefused(Publish(test::HelpBytes().substr(0, 60)));
  ExpectRefused(Publish(test::HelpBytes(121)));
  ExpectRefused(Publish(test::HelpBytes(119)));
  std::string outside = test::HelpBytes();
  outside[57] = 1;
  ExpectRefused(Publish(outside));
  outside[63] = '\xFF';
  ExpectRefused(Publish(outside));
}

}  // namespace
}  // namespace kvez

#endif
