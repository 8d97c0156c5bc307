#include "tests/support/program_folder.h"

#include <windows.h>

namespace kvez::test {
namespace {

constexpr const wchar_t* kSettings = L"Software\\VB and VBA Program Settings\\VD";
constexpr const wchar_t* kSection = L"Software\\VB and VBA Program Settings\\VD\\VDKVEZ";

}  // namespace

void CopyProgram(const std::filesystem::path& source, const std::filesystem::path& folder) {
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  for (const char* file : {"kvez.exe", "vd1.kl_", "vd2.kl_", "vd3.kl_"}) {
    std::filesystem::copy_file(source / file, folder / file);
    // The program tells the time of its data.
    std::filesystem::last_write_time(folder / file, std::filesystem::last_write_time(source / file));
  }
}

void ClearSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, kSettings); }

void SaveSetting(const std::wstring& key, const std::wstring& value) {
  RegSetKeyValueW(HKEY_CURRENT_USER, kSection, key.c_str(), REG_SZ, value.c_str(),
                  static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

std::wstring ReadSetting(const std::wstring& key) {
  wchar_t text[64] = {};
  DWORD bytes = sizeof text;
  const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, kSection, key.c_str(), RRF_RT_REG_SZ, nullptr, text, &bytes);
  return status == ERROR_SUCCESS ? text : L"(none)";
}

}  // namespace kvez::test
