// The system's services for handing a list out: clipboard, text files, folders, mail.
#include <gmock/gmock.h>
#include <windows.h>

#include <filesystem>
#include <thread>

#include "platform/windows/owned.h"
#include "platform/windows/windows_clipboard.h"
#include "platform/windows/windows_folder_dialog.h"
#include "platform/windows/windows_mail_client.h"
#include "platform/windows/windows_text_files.h"
#include "tests/support/mail_client.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/waiting.h"

namespace kvez::test {
namespace {

using OwnedWindow = Owned<HWND, [](HWND window) { DestroyWindow(window); }>;

class SystemClipboard : public ::testing::Test {
 protected:
  // What another program that asks for the format gets.
  template <typename Character>
  static std::basic_string<Character> Read(UINT format) {
    std::basic_string<Character> text;
    if (!OpenClipboard(nullptr)) return text;
    if (const HANDLE memory = GetClipboardData(format)) {
      text = static_cast<const Character*>(GlobalLock(memory));
      GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
  }

  OwnedWindow m_owner{CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr)};
  WindowsClipboard m_clipboard{[this] { return m_owner.Get(); }};
};

TEST_F(SystemClipboard, HoldsTheTextForNewAndOldPrograms) {
  m_clipboard.Replace(L"Žďár nad Sázavou\r\npo řádcích");
  EXPECT_EQ(Read<wchar_t>(CF_UNICODETEXT), L"Žďár nad Sázavou\r\npo řádcích");
  EXPECT_EQ(Read<char>(CF_TEXT),
            "\x8e\xef\xe1r nad S\xe1zavou\r\npo \xf8\xe1"
            "dc\xed"
            "ch");
}

TEST_F(SystemClipboard, HoldsNothingElseAfterwards) {
  m_clipboard.Replace(L"první");
  ASSERT_TRUE(OpenClipboard(m_owner.Get()));
  const UINT own = RegisterClipboardFormatW(L"Kvez-test");
  SetClipboardData(own, GlobalAlloc(GMEM_MOVEABLE, 8));
  CloseClipboard();
  m_clipboard.Replace(L"druhý");
  EXPECT_EQ(Read<wchar_t>(CF_UNICODETEXT), L"druhý");
  EXPECT_FALSE(IsClipboardFormatAvailable(own));
}

/// Another program, which looks at the clipboard until it is told to let go.
class LooksAtClipboard {
 public:
  LooksAtClipboard()
      : m_thread([this] {
          while (!OpenClipboard(nullptr)) Sleep(1);
          SetEvent(m_looks.Get());
          WaitForSingleObject(m_wanted.Get(), 10000);
          CloseClipboard();
        }) {
    WaitForSingleObject(m_looks.Get(), 10000);
  }
  ~LooksAtClipboard() { LetGo(); }
  void LetGo() {
    SetEvent(m_wanted.Get());
    if (m_thread.joinable()) m_thread.join();
  }

 private:
  using OwnedEvent = Owned<HANDLE, &release::Any>;

