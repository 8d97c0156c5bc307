#include "platform/windows/windows_downloader.h"

#include <windows.h>
// Stays below windows.h.
#include <urlmon.h>
#include <wininet.h>

#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {

std::int32_t WindowsDownloader::Download(const std::wstring& address, const std::wstring& path) {
  // A path with a letter that the code page lacks would name another file.
  const auto target = ToSystemCodePageExactly(path);
  if (!target) return E_INVALIDARG;
  const std::string source = ToSystemCodePage(address);

  // Loaded when the first download asks: the two libraries would make up half of the program's start.
  const auto forget =
      SystemFunction<decltype(DeleteUrlCacheEntryA)>(LoadSystemLibrary(L"wininet.dll"), "DeleteUrlCacheEntryA");
  const auto download =
      SystemFunction<decltype(URLDownloadToFileA)>(LoadSystemLibrary(L"urlmon.dll"), "URLDownloadToFileA");
  if (download == nullptr) return E_NOTIMPL;
  // The call is happy with a copy that the system keeps from the last time; without one it has to ask the server.
  if (forget != nullptr) forget(source.c_str());
  const HRESULT result = download(nullptr, source.c_str(), target->c_str(), 0, nullptr);
  // What the system has kept of it, of a failed one too: it is of no use to anybody, and a server decides how long it
  // is.
  if (forget != nullptr) forget(source.c_str());
  return result;
}

}  // namespace kvez
