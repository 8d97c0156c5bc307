#include "tests/installer/user_state.h"

// Stays below windows.h.
#include <shlobj.h>

#include <system_error>
#include <utility>
#include <vector>

#include "platform/windows/owned.h"

namespace kvez::test {
namespace {

constexpr const wchar_t* kUninstall = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

OwnedRegistryKey Open(HKEY root, const std::wstring& path, REGSAM view = 0) {
  HKEY key = nullptr;
  RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, &key);
  return OwnedRegistryKey(key);
}

std::wstring SubkeyName(HKEY key, DWORD index) {
  wchar_t name[256] = {};
  DWORD length = 256;
  return RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS
             ? std::wstring(name, length)
             : std::wstring();
}

std::wstring TextOf(HKEY key, const wchar_t* value) {
  wchar_t data[1024] = {};
  DWORD bytes = sizeof data;
  return RegGetValueW(key, nullptr, value, RRF_RT_REG_SZ, nullptr, data, &bytes) == ERROR_SUCCESS ? data : L"";
}

void AddValues(HKEY key, const std::wstring& path, UserState& state) {
  for (DWORD index = 0;; ++index) {
    wchar_t name[1024] = {};
    DWORD length = 1024;
    std::vector<wchar_t> data(1U << 15);
    auto bytes = static_cast<DWORD>(data.size() * sizeof(wchar_t));
    DWORD type = 0;
    if (RegEnumValueW(key, index, name, &length, nullptr, &type, reinterpret_cast<BYTE*>(data.data()), &bytes) !=
        ERROR_SUCCESS) {
      return;
    }
    state[path + L"\\@" + name] = std::to_wstring(type) + L":" + std::wstring(data.data(), bytes / sizeof(wchar_t));
  }
}

/// What the system notes by itself when somebody asks the internet, moves the pointer or needs a file for a moment.
bool IsTheSystems(const std::wstring& name) {
  for (const wchar_t* own : {L"\\INetC", L"\\Internet Settings", L"Software\\Wine", L"\\Temp\\"}) {
    if (name.find(own) != std::wstring::npos) return true;
  }
  return false;
}

void AddKeys(HKEY root, const std::wstring& path, UserState& state) {
  const OwnedRegistryKey key = Open(root, path);
  if (!key || IsTheSystems(path)) return;
  state[path];
  AddValues(key.Get(), path, state);
  for (DWORD index = 0;; ++index) {
    const std::wstring name = SubkeyName(key.Get(), index);
    if (name.empty()) return;
    AddKeys(root, path + L"\\" + name, state);
  }
}

void AddFiles(const std::filesystem::path& folder, UserState& state) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (IsTheSystems(entry.path().wstring())) continue;
    std::error_code ignored;
    state[entry.path().wstring()] = entry.is_directory(ignored) ? L"" : std::to_wstring(entry.file_size(ignored));
  }
}

}  // namespace

UserState TakeUserState() {
  UserState state;
  AddFiles(UserFolder(CSIDL_PROFILE), state);
  AddFiles(L"C:\\windows\\Installer", state);
  AddKeys(HKEY_CURRENT_USER, L"Software", state);
  AddKeys(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Windows\\CurrentVersion", state);
  AddKeys(HKEY_LOCAL_MACHINE, L"Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall", state);
  return state;
}

std::wstring Difference(const UserState& before, const UserState& after) {
  std::wstring text;
  for (const auto& [name, value] : before) {
    const auto found = after.find(name);
    if (found == after.end()) {
      text += L"\n- " + name;
    } else if (found->second != value) {
      text += L"\n! " + name + L": " + value + L", " + found->second;
    }
  }
  for (const auto& [name, value] : after) {
    if (!before.contains(name)) text += L"\n+ " + name;
  }
  return text;
}

std::wstring InstalledProgram(const wchar_t* value) {
  struct Place {
    HKEY root;
    REGSAM view;
  };
  // Windows notes what is one user's there, Wine everything in the machine's list of the package's processor.
  const Place places[] = {{HKEY_CURRENT_USER, 0}, {HKEY_LOCAL_MACHINE, 0}, {HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY}};
  for (const Place& place : places) {
    const OwnedRegistryKey list = Open(place.root, kUninstall, place.view);
    for (DWORD index = 0; list; ++index) {
      const std::wstring name = SubkeyName(list.Get(), index);
      if (name.empty()) break;
      const OwnedRegistryKey entry = Open(list.Get(), name);
      if (TextOf(entry.Get(), L"DisplayName") == L"Kvez") return TextOf(entry.Get(), value);
    }
  }
  return {};
}

std::filesystem::path UserFolder(int id) {
  wchar_t path[MAX_PATH] = {};
  SHGetFolderPathW(nullptr, id, nullptr, 0, path);
  return path;
}

}  // namespace kvez::test
