// The settings window and the shortcut on the desktop in the real program.

#include <windows.h>
// Stays below windows.h.
#include <shlobj.h>

#include "tests/program/download_base.h"
#include "tests/program/program_test.h"
#include "tests/support/free_file.h"

namespace kvez::test {
namespace {

constexpr int kCheckBoxes = 300;

class SettingsWindow : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    wchar_t desktop[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_DESKTOPDIRECTORY, nullptr, SHGFP_TYPE_CURRENT, desktop);
    link = std::filesystem::path(desktop) / L"Kvez.lnk";
    EXPECT_TRUE(RemoveWhenFree(link));
  }
  void TearDown() override {
    EXPECT_TRUE(RemoveWhenFree(link));
    ProgramTest::TearDown();
  }

  static HWND Handle() { return FindWindowW(L"KvezNastaveni", L"Kvez - nastavení"); }
  static HWND Box(int index) { return GetDlgItem(Handle(), kCheckBoxes + index); }
  static bool IsTicked(int index) { return SendMessageW(Box(index), BM_GETCHECK, 0, 0) == BST_CHECKED; }
  static bool Open(const Program& program) { return program.WaitReady() && OpenAgain(program); }
  /// A pointer that came over a list in between may have selected a row, which leaves the modes that mark readiness.
  static bool OpenAgain(const Program& program) {
    program.Click(kTlHNastaveni);
    return WaitUntil(
        [] { return Handle() != nullptr && IsWindowVisible(Handle()) && GetForegroundWindow() == Handle(); });
  }
  /// Clicks a box with the pointer and waits until its setting is stored.
  static bool Tick(int index, bool ticked) {
    RECT bounds{};
    GetWindowRect(Box(index), &bounds);
    ClickAt({bounds.left + 6, (bounds.top + bounds.bottom) / 2});
    return WaitUntil([&] { return ReadSetting(L"nastavení" + std::to_wstring(index)) == (ticked ? L"1" : L"0"); });
  }
  static bool CloseWithEscape() {
    PressKey(VK_ESCAPE);
    return WaitUntil([] { return Handle() == nullptr; });
  }
  static void End(Program& program) {
    PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
    EXPECT_EQ(program.WaitForEnd(), DWORD{0});
  }
  bool WaitWish(const wchar_t* wish) {
    return WaitUntil([&] { return ReadSetting(L"zástupce") == wish; });
  }

  std::filesystem::path link;
};

TEST_F(SettingsWindow, AreStoredAtOnceAndShownAgain) {
  Program program(Exe());
  ASSERT_TRUE(Open(program));
  for (int index = 0; index < 3; ++index) EXPECT_FALSE(IsTicked(index));
  for (int index = 0; index < 3; ++index) {
    EXPECT_EQ(ReadSetting(L"nastavení" + std::to_wstring(index)), L"(none)") << "opening must not write";
  }
  EXPECT_TRUE(Tick(0, true));
  EXPECT_TRUE(Tick(2, true));
  EXPECT_TRUE(Tick(0, false));
  EXPECT_EQ(ReadSetting(L"nastavení1"), L"(none)");
  EXPECT_EQ(ReadSetting(L"zástupce"), L"(none)");
  EXPECT_TRUE(CloseWithEscape());
  ASSERT_TRUE(OpenAgain(program));
  EXPECT_FALSE(IsTicked(0));
  EXPECT_TRUE(IsTicked(2));
}

TEST_F(SettingsWindow, ShowWhatAnEarlierRunStored) {
  SaveSetting(L"nastavení0", L"1");
  SaveSetting(L"nastavení2", L"5");
  Program program(Exe());
  ASSERT_TRUE(Open(program));
  EXPECT_TRUE(IsTicked(0));
  EXPECT_FALSE(IsTicked(1));
  EXPECT_TRUE(IsTicked(2));
}

TEST_F(SettingsWindow, TheKeyboardTicksAndCloses) {
  Program program(Exe());
  ASSERT_TRUE(Open(program));
  PressKey(VK_SPACE);
  EXPECT_TRUE(WaitUntil([] { return ReadSetting(L"nastavení0") == L"1"; }));
  PressKey(VK_TAB);
  PressKey(VK_TAB);
  PressKey(VK_SPACE);
  EXPECT_TRUE(WaitUntil([] { return ReadSetting(L"nastavení2") == L"1"; }));
  EXPECT_TRUE(CloseWithEscape());
  EXPECT_FALSE(program.HasEnded());
}

TEST_F(SettingsWindow, TheShortcutComesAndGoesWithItsTick) {
  Program program(Exe());
  ASSERT_TRUE(Open(program));
  EXPECT_TRUE(Tick(1, true));
  EXPECT_TRUE(WaitWish(L"True"));
  EXPECT_TRUE(std::filesystem::exists(link));
  EXPECT_TRUE(Tick(1, false));
  EXPECT_TRUE(WaitWish(L"False"));
  EXPECT_FALSE(std::filesystem::exists(link));
}

TEST_F(SettingsWindow, AShortcutDeletedByHandComesBackAtTheEnd) {
  Program program(Exe());
  ASSERT_TRUE(Open(program));
  EXPECT_TRUE(Tick(1, true));
  EXPECT_TRUE(WaitWish(L"True"));
  ASSERT_TRUE(RemoveWhenFree(link));
  End(program);
  ASSERT_TRUE(std::filesystem::exists(link));

  // The shell finds the program through it.
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  IShellLinkW* shortcut = nullptr;
  wchar_t target[MAX_PATH] = {};
  ASSERT_TRUE(SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                         reinterpret_cast<void**>(&shortcut))));
  IPersistFile* file = nullptr;
  if (SUCCEEDED(shortcut->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file)))) {
    file->Load(link.c_str(), STGM_READ);
    file->Release();
  }
  shortcut->GetPath(target, MAX_PATH, nullptr, SLGP_RAWPATH);
  shortcut->Release();
  CoUninitialize();
  EXPECT_TRUE(std::filesystem::equivalent(target, Exe()));
}

TEST_F(SettingsWindow, AnUnwantedShortcutDoesNotComeBack) {
  SaveSetting(L"zástupce", L"False");
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  End(program);
  EXPECT_FALSE(std::filesystem::exists(link));
}

TEST_F(SettingsWindow, APresentShortcutIsNotRewrittenAtTheEnd) {
  SaveSetting(L"zástupce", L"True");
  WriteBytes(link, "mine");
  Program program(Exe());
  ASSERT_TRUE(program.WaitReady());
  End(program);
  EXPECT_EQ(ReadBytes(link), "mine");
}

TEST_F(SettingsWindow, AnUnwritableDesktopIsSilentAndTheWishStays) {
  // A folder of the shortcut's name refuses the file.
  std::filesystem::create_directory(link);
  Program program(Exe());
  ASSERT_TRUE(Open(program));
  EXPECT_TRUE(Tick(1, true));
  EXPECT_TRUE(WaitWish(L"True"));
  EXPECT_FALSE(program.OpenDialog().has_value());
  EXPECT_TRUE(std::filesystem::is_directory(link));
  EXPECT_TRUE(CloseWithEscape());
  End(program);
}

TEST_F(SettingsWindow, TheExitClosesTheWindow) {
  Program program(Exe());
  ASSERT_TRUE(Open(program));
  End(program);
  EXPECT_EQ(Handle(), nullptr);
}

}  // namespace
}  // namespace kvez::test
