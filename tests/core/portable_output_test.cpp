// What the services say on a machine that has none of them.

#include "platform/portable/portable_output.h"

#include <gtest/gtest.h>

#include <ctime>
#include <stdexcept>

#include "platform/portable/local_time.h"
#include "platform/portable/portable_settings_store.h"

namespace kvez {
namespace {

class PortableOutputTest : public testing::Test {
 protected:
  PortableOutput output;
  OutputPlatform services = output.Services();
};

TEST_F(PortableOutputTest, ClockIsTheSystems) {
  // The clock may go on by a second between two looks at it.
  const std::time_t before = std::time(nullptr);
  const DateTime now = services.clock.Now();
  const std::time_t after = std::time(nullptr);
  bool found = false;
  for (std::time_t moment = before; moment <= after; ++moment) found = found || LocalDateTime(moment) == now;
  EXPECT_TRUE(found);
}

TEST_F(PortableOutputTest, NobodyIsThereToHandAListTo) {
  services.pendingMessages.Process();
  services.clipboard.Replace(L"text");
  EXPECT_EQ(services.folders.Browse(L"title"), std::nullopt);
  EXPECT_EQ(services.folders.IsDirectory(L"/"), false);
  EXPECT_EQ(services.mail.SendDocuments(L";", L"file", L"name"), 26U);
}

TEST_F(PortableOutputTest, ProgramFileSaysNothing) {
  EXPECT_EQ(services.version.LegalNotice(), L"");
  EXPECT_EQ(services.version.ProductName(), L"");
  EXPECT_EQ(services.version.ProductVersion(), L"");
}

TEST_F(PortableOutputTest, EverythingButTheResetRefusesToPrint) {
  Printer& printer = services.printer;
  printer.Reset();
  EXPECT_THROW(printer.Settings(), std::runtime_error);
  EXPECT_THROW(printer.ChangeSettings({}), std::runtime_error);
  EXPECT_THROW(printer.SetFontSize(8), std::runtime_error);
  EXPECT_THROW(printer.SetBold(true), std::runtime_error);
  EXPECT_THROW(printer.TextWidth(L"text"), std::runtime_error);
  EXPECT_THROW(printer.TextHeight(L"text"), std::runtime_error);
  EXPECT_THROW(printer.Print(0, 0, L"text"), std::runtime_error);
  EXPECT_THROW(printer.Line(0, 0, 1, 1), std::runtime_error);
  EXPECT_THROW(printer.NewPage(), std::runtime_error);
  EXPECT_THROW(printer.EndDocument(), std::runtime_error);
}

TEST(PortableSettingsStore, TextsAreKeptUnderTheirThreeNames) {
  PortableSettingsStore store;
  EXPECT_EQ(store.Get(L"A", L"B", L"C", L"default"), L"default");
  store.Save(L"A", L"B", L"C", L"one");
  store.Save(L"A", L"C", L"B", L"two");
  store.Save(L"A", L"B", L"C", L"three");
  EXPECT_EQ(store.Get(L"A", L"B", L"C", L"default"), L"three");
  EXPECT_EQ(store.Get(L"A", L"C", L"B", L"default"), L"two");
  EXPECT_EQ(store.Get(L"B", L"A", L"C", L"default"), L"default");
}

}  // namespace
}  // namespace kvez
