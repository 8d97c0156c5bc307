// Libraries of the system's names that somebody has put beside the program, and into the working folder: none of them
// is ever loaded, and no program of that kind is started. On a machine where they could be: by default this system
// looks for its own first.

#include <gmock/gmock.h>
#include <oleacc.h>
#include <windows.h>
// Stay below windows.h.
#include <psapi.h>
#include <tlhelp32.h>

#include <algorithm>
#include <map>
#include <set>

#include "tests/facts/pe_file.h"
#include "tests/program/update_fixture.h"
#include "tests/support/folder_dialog.h"
#include "tests/support/free_file.h"
#include "tests/support/list_menu_driver.h"
#include "tests/support/mail_client.h"
#include "tests/support/printed_pages.h"
#include "tests/support/temporary_folder.h"

namespace kvez::test {
namespace {

using testing::IsEmpty;
using testing::IsSubsetOf;

constexpr const wchar_t* kOverrides = L"Software\\Wine\\AppDefaults\\kvez.exe\\DllOverrides";

std::wstring Lower(std::wstring text) {
  CharLowerW(text.data());
  return text;
}

class RealPrinterPlanted : public UpdateFixture {
 protected:
  using Libraries = std::map<std::wstring, std::filesystem::path>;  // by their names in small letters

  void SetUp() override {
    ASSERT_TRUE(m_queue.IsThere()) << "try: tests/support/print-queue start";
    UpdateFixture::SetUp();
    m_before = std::filesystem::current_path();
    std::filesystem::current_path(m_working.Path());
    server.Serve("kvez.chm", {.body = ReadBytes(Native(KVEZ_PROGRAM_FOLDER) / "kvez.chm")});
  }
  void TearDown() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, kOverrides);
    std::filesystem::current_path(m_before);
    UpdateFixture::TearDown();
  }

  static std::filesystem::path SystemPath() {
    wchar_t path[MAX_PATH] = {};
    GetSystemDirectoryW(path, MAX_PATH);
    return path;
  }

