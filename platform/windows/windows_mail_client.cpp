#include "platform/windows/windows_mail_client.h"

#include <windows.h>

#include <optional>
#include <string>

#include "platform/windows/short_path.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

using MAPISendDocumentsFunction = ULONG WINAPI(ULONG_PTR window, LPSTR delimiter, LPSTR files, LPSTR displayNames,
                                               ULONG reserved);

constexpr std::uint32_t kFailure = 2;
constexpr std::uint32_t kNotSupported = 26;

/// A file's path as the mail system reads it, which knows 8-bit text only and cuts it at the delimiter: the short path
/// where the long one would name another file, or none. Nothing when neither can be said.
std::optional<std::string> MailPath(const std::wstring& path, std::wstring_view delimiter) {
  const auto said = [delimiter](const std::wstring& candidate) -> std::optional<std::string> {
    if (candidate.find(delimiter) != std::wstring::npos) return std::nullopt;
    return PathToSystemCodePage(candidate);
  };
  if (auto bytes = said(path)) return bytes;
  const std::wstring shortPath = ShortPath(path);
  return shortPath.empty() ? std::nullopt : said(shortPath);
}

/// Mail clients are known to change the working directory and to leave it so.
class WorkingDirectoryGuard {
 public:
  WorkingDirectoryGuard() {
    m_path.resize(GetCurrentDirectoryW(0, nullptr));
    m_path.resize(GetCurrentDirectoryW(static_cast<DWORD>(m_path.size()), m_path.data()));
  }
  WorkingDirectoryGuard(const WorkingDirectoryGuard&) = delete;
  WorkingDirectoryGuard& operator=(const WorkingDirectoryGuard&) = delete;
  ~WorkingDirectoryGuard() {
    if (!m_path.empty()) SetCurrentDirectoryW(m_path.c_str());
  }

 private:
  std::wstring m_path;
};

}  // namespace

std::uint32_t WindowsMailClient::SendDocuments(std::wstring_view delimiter, std::wstring_view file,
                                               std::wstring_view displayNames) {
  const WorkingDirectoryGuard guard;
  auto* const sendDocuments =
      SystemFunction<MAPISendDocumentsFunction>(LoadSystemLibrary(L"mapi32.dll"), "MAPISendDocuments");
  if (sendDocuments == nullptr) return kNotSupported;
  auto fileBytes = MailPath(std::wstring(file), delimiter);
  if (!fileBytes) return kFailure;
  std::string delimiterBytes = ToBytesForOthers(delimiter);
  std::string nameBytes = ToBytesForOthers(displayNames);
  return sendDocuments(reinterpret_cast<ULONG_PTR>(GetForegroundWindow()), delimiterBytes.data(), fileBytes->data(),
                       nameBytes.data(), 0);
}

}  // namespace kvez
