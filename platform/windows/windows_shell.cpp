#include "platform/windows/windows_shell.h"

#include <windows.h>
// Stay below windows.h.
#include <shellapi.h>
#include <shlobj.h>

#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

constexpr std::size_t kPathLength = 260;

template <typename Function>
Function& Shell32(const char* name) {
  return RequiredFunction<Function>(L"shell32.dll", name);
}

template <typename Operation, typename Character>
Operation Job(std::int32_t operation, const Character* from, const Character* to, std::uint16_t flags) {
  Operation job{};
  job.hwnd = GetForegroundWindow();
  job.wFunc = static_cast<UINT>(operation);
  job.pFrom = from;
  job.pTo = to;
  job.fFlags = flags;
  return job;
}

template <typename Function, typename Operation>
std::int32_t Run(const char* name, Operation job) {
  return Shell32<Function>(name)(&job);
}

using OwnedLink = Owned<IShellLinkW*, [](IShellLinkW* object) { object->Release(); }>;
using OwnedLinkFile = Owned<IPersistFile*, [](IPersistFile* object) { object->Release(); }>;

}  // namespace

std::wstring WindowsShell::SpecialFolder(std::int32_t folder) {
  // The item list is deliberately not freed: a few bytes, a handful of times in a run, gone with the process.
  PIDLIST_ABSOLUTE items = nullptr;
  auto& locate = Shell32<decltype(SHGetSpecialFolderLocation)>("SHGetSpecialFolderLocation");
  if (FAILED(locate(GetForegroundWindow(), folder, &items))) return {};
  // Whether the 8-bit code page would spell the path is known when it is there, so it is asked for as it is.
  std::wstring path(kPathLength, L' ');
  if (!Shell32<decltype(SHGetPathFromIDListW)>("SHGetPathFromIDListW")(items, path.data())) return {};
  return path.substr(0, path.find(L'\0'));
}

std::intptr_t WindowsShell::FindFile(const std::wstring& path) {
  const HANDLE search = CallWithPath(
      path,
      [](const std::string& bytes) {
        WIN32_FIND_DATAA found{};
        return FindFirstFileA(bytes.c_str(), &found);
      },
      [](const std::wstring& whole) {
        WIN32_FIND_DATAW found{};
        return FindFirstFileW(whole.c_str(), &found);
      });
  return reinterpret_cast<std::intptr_t>(search);
}

std::int32_t WindowsShell::FileOperation(std::int32_t operation, const std::wstring& from, const std::wstring& to,
                                         std::uint16_t flags) {
  // Both are lists of names, each name and each list closed by a NUL.
  const auto list = [](std::wstring path) { return path.append(2, L'\0'); };
  return CallWithTexts(
      list(from), list(to),
      [&](const std::string& source, const std::string& destination) {
        const auto job = Job<SHFILEOPSTRUCTA>(operation, source.c_str(), destination.c_str(), flags);
        return Run<decltype(SHFileOperationA)>("SHFileOperationA", job);
      },
      [&](const std::wstring& source, const std::wstring& destination) {
        const auto job = Job<SHFILEOPSTRUCTW>(operation, source.c_str(), destination.c_str(), flags);
        return Run<decltype(SHFileOperationW)>("SHFileOperationW", job);
      });
}

bool WindowsShell::IsSpelt(const std::wstring& path) { return ToSystemCodePage(path).has_value(); }

bool WindowsShell::SaveLink(const ShellLink& link) {
  IShellLinkW* created = nullptr;
  if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                              reinterpret_cast<void**>(&created)))) {
    return false;
  }
  const OwnedLink content(created);
  content.Get()->SetPath(link.target.c_str());
  content.Get()->SetWorkingDirectory(link.folder.c_str());
  content.Get()->SetShowCmd(link.windowState);
  content.Get()->SetIconLocation(link.target.c_str(), 0);
  IPersistFile* opened = nullptr;
  if (FAILED(created->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&opened)))) return false;
  const OwnedLinkFile file(opened);
  return SUCCEEDED(file.Get()->Save(link.path.c_str(), TRUE));
}

}  // namespace kvez