  static Libraries LoadedBy(const Program& program) {
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, program.ProcessId());
    HMODULE modules[400];
    DWORD bytes = 0;
    Libraries libraries;
    EXPECT_TRUE(EnumProcessModules(process, modules, sizeof modules, &bytes));
    EXPECT_LE(bytes, sizeof modules);
    for (DWORD i = 0; i < bytes / sizeof(HMODULE); ++i) {
      wchar_t path[MAX_PATH] = {};
      GetModuleFileNameExW(process, modules[i], path, MAX_PATH);
      const std::filesystem::path file(path);
      libraries.emplace(Lower(file.filename().wstring()), file);
    }
    CloseHandle(process);
    return libraries;
  }

  /// What comes into any process with the libraries that the program names in its imports, and theirs: the system has
  /// all of it before any program runs.
  std::set<std::wstring> LoadedBeforeAnyProgram(const Libraries& loaded) const {
    std::vector<std::wstring> open = {L"kernel32.dll", L"ntdll.dll"};
    const auto add = [&open](const std::filesystem::path& file) {
      for (const std::string& import : PeFile(file).Imports()) {
        open.emplace_back(import.begin(), import.begin() + static_cast<std::ptrdiff_t>(import.find(' ')));
      }
    };
    add(Exe());
    // The common controls that the manifest asks for lie in a folder of the system's own.
    if (const auto controls = loaded.find(L"comctl32.dll"); controls != loaded.end()) add(controls->second);
    std::set<std::wstring> closed;
    while (!open.empty()) {
      const std::wstring name = open.back();
      open.pop_back();
      const std::filesystem::path file = SystemPath() / name;
      if (std::filesystem::exists(file) && closed.insert(name).second) add(file);
    }
    return closed;
  }

  void Plant(const std::wstring& library) {
    for (const auto& folder : {Folder(), m_working.Path()}) {
      std::filesystem::copy_file(Native(KVEZ_PLANTED_LIBRARY), folder / library);
    }
    const std::wstring name = library.ends_with(L".dll") ? library.substr(0, library.size() - 4) : library;
    constexpr wchar_t order[] = L"native,builtin";
    RegSetKeyValueW(HKEY_CURRENT_USER, kOverrides, name.c_str(), REG_SZ, order, sizeof order);
  }

  /// Those that were loaded by the program, or before it could begin.
  std::vector<std::wstring> LoadedPlants(const wchar_t* when) const {
    std::vector<std::wstring> names;
    for (const auto& folder : {Folder(), m_working.Path()}) {
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == when) names.push_back(entry.path().stem().wstring());
      }
    }
    return names;
  }

  /// The folder of the program of that name that was started. It ends, or is ended when it has had time to come up: one
  /// that is ended before its first instruction stays under Wine for ever, and keeps the output of the tests open.
  static std::filesystem::path EndStarted(const wchar_t* name) {
    std::filesystem::path folder;
    EXPECT_TRUE(WaitUntil([&] {
      const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
      PROCESSENTRY32W entry{};
      entry.dwSize = sizeof entry;
      for (BOOL more = Process32FirstW(list, &entry); more && folder.empty(); more = Process32NextW(list, &entry)) {
        if (lstrcmpiW(entry.szExeFile, name) != 0) continue;
        const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE | SYNCHRONIZE, FALSE,
                                           entry.th32ProcessID);
        wchar_t path[1024] = {};
        DWORD length = 1024;
        if (QueryFullProcessImageNameW(process, 0, path, &length)) folder = std::filesystem::path(path).parent_path();
        if (WaitForSingleObject(process, 3000) == WAIT_TIMEOUT) TerminateProcess(process, 0);
        WaitForSingleObject(process, 10000);
        CloseHandle(process);
      }
      CloseHandle(list);
      return !folder.empty();
    }));
    return folder;
  }

  /// A session in which everything is used once; what the process has loaded by its end.
  Libraries Session(const wchar_t* mail) {
    CoInitialize(nullptr);
    // The session before has updated and downloaded.
    for (int i = 0; i < 3; ++i) WriteBytes(Folder() / Name(i), ReadBytes(Native(KVEZ_PROGRAM_FOLDER) / Name(i)));
    std::filesystem::remove(Folder() / "kvez.chm");
    for (const auto& folder : {Folder(), m_working.Path()}) {
      if (std::filesystem::exists(folder / "msinfo32.exe")) continue;
      std::filesystem::copy_file(SystemPath() / "winver.exe", folder / "msinfo32.exe");
    }
    const MailClientRegistration client(0, (m_records.Path() / mail).wstring());
    Program program(Exe());
    EXPECT_TRUE(program.WaitReady());
    AskAsAScreenReader(program);
    HandOut(program, client);
    UseSettings(program);
    UseAbout(program);
    UseTheInternet(program);
    Libraries loaded = LoadedBy(program);
    Close(program);
    CoUninitialize();
    return loaded;
  }

  static void AskAsAScreenReader(const Program& program) {
    void* object = nullptr;
    ASSERT_TRUE(SUCCEEDED(AccessibleObjectFromWindow(program.Control(kTlHVyhledej), static_cast<DWORD>(OBJID_CLIENT),
                                                     __uuidof(IAccessible), &object)));
    static_cast<IAccessible*>(object)->Release();
  }

  void HandOut(const Program& program, const MailClientRegistration& client) {
    const auto choose = [&](MenuCommand command) {
      ASSERT_TRUE(ChooseFromListMenu(program, command));
      ASSERT_TRUE(program.Answer(program.WaitDialog(), IDYES));
    };
    program.Focus(kTxtMPSC);
    TypeText(L"lednice");
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitUntil([&] { return !program.Text(kLblPSCV + 1).empty(); }));
    choose(MenuCommand::Copy);
    choose(MenuCommand::Export);
    const HWND dialog = WaitFolderDialog(program.ProcessId());
    ASSERT_TRUE(SelectFolder(dialog, m_records.Path().wstring()));
    ASSERT_TRUE(CloseFolderDialog(dialog, IDOK));
    EXPECT_TRUE(program.Answer(program.WaitDialog(), IDOK));
    choose(MenuCommand::Mail);
    EXPECT_TRUE(WaitUntil([&] { return client.Received().has_value(); }));
    choose(MenuCommand::Print);
    EXPECT_EQ(m_queue.WaitForDocument().pages, 1);
    EXPECT_TRUE(WaitUntil([&] { return !program.IsShown(kPicMPSCPI); }));
  }

  static void UseSettings(const Program& program) {
    program.Click(kTlHNastaveni);
    const auto box = [] { return GetDlgItem(FindWindowW(L"KvezNastaveni", nullptr), 301); };
    ASSERT_TRUE(WaitUntil([&] { return IsWindowVisible(box()) != FALSE; }));
    for (const wchar_t* wish : {L"True", L"False"}) {
      SendMessageW(box(), BM_CLICK, 0, 0);
      EXPECT_TRUE(WaitUntil([&] { return ReadSetting(L"zástupce") == wish; }));
    }
    SendMessageW(FindWindowW(L"KvezNastaveni", nullptr), WM_CLOSE, 0, 0);
  }

  static void UseAbout(const Program& program) {
    program.Click(kTlHOaplikaci);
    ASSERT_TRUE(WaitUntil([&] { return program.Control(kTlHPCInfo) != nullptr && program.IsShown(kTlHPCInfo); }));
    program.Click(kTlHPCInfo);
    EXPECT_TRUE(std::filesystem::equivalent(EndStarted(L"msinfo32.exe"), SystemPath()));
    program.Focus(kText1);
    program.Click(kTlHStorno);
    EXPECT_TRUE(WaitUntil([&] { return !program.IsShown(kFraMPSCO); }));
  }

  void UseTheInternet(const Program& program) {
    program.Click(kTlHNapoveda);
    EXPECT_TRUE(program.Answer(program.WaitDialog(), IDYES));
    EXPECT_TRUE(WaitUntil([] { return FindWindowW(L"HH Parent", nullptr) != nullptr; }));
    PostMessageW(FindWindowW(L"HH Parent", nullptr), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([] { return FindWindowW(L"HH Parent", nullptr) == nullptr; }));
    program.Click(kTlHAktualizace);
    EXPECT_TRUE(WaitUpdated(program));
  }

  PrintQueue m_queue;
  TemporaryFolder m_records;
  TemporaryFolder m_working;
  std::filesystem::path m_before;
};

