#include "platform/windows/windows_settings_store.h"

#include "platform/windows/owned.h"
#include "text/error.h"

namespace kvez {
namespace {

std::wstring Branch(std::wstring_view application, std::wstring_view section) {
  return std::wstring(L"Software\\VB and VBA Program Settings\\").append(application).append(L"\\").append(section);
}

void Expect(LSTATUS status, const char* call) {
  if (status != ERROR_SUCCESS) {
    throw Error(L"Nastavení se nepodařilo uložit.", call, static_cast<std::uint32_t>(status));
  }
}

}  // namespace

std::wstring WindowsSettingsStore::Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                                       std::wstring_view defaultValue) {
  const std::wstring branch = Branch(application, section);
  const std::wstring name(key);
  // The value may grow between the two calls; another user of the branch is rare enough to try just once more.
  for (int attempt = 0; attempt < 2; ++attempt) {
    DWORD bytes = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, branch.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS) {
      break;
    }
    std::wstring text(bytes / sizeof(wchar_t), L'\0');
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, branch.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    if (status == ERROR_SUCCESS) {
      text.resize(text.find(L'\0') == std::wstring::npos ? text.size() : text.find(L'\0'));
      return text;
    }
    if (status != ERROR_MORE_DATA) break;
  }
  return std::wstring(defaultValue);
}

void WindowsSettingsStore::Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                                std::wstring_view value) {
  HKEY opened = nullptr;
  Expect(RegCreateKeyExW(HKEY_CURRENT_USER, Branch(application, section).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                         &opened, nullptr),
         "RegCreateKeyExW");
  const OwnedRegistryKey branch(opened);
  const std::wstring name(key);
  const std::wstring text(value);
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  Expect(RegSetValueExW(branch.Get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes),
         "RegSetValueExW");
}

}  // namespace kvez
