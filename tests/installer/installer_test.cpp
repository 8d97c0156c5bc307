// The installer, from outside: what it brings, what it leaves alone, what it takes away again.
#include <gtest/gtest.h>
#include <windows.h>
// Stays below windows.h.
#include <shlobj.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "platform/windows/owned.h"
#include "tests/installer/user_state.h"
#include "tests/program/download_base.h"
#include "tests/program/small_data.h"
#include "tests/support/http_server.h"
#include "tests/support/program_driver.h"
#include "tests/support/program_folder.h"

namespace kvez::test {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kDone = ERROR_SUCCESS;
constexpr DWORD kFailed = ERROR_INSTALL_FAILURE;
constexpr DWORD kDoneAfterRestart = ERROR_SUCCESS_REBOOT_REQUIRED;

class StartedProcess {
 public:
  explicit StartedProcess(std::wstring command) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(
        CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        << GetLastError();
    m_process = process.hProcess;
    CloseHandle(process.hThread);
  }
  ~StartedProcess() { CloseHandle(m_process); }
  StartedProcess(const StartedProcess&) = delete;
  StartedProcess& operator=(const StartedProcess&) = delete;

  DWORD WaitForEnd() const {
    EXPECT_EQ(WaitForSingleObject(m_process, 60000), DWORD{WAIT_OBJECT_0});
    DWORD code = 0;
    GetExitCodeProcess(m_process, &code);
    return code;
  }
  bool HasEnded() const { return WaitForSingleObject(m_process, 0) == WAIT_OBJECT_0; }
  void Kill() const {
    TerminateProcess(m_process, 1);
    WaitForEnd();
  }

 private:
  HANDLE m_process = nullptr;
};

/// One of the installers that the tests are started with: old, this, new, x86.
std::wstring Package(const std::wstring& name) {
  const wchar_t* folder = _wgetenv(L"KVEZ_INSTALLERS");
  return (fs::path(std::wstring(L"Z:") + (folder == nullptr ? L"" : folder)).make_preferred() / (name + L".msi"))
      .wstring();
}

std::wstring Command(const std::wstring& name, const std::wstring& properties) {
  return L"msiexec.exe /i \"" + Package(name) + L"\" /qn " + properties;
}

DWORD Install(const std::wstring& name, const std::wstring& properties = L"") {
  return StartedProcess(Command(name, properties)).WaitForEnd();
}

DWORD Remove(const std::wstring& name) {
  return StartedProcess(L"msiexec.exe /x \"" + Package(name) + L"\" /qn").WaitForEnd();
}

fs::path Folder() { return InstalledProgram(L"InstallLocation"); }
std::wstring Exe() { return (Folder() / L"kvez.exe").wstring(); }
fs::path UsualFolder() { return UserFolder(CSIDL_LOCAL_APPDATA) / L"Programs" / L"Kvez"; }
fs::path DesktopShortcut() { return UserFolder(CSIDL_DESKTOPDIRECTORY) / L"Kvez.lnk"; }
fs::path MenuShortcut() { return UserFolder(CSIDL_PROGRAMS) / L"Kvez.lnk"; }

std::string Built(const char* name) {
  return ReadBytes(fs::path(L"Z:").concat(KVEZ_PROGRAM_FOLDER).make_preferred() / name);
}

/// The list of the older package: one municipality.
const std::string kOlderList("\1\0\0\0\1\0A\1\0B", 10);

/// 100 nanoseconds since 1601 at noon of the list's day, which the second line of data/stav.txt tells.
std::int64_t NoonOfTheList() {
  std::istringstream state(ReadBytes(fs::path(L"Z:").concat(KVEZ_SOURCE_DIR).make_preferred() / "data" / "stav.txt"));
  std::string day;
  std::getline(state, day);
  std::getline(state, day);
  SYSTEMTIME noon{};
  noon.wYear = static_cast<WORD>(std::stoi(day.substr(0, 4)));
  noon.wMonth = static_cast<WORD>(std::stoi(day.substr(5, 2)));
  noon.wDay = static_cast<WORD>(std::stoi(day.substr(8, 2)));
  noon.wHour = 12;
  FILETIME time{};
  SystemTimeToFileTime(&noon, &time);
  return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

std::int64_t TimeOf(const fs::path& file) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data);
  return static_cast<std::int64_t>(std::uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32 |
                                   data.ftLastWriteTime.dwLowDateTime);
}

std::vector<std::wstring> Names(const fs::path& folder) {
  std::vector<std::wstring> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().wstring());
  std::sort(names.begin(), names.end());
  return names;
}

