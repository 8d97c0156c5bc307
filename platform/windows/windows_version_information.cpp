#include "platform/windows/windows_version_information.h"

#include <windows.h>

#include <string>

#include "platform/windows/program_path.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

template <typename Function>
Function& Version(const char* name) {
  return RequiredFunction<Function>(L"version.dll", name);
}

struct Translation {
  WORD language;
  WORD codePage;
};

}  // namespace

void WindowsVersionInformation::Read() {
  m_isRead = true;
  const std::wstring path = ProgramPath();
  DWORD ignored = 0;
  m_block.resize(Version<decltype(GetFileVersionInfoSizeW)>("GetFileVersionInfoSizeW")(path.c_str(), &ignored));
  const auto size = static_cast<DWORD>(m_block.size());
  if (size > 0 &&
      !Version<decltype(GetFileVersionInfoW)>("GetFileVersionInfoW")(path.c_str(), 0, size, m_block.data())) {
    m_block.clear();
  }
}

std::wstring WindowsVersionInformation::Field(const wchar_t* name) {
  if (!m_isRead) Read();
  if (m_block.empty()) return {};
  auto& query = Version<decltype(VerQueryValueW)>("VerQueryValueW");
  void* found = nullptr;
  UINT size = 0;
  if (!query(m_block.data(), L"\\VarFileInfo\\Translation", &found, &size) || size < sizeof(Translation)) {
    return {};
  }
  const auto* translation = static_cast<const Translation*>(found);
  wchar_t table[32] = {};
  wsprintfW(table, L"\\StringFileInfo\\%04x%04x\\", translation->language, translation->codePage);
  if (!query(m_block.data(), (std::wstring(table) + name).c_str(), &found, &size) || size == 0) return {};
  // The length counts the closing NUL.
  return std::wstring(static_cast<const wchar_t*>(found), size - 1);
}

}  // namespace kvez
