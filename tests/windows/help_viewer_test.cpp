// The compiled help, opened and closed by the system's viewer.
#include "platform/windows/windows_help_viewer.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

#include "tests/support/program_driver.h"

namespace kvez::test {
namespace {

class HelpWindows : public testing::Test {
 protected:
  void SetUp() override {
    owner = CreateWindowW(L"STATIC", L"owner", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
  }
  void TearDown() override { DestroyWindow(owner); }

  static HWND HelpWindow() { return FindWindowW(L"HH Parent", nullptr); }
  /// The help window lives in this process: its messages wait here.
  static bool WaitWithMessages(bool open) {
    return WaitUntil([open] {
      MSG message{};
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
      return (HelpWindow() != nullptr) == open;
    });
  }

  HWND owner = nullptr;
  WindowsHelpViewer viewer{[this] { return owner; }};
  std::filesystem::path help = std::filesystem::path(KVEZ_PROGRAM_FOLDER) / "kvez.chm";
};

TEST_F(HelpWindows, OpenWithTheTitleOfTheHelpAndClose) {
  ASSERT_TRUE(std::filesystem::exists(help)) << "kvez.chm is not built: is fp-utils-3.2.2 installed?";
  EXPECT_TRUE(viewer.Show(help.wstring()));
  EXPECT_TRUE(WaitWithMessages(true));
  EXPECT_EQ(WindowText(HelpWindow()), L"Kvez – nápověda");
  viewer.CloseAll();
  EXPECT_TRUE(WaitWithMessages(false));
}

TEST_F(HelpWindows, TakeThePathsThatTheViewerCanBeGiven) {
  const std::wstring folder(247, L'a');
  EXPECT_TRUE(viewer.Takes(L"C:\\" + folder + L"\\kvez.chm"));  // 259 characters and a NUL
  EXPECT_FALSE(viewer.Takes(L"C:\\" + folder + L"a\\kvez.chm"));
  EXPECT_TRUE(viewer.Takes(L"C:\\Žluťoučký kůň\\kvez.chm"));
  EXPECT_TRUE(viewer.Takes(L"C:\\日本\\kvez.chm"));
}

// The longest path that it is given opens, too.
TEST_F(HelpWindows, OpenFromTheDeepestFolder) {
  ASSERT_TRUE(std::filesystem::exists(help)) << "kvez.chm is not built: is fp-utils-3.2.2 installed?";
  std::filesystem::path folder = std::filesystem::temp_directory_path();
  const std::filesystem::path first = folder / L"kvez deep";
  folder = first;
  constexpr std::size_t longest = 259 - 9;
  while (folder.wstring().size() < longest) {
    const std::size_t left = longest - folder.wstring().size() - 1;
    // No part may be left that is a separator alone.
    folder /= std::wstring(left > 101 ? 100 : left, L'a');
  }
  std::filesystem::create_directories(folder);
  const std::filesystem::path deep = folder / L"kvez.chm";
  std::filesystem::copy_file(help, deep, std::filesystem::copy_options::overwrite_existing);
  ASSERT_EQ(deep.wstring().size(), 259U);
  ASSERT_TRUE(viewer.Takes(deep.wstring()));
  viewer.Show(deep.wstring());
  EXPECT_TRUE(WaitWithMessages(true));
  viewer.CloseAll();
  EXPECT_TRUE(WaitWithMessages(false));
  std::filesystem::remove_all(first);
}

TEST_F(HelpWindows, OpenFromAFolderThatTheCodePageCannotName) {
  ASSERT_TRUE(std::filesystem::exists(help)) << "kvez.chm is not built: is fp-utils-3.2.2 installed?";
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / L"kvez 日本";
  std::filesystem::create_directories(folder);
  std::filesystem::copy_file(help, folder / "kvez.chm", std::filesystem::copy_options::overwrite_existing);
  EXPECT_TRUE(viewer.Show((folder / "kvez.chm").wstring()));
  EXPECT_TRUE(WaitWithMessages(true));
  viewer.CloseAll();
  EXPECT_TRUE(WaitWithMessages(false));
  std::filesystem::remove_all(folder);
}

TEST_F(HelpWindows, AMissingFileOpensNothing) {
  EXPECT_FALSE(viewer.Show(L"C:\\neni\\kvez.chm"));
  EXPECT_EQ(HelpWindow(), nullptr);
  viewer.CloseAll();
}

TEST_F(HelpWindows, ClosingWithoutAWindowDoesNothing) {
  viewer.CloseAll();
  EXPECT_EQ(HelpWindow(), nullptr);
}

}  // namespace
}  // namespace kvez::test