void Search(const Program& program) {
  ASSERT_TRUE(program.WaitReady());
  program.Focus(kTxtMPSC);
  TypeText(L"praha");
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return program.ListCount(kLstMPSC + 1) > 100; }));
}

void Close(Program& program) {
  PostMessageW(program.MainWindow(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
  EXPECT_EQ(program.WaitForEnd(), DWORD{0});
}

/// A control of the installer's window by its text, once it is there to be clicked; null when it does not come.
HWND InstallerControl(const std::wstring& text) {
  HWND found = nullptr;
  WaitUntil([&] {
    const HWND window = FindWindowW(nullptr, L"Instalace programu Kvez");
    for (HWND child = nullptr;
         window != nullptr && (child = FindWindowExW(window, child, nullptr, nullptr)) != nullptr;) {
      if (WindowText(child) == text && IsWindowVisible(child)) found = child;
    }
    return found != nullptr && IsWindowEnabled(found) != FALSE;
  });
  return found;
}

void ClickInstaller(const std::wstring& text) {
  const HWND control = InstallerControl(text);
  ASSERT_NE(control, nullptr) << "no " << testing::PrintToString(text);
  SetForegroundWindow(GetParent(control));
  ClickAt(CentreOf(control));
}

class Installer : public ::testing::Test {
 protected:
  // The system's own part of the registry comes with the first installation and stays.
  static void SetUpTestSuite() {
    for (const wchar_t* package : {L"this", L"x86"}) {
      ASSERT_EQ(Install(package), kDone);
      ASSERT_EQ(Remove(package), kDone);
    }
    s_before = TakeUserState();
  }
  void ExpectNothingIsLeft() { EXPECT_EQ(Difference(s_before, TakeUserState()), L""); }

  static inline UserState s_before;
};

TEST_F(Installer, InstalledProgramIsFoundByItsEntryAndSearches) {
  ASSERT_EQ(Install(L"this"), kDone);
  EXPECT_EQ(InstalledProgram(L"DisplayVersion"), L"1.0.0");
  EXPECT_EQ(InstalledProgram(L"Publisher"), L"Vývojáři programu Kvez");
  EXPECT_EQ(Folder().parent_path(), UsualFolder());
  const std::vector<std::wstring> all = {L"LICENSE.txt", L"kvez.chm", L"kvez.exe", L"vd1.kl_", L"vd2.kl_", L"vd3.kl_"};
  EXPECT_EQ(Names(Folder()), all);
  for (const char* name : {"kvez.exe", "kvez.chm", "vd1.kl_", "vd2.kl_", "vd3.kl_"}) {
    EXPECT_TRUE(ReadBytes(Folder() / name) == Built(name)) << name;
  }
  // The program shows its day. A cabinet's times are local ones.
  constexpr std::int64_t kHour = 36'000'000'000;
  EXPECT_NEAR(static_cast<double>(TimeOf(Folder() / L"vd1.kl_") - NoonOfTheList()) / kHour, 0.0, 11.9);
  EXPECT_TRUE(fs::exists(MenuShortcut()));
  EXPECT_FALSE(fs::exists(DesktopShortcut()));
  Program program(Exe());
  Search(program);
  Close(program);
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, RemovalTakesWhatTheProgramHasMadeAndLeavesExportedLists) {
  ASSERT_EQ(Install(L"this", L"DESKTOPSHORTCUT=1 STARTMENU=0"), kDone);
  EXPECT_TRUE(fs::exists(DesktopShortcut()));
  EXPECT_FALSE(fs::exists(MenuShortcut()));
  // The program's own settings know of it.
  EXPECT_EQ(ReadSetting(L"nastavení1"), L"1");
  EXPECT_EQ(ReadSetting(L"zástupce"), L"True");
  HttpServer server;
  for (int file = 0; file < 3; ++file) server.Serve(DataFileName(file), {.body = SmallData(file)});
  ASSERT_TRUE(ReplaceDownloadBase(Exe(), server.Base()));
  const fs::path exported = UserFolder(CSIDL_DESKTOPDIRECTORY) / L"vdkvez.txt";
  const fs::path exportedBeside = Folder() / L"vdkvez.txt";
  const fs::path folder = Folder();
  {
    Program program(Exe());
    ASSERT_TRUE(program.WaitReady());
    program.Click(kTlHAktualizace);
    EXPECT_TRUE(WaitUntil([&] { return !program.IsShown(kPicMPSCPI) && program.ListCount(kLstMPSC) == 2; }));
    EXPECT_EQ(ReadBytes(Folder() / L"vd1.kl_"), SmallData(0));
    // A program that is ended by force leaves these.
    for (const wchar_t* name : {L"vd1.bin", L"vd2.bin", L"vd3.bin", L"vd1.kl_.old", L"vd2.kl_.old", L"vd3.kl_.old",
                                L"vd1.kl_.old.kvez", L"meil.txt", L"meil.txt.kvez", L"vdkvez.txt"}) {
      WriteBytes(Folder() / name, "x");
    }
    program.Kill();
  }
  WriteBytes(exported, "x");
  SaveSetting(L"nastavení0", L"1");
  // The one that the program makes, in place of the installer's.
  WriteBytes(DesktopShortcut(), "x");
  EXPECT_EQ(Remove(L"this"), kDone);
  EXPECT_EQ(Names(folder), std::vector<std::wstring>{L"vdkvez.txt"});
  EXPECT_TRUE(fs::remove(exportedBeside));
  EXPECT_TRUE(fs::remove(exported));
  fs::remove(folder);
  fs::remove(folder.parent_path());
  fs::remove(folder.parent_path().parent_path());
  ExpectNothingIsLeft();
}

TEST_F(Installer, ANewerVersionReplacesAnOlderOneAndKeepsWhatIsTheUsers) {
  ASSERT_EQ(Install(L"old"), kDone);
  ASSERT_EQ(ReadBytes(Folder() / L"vd1.kl_"), kOlderList);
  SaveSetting(L"nastavení0", L"1");
  WriteBytes(DesktopShortcut(), "x");
  // Downloaded today; the package is of yesterday.
  WriteBytes(Folder() / L"vd1.kl_", SmallData(0));
  ASSERT_EQ(Install(L"this"), kDone);
  EXPECT_EQ(InstalledProgram(L"DisplayVersion"), L"1.0.0");
  EXPECT_TRUE(ReadBytes(Exe()) == Built("kvez.exe"));
  EXPECT_EQ(ReadBytes(Folder() / L"vd1.kl_"), SmallData(0));
  EXPECT_EQ(ReadSetting(L"nastavení0"), L"1");
  EXPECT_EQ(ReadBytes(DesktopShortcut()), "x");
  EXPECT_TRUE(fs::exists(MenuShortcut()));
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, AnOlderListGivesWay) {
  ASSERT_EQ(Install(L"old"), kDone);
  WriteBytes(Folder() / L"vd1.kl_", SmallData(0));
  fs::last_write_time(Folder() / L"vd1.kl_", fs::file_time_type::clock::now() - std::chrono::hours(24 * 30));
  ASSERT_EQ(Install(L"this"), kDone);
  EXPECT_TRUE(ReadBytes(Folder() / L"vd1.kl_") == Built("vd1.kl_"));
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, AnOlderVersionIsRefused) {
  ASSERT_EQ(Install(L"new"), kDone);
  EXPECT_EQ(Install(L"this"), kFailed);
  EXPECT_EQ(InstalledProgram(L"DisplayVersion"), L"99.0.0");
  EXPECT_EQ(Remove(L"new"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, ThePackageForAnotherProcessorReplacesAnOlderVersion) {
  ASSERT_EQ(Install(L"old"), kDone);
  ASSERT_EQ(Install(L"x86"), kDone);
  EXPECT_EQ(InstalledProgram(L"DisplayVersion"), L"1.0.0");
  EXPECT_EQ(Names(Folder()).size(), 6U);
  EXPECT_EQ(Remove(L"x86"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, AFolderWithDiacriticsAndBlanksWillDoAndIsKeptByTheNextVersion) {
  const fs::path folder = UserFolder(CSIDL_PERSONAL) / L"Můj žluťoučký Kvez";
  ASSERT_EQ(Install(L"old", L"INSTALLDIR=\"" + folder.wstring() + L"\""), kDone);
  EXPECT_EQ(Folder().parent_path(), folder);
  EXPECT_FALSE(fs::exists(UsualFolder()));
  ASSERT_EQ(Install(L"this"), kDone);
  EXPECT_EQ(Folder().parent_path(), folder);
  EXPECT_FALSE(fs::exists(UsualFolder()));
  Program program(Exe());
  Search(program);
  Close(program);
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

// The system cannot replace a running program's file: it does so when it starts anew, and says so. Wine does not ask
// the program to close before.
TEST_F(Installer, OverARunningProgramNothingIsHalf) {
  ASSERT_EQ(Install(L"old"), kDone);
  const std::string older = ReadBytes(Exe());
  {
    Program program(Exe());
    ASSERT_TRUE(program.WaitReady());
    EXPECT_EQ(Install(L"this"), kDoneAfterRestart);
    EXPECT_TRUE(ReadBytes(Exe()) == older);
    EXPECT_TRUE(ReadBytes(Folder() / L"vd1.kl_") == Built("vd1.kl_"));
    Close(program);
  }
  StartedProcess(L"wineboot.exe").WaitForEnd();
  EXPECT_TRUE(ReadBytes(Exe()) == Built("kvez.exe"));
  EXPECT_EQ(Names(Folder()).size(), 6U);
  Program program(Exe());
  Search(program);
  Close(program);
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, AWindowInCzechInstallsWithOneClickAndStartsTheProgram) {
  const StartedProcess installer(L"msiexec.exe /i \"" + Package(L"this") + L"\"");
  ClickInstaller(L"&Vytvořit zástupce na ploše");
  ClickInstaller(L"&Nainstalovat");
  ASSERT_NE(InstallerControl(L"Program je nainstalován. Najdete ho v nabídce Start."), nullptr);
  ClickInstaller(L"&Dokončit");
  EXPECT_EQ(installer.WaitForEnd(), kDone);
  EXPECT_TRUE(fs::exists(DesktopShortcut()));
  ASSERT_TRUE(WaitUntil([] { return FindWindowW(L"KvezForm", L"Kvez") != nullptr; }));
  auto program = Program::Running();
  ASSERT_TRUE(program.has_value());
  Search(*program);
  Close(*program);
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, ACancelledWindowChangesNothing) {
  const StartedProcess installer(L"msiexec.exe /i \"" + Package(L"this") + L"\"");
  ClickInstaller(L"Storno");
  ClickInstaller(L"&Ano");
  ClickInstaller(L"&Zavřít");
  EXPECT_EQ(installer.WaitForEnd(), DWORD{ERROR_INSTALL_USEREXIT});
  ExpectNothingIsLeft();
}

TEST_F(Installer, TheSameInstallerAgainSaysThatItIsInstalled) {
  ASSERT_EQ(Install(L"this"), kDone);
  const UserState installed = TakeUserState();
  const StartedProcess again(L"msiexec.exe /i \"" + Package(L"this") + L"\"");
  ClickInstaller(L"&Spustit Kvez");
  ClickInstaller(L"&Dokončit");
  EXPECT_EQ(again.WaitForEnd(), kDone);
  EXPECT_EQ(Difference(installed, TakeUserState()), L"");
  const StartedProcess removal(L"msiexec.exe /x \"" + Package(L"this") + L"\"");
  ASSERT_NE(InstallerControl(L"Program je odinstalován."), nullptr);
  ClickInstaller(L"&Dokončit");
  EXPECT_EQ(removal.WaitForEnd(), kDone);
  ExpectNothingIsLeft();
}

// Windows puts an older version back; Wine takes away what was to be there.
TEST_F(Installer, AnInstallationThatFailsInTheMiddleLeavesNothing) {
  // Where a file is to come, a folder stands that is not empty.
  const fs::path obstacle = UsualFolder() / L"vd3.kl_" / L"x";
  fs::create_directories(obstacle);
  EXPECT_EQ(Install(L"this"), kFailed);
  EXPECT_EQ(InstalledProgram(L"DisplayName"), L"");
  EXPECT_EQ(Names(UsualFolder()), std::vector<std::wstring>{L"vd3.kl_"});
  EXPECT_FALSE(fs::exists(MenuShortcut()));
  fs::remove_all(UsualFolder() / L"vd3.kl_");
  // Nothing stands in the way of the next one.
  EXPECT_EQ(Install(L"this"), kDone);
  EXPECT_TRUE(ReadBytes(Folder() / L"vd3.kl_") == Built("vd3.kl_"));
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

TEST_F(Installer, AfterAKilledInstallationTheNextOneIsWhole) {
  {
    const StartedProcess installer(Command(L"this", L""));
    // The first of its files has come.
    ASSERT_TRUE(WaitUntil([&] { return fs::exists(UsualFolder()) || installer.HasEnded(); }));
    installer.Kill();
  }
  // The system's copy of it, which nobody knows any more.
  for (const auto& entry : fs::directory_iterator(L"C:\\windows\\Installer")) fs::remove(entry.path());
  ASSERT_EQ(Install(L"this"), kDone);
  for (const char* name : {"kvez.exe", "kvez.chm", "vd1.kl_", "vd2.kl_", "vd3.kl_"}) {
    EXPECT_TRUE(ReadBytes(Folder() / name) == Built(name)) << name;
  }
  EXPECT_EQ(Remove(L"this"), kDone);
  ExpectNothingIsLeft();
}

}  // namespace
}  // namespace kvez::test
