// Downloads from a web server of the test's own.
#include "platform/windows/windows_downloader.h"

#include <gmock/gmock.h>
#include <windows.h>
// Stay below windows.h.
#include <shlobj.h>
#include <wininet.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>

#include "platform/windows/download_job.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_files.h"
#include "tests/support/http_server.h"
#include "tests/support/waiting.h"

namespace kvez::test {
namespace {

using testing::ElementsAre;

class Downloads : public testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() /
             (std::wstring(L"kvez staženo ") + std::to_wstring(GetCurrentProcessId()));
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::int32_t Get(const wchar_t* name) {
    return downloader->Download(server.Base() + name, (folder / name).wstring(), goesOn);
  }
  /// The system may keep the connection to a server for a while, and that one has time for one only: what is downloaded
  /// behind an answer that does not end comes from another.
  std::int32_t GetFromTheOther(const wchar_t* name) {
    return downloader->Download(other.Base() + name, (folder / name).wstring(), goesOn);
  }
  std::string Content(const wchar_t* name) {
    std::ifstream stream(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  bool IsKept(const wchar_t* name) {
    DWORD size = 0;
    return GetUrlCacheEntryInfoW((server.Base() + name).c_str(), nullptr, &size) ||
           GetLastError() == ERROR_INSUFFICIENT_BUFFER;
  }

  HttpServer server;
  HttpServer other;
  WindowsClock clock;
  std::optional<WindowsDownloader> downloader{clock};
  DownloadWatch goesOn = [](std::uint64_t, std::uint64_t) { return true; };
  std::filesystem::path folder;
};

TEST_F(Downloads, BringTheFileByteForByte) {
  std::string body;
  for (int i = 0; i < 200000; ++i) body.push_back(static_cast<char>(i * 7));
  server.Serve("vd1.kl_", {.body = body});
  EXPECT_EQ(Get(L"vd1.kl_"), 0);
  EXPECT_TRUE(Content(L"vd1.kl_") == body);
  EXPECT_THAT(server.Requests(), ElementsAre("vd1.kl_"));
}

TEST_F(Downloads, CarryTheTimeOfTheDownload) {
  struct ClockOfAnotherDay : WindowsClock {
    DateTime Now() override { return {2031, 8, 9, 10, 11, 12}; }
  } another;
  downloader.emplace(another);
  std::ofstream(folder / L"vd1.kl_", std::ios::binary) << "old";
  server.Serve("vd1.kl_", {.body = "new", .header = "Last-Modified: Fri, 01 Nov 2024 12:00:00 GMT\r\n"});
  EXPECT_EQ(Get(L"vd1.kl_"), 0);
  EXPECT_EQ(WindowsFiles().LastWriteTime((folder / L"vd1.kl_").wstring()), another.Now());
}

TEST_F(Downloads, OverwriteTheOldFile) {
  std::ofstream(folder / L"vd1.kl_", std::ios::binary) << "an older and longer file";
  server.Serve("vd1.kl_", {.body = "new"});
  EXPECT_EQ(Get(L"vd1.kl_"), 0);
  EXPECT_EQ(Content(L"vd1.kl_"), "new");
}

TEST_F(Downloads, AskTheServerEveryTime) {
  server.Serve("vd1.kl_", {.body = "first"});
  EXPECT_EQ(Get(L"vd1.kl_"), 0);
  server.Serve("vd1.kl_", {.body = "second"});
  EXPECT_EQ(Get(L"vd1.kl_"), 0);
  EXPECT_EQ(Content(L"vd1.kl_"), "second");
  EXPECT_THAT(server.Requests(), ElementsAre("vd1.kl_", "vd1.kl_"));
}

// The system must not answer with the copy that it keeps from the last time.
TEST_F(Downloads, ForgetTheCopyOfTheSystemFirst) {
  const std::wstring address = server.Base() + L"vd1.kl_";
  wchar_t copy[MAX_PATH] = {};
  ASSERT_TRUE(CreateUrlCacheEntryW(address.c_str(), 0, L"kl_", copy, 0));
  std::ofstream(std::filesystem::path(copy), std::ios::binary) << "stale";
  ASSERT_TRUE(CommitUrlCacheEntryW(address.c_str(), copy, {}, {}, NORMAL_CACHE_ENTRY, nullptr, 0, nullptr, nullptr));
  ASSERT_TRUE(IsKept(L"vd1.kl_"));
  server.Stop();
  EXPECT_NE(Get(L"vd1.kl_"), 0);
  EXPECT_FALSE(IsKept(L"vd1.kl_"));
}

// A server decides how long its answers are; the disk of the user is not the place for them.
TEST_F(Downloads, LeaveNothingInTheCacheOfTheSystem) {
  server.Serve("vd1.kl_", {.body = std::string(100000, 'x')});
  EXPECT_EQ(Get(L"vd1.kl_"), 0);
  EXPECT_FALSE(IsKept(L"vd1.kl_"));
  server.Serve("vd1.kl_", {.body = std::string(100000, 'x'), .sent = 50000});
  Get(L"vd1.kl_");
  EXPECT_FALSE(IsKept(L"vd1.kl_"));
}

TEST_F(Downloads, TakeAwayWhatAKilledProcessHasLeftOfTheSameFile) {
  wchar_t cache[MAX_PATH] = {};
  SHGetFolderPathW(nullptr, CSIDL_INTERNET_CACHE, nullptr, SHGFP_TYPE_CURRENT, cache);
  const auto inner = std::filesystem::path(cache) / L"kvez-test";
  std::filesystem::create_directories(inner);
  const auto touch = [&](const wchar_t* name) { std::ofstream(inner / name) << "x"; };
  const std::wstring others[] = {L"vd77.kl_", L"vd77[1].chm", L"vd77[x].kl_", L"vd77[1]", L"vd7.kl_"};
  for (const wchar_t* name : {L"vd7[0]", L"vd7[12].kl_"}) touch(name);
  for (const std::wstring& name : others) touch(name.c_str());
  server.Serve("vd7.kl_", {.body = "new"});
  EXPECT_EQ(Get(L"vd7.kl_"), 0);
  EXPECT_FALSE(std::filesystem::exists(inner / L"vd7[0]"));
  EXPECT_FALSE(std::filesystem::exists(inner / L"vd7[12].kl_"));
  for (const std::wstring& name : others)
    EXPECT_TRUE(std::filesystem::exists(inner / name)) << testing::PrintToString(name);
  std::filesystem::remove_all(inner);
}

class EndlessDownloads : public Downloads, public testing::WithParamInterface<HttpAnswer::Then> {};

// Ended by the server, they are over for the program, too.
TEST_P(EndlessDownloads, EndWithTheirServer) {
  server.Serve("vd1.kl_", {.body = std::string(4096, 'x'), .sent = 1000, .then = GetParam()});
  std::thread end([this] {
    WaitUntil([this] { return server.SentBytes() >= 1000; });
    server.LetGo();
  });
  Get(L"vd1.kl_");
  end.join();
  EXPECT_FALSE(IsKept(L"vd1.kl_"));
}

INSTANTIATE_TEST_SUITE_P(, EndlessDownloads, testing::Values(HttpAnswer::Then::Endless, HttpAnswer::Then::Stall),
                         [](const auto& then) { return then.index == 0 ? "Endless" : "Stalled"; });

// A server that has sent a part and nothing more.
class StandingDownloads : public Downloads {
 protected:
  void SetUp() override {
    Downloads::SetUp();
    server.Serve("vd1.kl_", {.body = std::string(65536, 'x'), .sent = 20000, .then = HttpAnswer::Then::Stall});
    other.Serve("vd2.kl_", {.body = "new"});
  }
  /// One that was ended has left the downloader able to get the next one.
  void ExpectThatTheNextOneComes() {
    goesOn = [](std::uint64_t, std::uint64_t) { return true; };
    EXPECT_EQ(GetFromTheOther(L"vd2.kl_"), 0);
    EXPECT_EQ(Content(L"vd2.kl_"), "new");
  }
};

TEST_F(StandingDownloads, TellHowMuchHasComeAndEndWhenTheyAreTold) {
  std::uint64_t whole = 0;
  goesOn = [&whole](std::uint64_t bytes, std::uint64_t total) {
    if (bytes == 0 || bytes > 20000) return true;
    whole = total;
    return false;
  };
  EXPECT_NE(Get(L"vd1.kl_"), 0);
  EXPECT_EQ(whole, 65536U);
  EXPECT_FALSE(IsKept(L"vd1.kl_"));
  ExpectThatTheNextOneComes();
}

TEST_F(StandingDownloads, FailWhenTheyStandTooLong) {
  downloader.emplace(clock, DownloadLimits{.standsStill = 500});
  EXPECT_NE(Get(L"vd1.kl_"), 0);
  ExpectThatTheNextOneComes();
}

TEST_F(Downloads, FailWhenTheyGrowWithoutEnd) {
  downloader.emplace(clock, DownloadLimits{.bytes = 1U << 20});
  // Twice as much, and no end: a server that goes on sending takes the time that the end of the download needs.
  server.Serve("vd1.kl_", {.body = std::string(4U << 20, 'x'), .sent = 2U << 20, .then = HttpAnswer::Then::Stall});
  EXPECT_NE(Get(L"vd1.kl_"), 0);
  other.Serve("vd2.kl_", {.body = std::string(1U << 20, 'x')});
  EXPECT_EQ(GetFromTheOther(L"vd2.kl_"), 0) << "the greatest that may come";
  other.Serve("vd3.kl_", {.body = std::string((1U << 20) + 1, 'x')});
  EXPECT_NE(GetFromTheOther(L"vd3.kl_"), 0);
}

TEST_F(Downloads, FailWhenTheConnectionIsRefusedAndLeaveTheOldFile) {
  std::ofstream(folder / L"vd1.kl_", std::ios::binary) << "old";
  server.Stop();
  EXPECT_NE(Get(L"vd1.kl_"), 0);
  EXPECT_EQ(Content(L"vd1.kl_"), "old");
}

TEST_F(Downloads, ArriveWhereTheCodePageCannotNameThePath) {
  server.Serve("x", {.body = "new"});
  EXPECT_EQ(downloader->Download(server.Base() + L"x", (folder / L"日本.kl_").wstring(), goesOn), 0);
  EXPECT_EQ(Content(L"日本.kl_"), "new");
}

// Not every version of the system's library asks; one that does must not be told that the download listens to nobody.
TEST(DownloadJobTest, IsTheListenerThatItIsAskedFor) {
  auto* const job = new DownloadJob({});
  for (const IID& id : {__uuidof(IUnknown), __uuidof(IBindStatusCallback)}) {
    void* object = nullptr;
    ASSERT_EQ(job->QueryInterface(id, &object), S_OK);
    EXPECT_EQ(object, static_cast<IBindStatusCallback*>(job));
    EXPECT_EQ(job->Release(), 1U) << "what was asked for is held";
  }
  void* object = job;
  EXPECT_EQ(job->QueryInterface(__uuidof(IHttpNegotiate), &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(job->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
  EXPECT_EQ(job->Release(), 0U);
}

}  // namespace
}  // namespace kvez::test
