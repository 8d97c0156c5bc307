#include "platform/windows/windows_downloader.h"

#include <windows.h>
// Stays below windows.h.
#include <urlmon.h>
#include <wininet.h>

#include "platform/windows/download_leftovers.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

// Both libraries are loaded when the first download asks: they would make up half of the program's start.

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

template <typename Function, typename Character>
HRESULT Fetch(const char* name, const Character* address, const Character* path) {
  const auto download = SystemFunction<Function>(LoadSystemLibrary(L"urlmon.dll"), name);
  return download == nullptr ? E_NOTIMPL : download(nullptr, address, path, 0, nullptr);
}

}  // namespace

std::int32_t WindowsDownloader::Download(const std::wstring& address, const std::wstring& path) {
  // The call is happy with a copy that the system keeps from the last time; without one it has to ask the server.
  Forget(address);
  RemoveDownloadLeftovers(address.substr(address.rfind(L'/') + 1));
  const HRESULT result = CallWithTexts(
      address, path,
      [](const std::string& from, const std::string& to) {
        return Fetch<decltype(URLDownloadToFileA)>("URLDownloadToFileA", from.c_str(), to.c_str());
      },
      [](const std::wstring& from, const std::wstring& to) {
        return Fetch<decltype(URLDownloadToFileW)>("URLDownloadToFileW", from.c_str(), to.c_str());
      });
  // What the system has kept of it, of a failed one too: it is of no use to anybody, and a server decides how long it
  // is.
  Forget(address);
  return result;
}

}  // namespace kvez