  OwnedEvent m_looks{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  OwnedEvent m_wanted{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  std::thread m_thread;
};

TEST_F(SystemClipboard, WaitsForAProgramThatLooksAtIt) {
  m_clipboard.Replace(L"staré");
  LooksAtClipboard other;
  int pauses = 0;
  const auto pause = [&] {
    if (++pauses == 2) other.LetGo();
  };
  WindowsClipboard([this] { return m_owner.Get(); }, {pause, 20}).Replace(L"nové");
  EXPECT_EQ(pauses, 2);
  EXPECT_EQ(Read<wchar_t>(CF_UNICODETEXT), L"nové");
}

TEST_F(SystemClipboard, GivesUpSilentlyOnAProgramThatKeepsIt) {
  m_clipboard.Replace(L"staré");
  LooksAtClipboard other;
  int pauses = 0;
  WindowsClipboard([this] { return m_owner.Get(); }, {[&] { ++pauses; }, 20}).Replace(L"nové");
  EXPECT_EQ(pauses, 20);
  other.LetGo();
  EXPECT_EQ(Read<wchar_t>(CF_UNICODETEXT), L"staré");
}

TEST(SystemTextFiles, WriteTheSystemCodePage) {
  const TemporaryFolder folder;
  folder.Write("soubor.txt", std::string("longer than what comes next"));
  WindowsTextFiles files;
  files.Write((folder.Path() / "soubor.txt").wstring(), L"Žďár\r\n© č");
  EXPECT_EQ(folder.Read("soubor.txt"), "\x8e\xef\xe1r\r\n\xa9 \xe8");
}

TEST(SystemTextFiles, WriteAQuestionMarkForWhatNoCodePageHas) {
  const TemporaryFolder folder;
  WindowsTextFiles().Write((folder.Path() / "soubor.txt").wstring(), L"日 Žďár ｒ");
  EXPECT_EQ(folder.Read("soubor.txt"), "? \x8e\xef\xe1r ?");
}

// What the disk calls the file, whatever its name.
std::uint64_t Identity(const std::filesystem::path& path) {
  const OwnedFile file(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  EXPECT_TRUE(GetFileInformationByHandle(file.Get(), &information));
  return (static_cast<std::uint64_t>(information.nFileIndexHigh) << 32) | information.nFileIndexLow;
}

// A new file takes the name of the older one, which is never there without its text.
TEST(SystemTextFiles, ReplaceTheOlderFileAsAWhole) {
  const TemporaryFolder folder;
  folder.Write("soubor.txt", std::string("older"));
  folder.Write("soubor.txt.kvez", std::string("left behind by a violent end"));
  const std::uint64_t older = Identity(folder.Path() / "soubor.txt");
  WindowsTextFiles().Write((folder.Path() / "soubor.txt").wstring(), L"new");
  EXPECT_NE(Identity(folder.Path() / "soubor.txt"), older);
  EXPECT_EQ(folder.Read("soubor.txt"), "new");
  EXPECT_EQ(folder.Read("soubor.txt.kvez"), "(missing)");
}

// A name in a folder that leads to a full device, for as long as the object lives. Windows has no such device; what
// runs its programs here does, and does not let them remove the name.
class FullDisk {
 public:
  FullDisk(std::filesystem::path folder, std::wstring name) : m_folder(std::move(folder)), m_name(std::move(name)) {
    m_isThere = Run(L"ln", L"ln -s /dev/full " + m_name) && Waits(true);
  }
  ~FullDisk() {
    if (m_isThere && Run(L"rm", L"rm " + m_name)) Waits(false);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

  bool IsThere() const { return m_isThere; }

 private:
  bool Run(const std::wstring& program, std::wstring command) const {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW((L"Z:\\bin\\" + program).c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        m_folder.c_str(), &startup, &process)) {
      return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
  }
  bool Waits(bool there) const {
    const std::wstring path = (m_folder / m_name).wstring();
    // The attributes of a device are not told.
    return WaitUntil([&] {
      const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
      const bool isThere = file != INVALID_HANDLE_VALUE;
      if (isThere) CloseHandle(file);
      return isThere == there;
    });
  }

  std::filesystem::path m_folder;
  std::wstring m_name;
  bool m_isThere = false;
};

TEST(SystemTextFiles, KeepTheOlderFileWhenTheDiskIsFull) {
  const TemporaryFolder folder;
  folder.Write("soubor.txt", std::string("older"));
  const FullDisk full(folder.Path(), L"soubor.txt.kvez");
  if (!full.IsThere()) GTEST_SKIP() << "there is no full device";
  EXPECT_THROW(WindowsTextFiles().Write((folder.Path() / "soubor.txt").wstring(), L"new"), std::runtime_error);
  EXPECT_EQ(folder.Read("soubor.txt"), "older");
}

TEST(SystemTextFiles, WriteIntoAFileThatCannotBeReplaced) {
  const TemporaryFolder folder;
  folder.Write("soubor.txt", std::string("longer than what comes next"));
  std::filesystem::create_directory(folder.Path() / "soubor.txt.kvez");
  WindowsTextFiles().Write((folder.Path() / "soubor.txt").wstring(), L"x");
  EXPECT_EQ(folder.Read("soubor.txt"), "x");
}

TEST(SystemTextFiles, ThrowWhereNoFileCanBe) {
  const TemporaryFolder folder;
  WindowsTextFiles files;
  EXPECT_THROW(files.Write((folder.Path() / "neni" / "soubor.txt").wstring(), L"x"), std::runtime_error);
  EXPECT_THROW(files.Write(folder.Path().wstring(), L"x"), std::runtime_error);
}

TEST(SystemFolders, AreDirectories) {
  const TemporaryFolder folder;
  folder.Write("soubor.txt", std::string("x"));
  WindowsFolderDialog folders;
  EXPECT_TRUE(folders.IsDirectory(folder.Path().wstring()));
  EXPECT_TRUE(folders.IsDirectory(L"C:\\"));
  EXPECT_FALSE(folders.IsDirectory((folder.Path() / "soubor.txt").wstring()));
  EXPECT_FALSE(folders.IsDirectory((folder.Path() / "neni").wstring()));
  EXPECT_FALSE(folders.IsDirectory(L"Q:\\"));
  EXPECT_FALSE(folders.IsDirectory(L""));
}

TEST(SystemFolders, MayHaveNamesThatTheCodePageCannotHold) {
  const TemporaryFolder folder;
  const auto greek = folder.Path() / std::filesystem::path(L"αβγ");
  std::filesystem::create_directory(greek);
  EXPECT_TRUE(WindowsFolderDialog().IsDirectory(greek.wstring()));
}

std::wstring WorkingDirectory() {
  wchar_t path[MAX_PATH] = {};
  GetCurrentDirectoryW(MAX_PATH, path);
  return path;
}

class SystemMail : public ::testing::Test {
 protected:
  void SetUp() override {
    // The library looks for its client once in a process.
    if (GetModuleHandleW(L"mapi32.dll") != nullptr) GTEST_SKIP() << "needs a process of its own, as ctest gives it";
  }
};
// A suite each, because CTest gives each suite a process.
class SystemMailThatIsRefused : public SystemMail {};
class SystemMailWithoutClient : public SystemMail {};

TEST_F(SystemMail, GetsEverythingInTheSystemCodePageAndKeepsTheWorkingDirectory) {
  const TemporaryFolder folder;
  const MailClientRegistration client(0, (folder.Path() / "mail.txt").wstring());
  const std::wstring before = WorkingDirectory();
  WindowsMailClient mail;
  EXPECT_EQ(mail.SendDocuments(L";", L"C:\\Žďár\\meil.txt", L"Název začíná \"Ž\"."), 0U);
  EXPECT_EQ(WorkingDirectory(), before);
  const auto received = client.Received();
  ASSERT_TRUE(received);
  EXPECT_EQ(received->delimiter, ";");
  EXPECT_EQ(received->files, "C:\\\x8e\xef\xe1r\\meil.txt");
  EXPECT_EQ(received->names, "N\xe1zev za\xe8\xedn\xe1 \"\x8e\".");
  EXPECT_EQ(received->reserved, 0U);
}

TEST_F(SystemMailThatIsRefused, AnswersWithTheClientsOwnCode) {
  const TemporaryFolder folder;
  const MailClientRegistration client(1, (folder.Path() / "mail.txt").wstring());
  EXPECT_EQ(WindowsMailClient().SendDocuments(L";", L"x", L"y"), 1U);
}

TEST_F(SystemMailWithoutClient, AnswersThatItIsNotSupported) {
  EXPECT_EQ(WindowsMailClient().SendDocuments(L";", L"x", L"y"), 26U);
}

}  // namespace
}  // namespace kvez::test
