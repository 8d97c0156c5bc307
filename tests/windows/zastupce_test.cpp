// The shortcut on the desktop of the machine that the test runs on: made by the scripting host, read back from its
// file.
#include <gmock/gmock.h>
#include <windows.h>
// Stay below windows.h.
#include <shlobj.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "platform/windows/owned.h"
#include "platform/windows/windows_automation.h"
#include "platform/windows/windows_settings_store.h"
#include "platform/windows/windows_shell.h"
#include "settings/clszastupce.h"
#include "tests/support/free_file.h"

namespace kvez::test {
namespace {

constexpr const wchar_t* kBranch = L"Software\\VB and VBA Program Settings\\VD";

std::filesystem::path Desktop() {
  wchar_t path[MAX_PATH] = {};
  SHGetFolderPathW(nullptr, CSIDL_DESKTOPDIRECTORY, nullptr, SHGFP_TYPE_CURRENT, path);
  return path;
}

struct LinkContent {
  std::wstring target;
  std::wstring item;  // the target by its place in the shell; its path has an 8-bit form in the file
  std::wstring folder;
  std::int32_t showCommand = 0;
};

// The window state is read from the file itself: the shell's reader turns values that it does not know into 1.
std::optional<LinkContent> ReadLink(const std::filesystem::path& path) {
  IShellLinkW* link = nullptr;
  IPersistFile* file = nullptr;
  LinkContent content;
  bool loaded = false;
  if (SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                 reinterpret_cast<void**>(&link)))) {
    if (SUCCEEDED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file)))) {
      loaded = SUCCEEDED(file->Load(path.c_str(), STGM_READ));
      file->Release();
    }
    wchar_t text[MAX_PATH] = {};
    if (loaded && SUCCEEDED(link->GetPath(text, MAX_PATH, nullptr, SLGP_RAWPATH))) content.target = text;
    PIDLIST_ABSOLUTE items = nullptr;
    if (loaded && link->GetIDList(&items) == S_OK && SHGetPathFromIDListW(items, text)) content.item = text;
    CoTaskMemFree(items);
    if (loaded && SUCCEEDED(link->GetWorkingDirectory(text, MAX_PATH))) content.folder = text;
    link->Release();
  }
  std::ifstream stream(path, std::ios::binary);
  constexpr std::streamoff showCommandOffset = 0x3C;
  stream.seekg(showCommandOffset);
  stream.read(reinterpret_cast<char*>(&content.showCommand), sizeof content.showCommand);
  if (!loaded || !stream) return std::nullopt;
  return content;
}

class Zastupce : public testing::Test {
 protected:
  void SetUp() override { Clean(); }
  void TearDown() override { Clean(); }
  void Clean() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kBranch);
    EXPECT_TRUE(test::RemoveWhenFree(link));
  }
  clszastupce Shortcut() { return clszastupce({settings, shell, automation, folder.wstring(), L"kvez"}); }
  std::wstring Wish() { return settings.Get(L"VD", L"VDKVEZ", L"zástupce", L"(none)"); }

  // Before everything else: the shortcut is read back with objects, too.
  WindowsAutomation automation;
  WindowsSettingsStore settings;
  WindowsShell shell;
  std::filesystem::path link = Desktop() / L"Kvez.lnk";
  std::filesystem::path folder = std::filesystem::temp_directory_path() / L"Kvez ěšč";
};

TEST_F(Zastupce, TheDesktopIsTheShells) { EXPECT_EQ(shell.SpecialFolder(0), Desktop().wstring()); }

TEST_F(Zastupce, AnUnknownFolderIsEmpty) { EXPECT_EQ(shell.SpecialFolder(0x7FFF), L""); }

// The computer, which is no folder of the file system: its path is no row of blanks.
TEST_F(Zastupce, AFolderWithoutAPathIsEmpty) { EXPECT_EQ(shell.SpecialFolder(CSIDL_DRIVES), L""); }

TEST_F(Zastupce, SaysTheSameWhereTheCodePageLosesThePath) {
  folder = std::filesystem::temp_directory_path() / L"Kvez 日本";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "kvez.exe") << "MZ";
  Shortcut().zZastupcePlocha(true);
  const auto content = ReadLink(link);
  std::filesystem::remove_all(folder);
  ASSERT_TRUE(content.has_value());
  EXPECT_EQ(content->item, (folder / L"kvez.exe").wstring());
  EXPECT_EQ(content->folder, folder.wstring());
  EXPECT_EQ(content->showCommand, 4);
  Shortcut().zZastupcePlocha(false);
  EXPECT_FALSE(std::filesystem::exists(link));
}

TEST_F(Zastupce, IsCreatedWithTargetFolderAndWindowState) {
  Shortcut().zZastupcePlocha(true);
  EXPECT_TRUE(Shortcut().zZastupcePlocha());
  const auto content = ReadLink(link);
  ASSERT_TRUE(content.has_value());
  EXPECT_EQ(content->target, (folder / L"kvez.exe").wstring());
  EXPECT_EQ(content->folder, folder.wstring());
  EXPECT_EQ(content->showCommand, 4);
  EXPECT_EQ(Wish(), L"True");
}

TEST_F(Zastupce, IsDeletedWithoutAQuestion) {
  Shortcut().zZastupcePlocha(true);
  Shortcut().zZastupcePlocha(false);
  EXPECT_FALSE(std::filesystem::exists(link));
  EXPECT_FALSE(Shortcut().zZastupcePlocha());
  EXPECT_EQ(Wish(), L"False");
}

TEST_F(Zastupce, ReplacesAnExistingFile) {
  std::ofstream(link, std::ios::binary) << "something else";
  Shortcut().zZastupcePlocha(true);
  const auto content = ReadLink(link);
  ASSERT_TRUE(content.has_value());
  EXPECT_EQ(content->target, (folder / L"kvez.exe").wstring());
}

TEST_F(Zastupce, IsPutBackAtTheEndWhenItWasDeletedByHand) {
  Shortcut().zZastupcePlocha(true);
  ASSERT_TRUE(test::RemoveWhenFree(link));
  Shortcut().zStop();
  EXPECT_TRUE(ReadLink(link).has_value());
}

TEST_F(Zastupce, AnExistingOneIsNotRewrittenAtTheEnd) {
  settings.Save(L"VD", L"VDKVEZ", L"zástupce", L"True");
  std::ofstream(link, std::ios::binary) << "mine";
  Shortcut().zStop();
  EXPECT_EQ(std::filesystem::file_size(link), 4u);
}

TEST_F(Zastupce, ARefusedSaveIsSilentAndStillWanted) {
  // A folder of the shortcut's name refuses the file, to every user.
  std::filesystem::create_directory(link);
  Shortcut().zZastupcePlocha(true);
  EXPECT_TRUE(std::filesystem::is_directory(link));
  EXPECT_EQ(Wish(), L"True");
}

TEST_F(Zastupce, AnUnknownObjectIsNotThere) { EXPECT_EQ(automation.Create(L"Kvez.Neni"), nullptr); }

TEST_F(Zastupce, AnUnknownMemberRefuses) {
  const auto host = automation.Create(L"WScript.Shell");
  ASSERT_NE(host, nullptr);
  EXPECT_FALSE(host->Call(L"NoSuchMethod"));
  EXPECT_FALSE(host->SetText(L"NoSuchProperty", L"x"));
  EXPECT_EQ(host->CallForObject(L"NoSuchMethod", L"x"), nullptr);
}

}  // namespace
}  // namespace kvez::test
