#include "platform/windows/windows_mail_client.h"

#include <windows.h>

#include <string>

#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

using MAPISendDocumentsFunction = ULONG WINAPI(ULONG_PTR window, LPSTR delimiter, LPSTR files, LPSTR displayNames,
                                               ULONG reserved);

constexpr std::uint32_t kNotSupported = 26;

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

std::uint32_t WindowsMailClient::SendDocuments(std::wstring_view delimiter, std::wstring_view files,
                                               std::wstring_view displayNames) {
  const WorkingDirectoryGuard guard;
  auto* const sendDocuments =
      SystemFunction<MAPISendDocumentsFunction>(LoadSystemLibrary(L"mapi32.dll"), "MAPISendDocuments");
  if (sendDocuments == nullptr) return kNotSupported;
  std::string delimiterBytes = ToSystemCodePage(delimiter);
  std::string fileBytes = ToSystemCodePage(files);
  std::string nameBytes = ToSystemCodePage(displayNames);
  return sendDocuments(reinterpret_cast<ULONG_PTR>(GetForegroundWindow()), delimiterBytes.data(), fileBytes.data(),
                       nameBytes.data(), 0);
}

}  // namespace kvez