TEST_F(RealPrinterPlanted, LibrariesOfTheSystemsNamesAreNeverLoaded) {
  const Libraries loaded = Session(L"first.txt");
  const std::set<std::wstring> before = LoadedBeforeAnyProgram(loaded);
  // All that is asked for by name came into the process, or the session has not used everything.
  for (const wchar_t* library : {L"lz32.dll", L"oleacc.dll", L"version.dll", L"winspool.drv", L"shell32.dll",
                                 L"shlwapi.dll", L"urlmon.dll", L"wininet.dll", L"hhctrl.ocx", L"mapi32.dll"}) {
    EXPECT_TRUE(loaded.contains(library)) << testing::PrintToString(std::wstring(library));
  }
  int planted = 0;
  for (const auto& [name, path] : loaded) {
    // The display driver of Wine is loaded with the first window of any process.
    if (before.contains(name) || name == L"kvez.exe" || name == L"winex11.drv") continue;
    Plant(name);
    ++planted;
  }
  EXPECT_GT(planted, 15);
  const Libraries again = Session(L"second.txt");
  EXPECT_THAT(LoadedPlants(L".loaded"), IsEmpty());
  // Wine's user interface looks for this one while it makes the process, before the first instruction of the program,
  // and lets go of it at once: nothing in the program can forbid that, and what it draws with is another one, below.
  EXPECT_THAT(LoadedPlants(L".loaded-before"), IsSubsetOf({L"uxtheme.dll"}));
  for (const auto& [name, path] : again) {
    if (name == L"kvez.exe") continue;
    EXPECT_FALSE(std::filesystem::equivalent(path.parent_path(), Folder())) << path;
    EXPECT_FALSE(std::filesystem::equivalent(path.parent_path(), m_working.Path())) << path;
  }
}

}  // namespace
}  // namespace kvez::test
