#include "platform/windows/windows_downloader.h"

#include <windows.h>
// Stays below windows.h.
#include <wininet.h>

#include <memory>
#include <optional>

#include "platform/windows/download_job.h"
#include "platform/windows/download_leftovers.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

// Milliseconds.
constexpr DWORD kBetweenLooks = 50;
constexpr std::uint64_t kToEndByItself = 300;  // with the next byte, if one comes
constexpr std::uint64_t kToBeAborted = 5000;

// Both libraries are loaded when the first download asks.

template <typename Function, typename Character>
BOOL Forget(const char* name, const Character* address) {
  const auto forget = SystemFunction<Function>(LoadSystemLibrary(L"wininet.dll"), name);
  return forget != nullptr && forget(address);
}

void Forget(const std::wstring& address) {
  CallWithText(
      address,
      [](const std::string& bytes) {
        return Forget<decltype(DeleteUrlCacheEntryA)>("DeleteUrlCacheEntryA", bytes.c_str());
      },
      [](const std::wstring& whole) {
        return Forget<decltype(DeleteUrlCacheEntryW)>("DeleteUrlCacheEntryW", whole.c_str());
      });
}

// Without a caller. What is told of the progress is all that can be seen of it: the file comes into its place at the
// end.
template <typename Function, typename Text>
DownloadJob::Call Fetch(const char* name, const Text& address, const Text& path) {
  const auto download = SystemFunction<Function>(LoadSystemLibrary(L"urlmon.dll"), name);
  return [download, address, path](IBindStatusCallback* status) -> HRESULT {
    return download == nullptr ? E_NOTIMPL : download(nullptr, address.c_str(), path.c_str(), 0, status);
  };
}

// The date of a database is that of its file. Whoever keeps the file for us meanwhile may have given it the server's.
void GiveItTheTime(const std::wstring& path, const DateTime& local) {
  const OwnedFile file(CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0,
                                   nullptr));
  const auto word = [](int value) { return static_cast<WORD>(value); };
  const SYSTEMTIME date{.wYear = word(local.year),
                        .wMonth = word(local.month),
                        .wDayOfWeek = 0,
                        .wDay = word(local.day),
                        .wHour = word(local.hour),
                        .wMinute = word(local.minute),
                        .wSecond = word(local.second),
                        .wMilliseconds = 0};
  FILETIME localTime{};
  FILETIME time{};
  if (!file || !SystemTimeToFileTime(&date, &localTime) || !LocalFileTimeToFileTime(&localTime, &time)) return;
  SetFileTime(file.Get(), nullptr, nullptr, &time);
}

struct Letting {
  void operator()(DownloadJob* job) const { job->Release(); }
};
using HeldJob = std::unique_ptr<DownloadJob, Letting>;

DWORD WINAPI RunJob(void* parameter) {
  const HeldJob job(static_cast<DownloadJob*>(parameter));
  job->Run();
  return 0;
}

}  // namespace

std::int32_t WindowsDownloader::Download(const std::wstring& address, const std::wstring& path,
                                         const DownloadWatch& goesOn) {
  // One that could not be ended may still write its file.
  if (m_thread && WaitForSingleObject(m_thread.Get(), 0) == WAIT_TIMEOUT) return E_PENDING;
  // The call is happy with a copy that the system keeps from the last time; without one it has to ask the server.
  Forget(address);
  RemoveDownloadLeftovers(address.substr(address.rfind(L'/') + 1));
  const HeldJob job(new DownloadJob(CallWithTexts(
      address, path,
      [](const std::string& from, const std::string& to) {
        return Fetch<decltype(URLDownloadToFileA)>("URLDownloadToFileA", from, to);
      },
      [](const std::wstring& from, const std::wstring& to) {
        return Fetch<decltype(URLDownloadToFileW)>("URLDownloadToFileW", from, to);
      })));
  job->AddRef();
  m_thread = OwnedThread(CreateThread(nullptr, 0, &RunJob, job.get(), 0, nullptr));
  if (!m_thread) {
    job->Release();
    return E_OUTOFMEMORY;
  }
  const std::int32_t result = WaitFor(*job, goesOn);
  // What the system has kept of it, of a failed one too: it is of no use to anybody, and a server decides how long it
  // is.
  Forget(address);
  if (result == S_OK) GiveItTheTime(path, m_clock.Now());
  return result;
}

std::int32_t WindowsDownloader::WaitFor(DownloadJob& job, const DownloadWatch& goesOn) const {
  std::uint64_t bytes = 0;
  std::uint64_t lastByte = m_clock.Milliseconds();
  std::optional<std::uint64_t> ended;
  const HANDLE thread = m_thread.Get();
  while (MsgWaitForMultipleObjectsEx(1, &thread, kBetweenLooks, QS_ALLINPUT, MWMO_INPUTAVAILABLE) != WAIT_OBJECT_0) {
    const bool wanted = goesOn(job.Bytes(), job.Total());
    const std::uint64_t now = m_clock.Milliseconds();
    if (job.Bytes() != bytes) {
      bytes = job.Bytes();
      lastByte = now;
    }
    if (!ended && (!wanted || bytes > m_limits.bytes || now - lastByte >= m_limits.standsStill)) {
      job.End();
      ended = now;
    }
    if (!ended) continue;
    if (now - *ended >= kToEndByItself) job.Abort();
    if (now - *ended >= kToBeAborted) return E_ABORT;
  }
  // It may have come to its end in the very moment when it was to be ended, or grown too fast for the looks.
  return ended || job.Bytes() > m_limits.bytes ? E_ABORT : job.Result();
}

}  // namespace kvez
