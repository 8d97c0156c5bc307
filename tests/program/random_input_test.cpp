// Events that nobody would think of: a quarter of what ./kvez soak sends with each of its seeds, whose first this is.

#include "tests/support/random_input.h"
#include "tests/program/download_base.h"
#include "tests/program/program_test.h"

namespace kvez::test {
namespace {

constexpr int kEvents = 2500;
constexpr int kBatch = 50;
// Each look of a control brings objects of the system along when it first comes up, and the last ones come late.
constexpr int kWarmUp = kEvents * 3 / 5;
constexpr int kMostDeviceContexts = 64 + 20;  // those that the system keeps, and the program's own
constexpr unsigned kSeed = 20251;

class RandomInputTest : public ProgramTest {};

TEST_F(RandomInputTest, LeavesTheProgramAliveAndItsHandlesWhereTheyWere) {
  SaveSetting(L"nastavení0", L"1");
  SaveSetting(L"nastavení2", L"1");
  // An update that the keyboard may start ends at a port where nobody listens.
  ASSERT_TRUE(ReplaceDownloadBase(Exe(), L"http://127.0.0.1:9/"));
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  RandomInput::BringUpAbout(program);
  program.Focus(kTxtMPSC);

  RandomInput input(kSeed);
  GdiCount gdiAfterWarmUp;
  int windowsAfterWarmUp = 0;
  for (int event = 0; event < kEvents; ++event) {
    input.SendEvent(program);
    if (event % kBatch != kBatch - 1) continue;
    ASSERT_TRUE(RandomInput::Settle(program)) << "after event " << event;
    SetForegroundWindow(program.MainWindow());
    if (event == kWarmUp - 1) {
      gdiAfterWarmUp = program.GdiObjects();
      windowsAfterWarmUp = program.Windows();
    }
  }
  ASSERT_TRUE(RandomInput::WorkOff(program));
  // What is shown at a moment may need a brush or a window more or less, but not more with every event.
  if constexpr (sizeof(void*) == 8) {
    EXPECT_GT(gdiAfterWarmUp.others, 0);
  }
  const GdiCount gdi = program.GdiObjects();
  EXPECT_NEAR(gdi.others, gdiAfterWarmUp.others, 20);
  EXPECT_LE(gdi.deviceContexts, kMostDeviceContexts);
  EXPECT_NEAR(program.Windows(), windowsAfterWarmUp, 5);

  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  const Dialog question = program.WaitDialog();
  EXPECT_EQ(question.text, L"Přejete si program ukončit ?");
  EXPECT_TRUE(program.Answer(question, IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

}  // namespace
}  // namespace kvez::test
