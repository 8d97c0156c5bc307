#include "platform/windows/windows_shell.h"

#include <windows.h>
// Stay below windows.h.
#include <shellapi.h>
#include <shlobj.h>

#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

constexpr std::size_t kPathLength = 260;

template <typename Function>
Function& Shell32(const char* name) {
  return RequiredFunction<Function>(L"shell32.dll", name);
}

}  // namespace

std::wstring WindowsShell::SpecialFolder(std::int32_t folder) {
  // The item list is deliberately not freed: a few bytes, a handful of times in a run, gone with the process.
  PIDLIST_ABSOLUTE items = nullptr;
  auto& locate = Shell32<decltype(SHGetSpecialFolderLocation)>("SHGetSpecialFolderLocation");
  if (FAILED(locate(GetForegroundWindow(), folder, &items))) return {};
  std::string path(kPathLength, ' ');
  Shell32<decltype(SHGetPathFromIDListA)>("SHGetPathFromIDListA")(items, path.data());
  return FromSystemCodePage(std::string_view(path).substr(0, path.find('\0')));
}

std::intptr_t WindowsShell::FindFile(const std::wstring& path) {
  WIN32_FIND_DATAA found{};
  return reinterpret_cast<std::intptr_t>(FindFirstFileA(ToSystemCodePage(path).c_str(), &found));
}

std::int32_t WindowsShell::FileOperation(std::int32_t operation, const std::wstring& from, const std::wstring& to,
                                         std::uint16_t flags) {
  // Both are lists of names, each name and each list closed by a NUL.
  const std::string source = ToSystemCodePage(from).append(2, '\0');
  const std::string destination = ToSystemCodePage(to).append(2, '\0');
  SHFILEOPSTRUCTA job{};
  job.hwnd = GetForegroundWindow();
  job.wFunc = static_cast<UINT>(operation);
  job.pFrom = source.c_str();
  job.pTo = destination.c_str();
  job.fFlags = flags;
  return Shell32<decltype(SHFileOperationA)>("SHFileOperationA")(&job);
}

}  // namespace kvez
