#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace kvez {
namespace {

/// The version block of this test program, which carries the program's own resources.
class VersionInformation : public ::testing::Test {
 protected:
  VersionInformation() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    m_block.resize(GetFileVersionInfoSizeW(path, nullptr));
    GetFileVersionInfoW(path, 0, static_cast<DWORD>(m_block.size()), m_block.data());
  }

  std::wstring Value(const std::wstring& name) {
    void* text = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(m_block.data(), (L"\\StringFileInfo\\040504E2\\" + name).c_str(), &text, &length)) return {};
    return static_cast<const wchar_t*>(text);
  }

  std::vector<BYTE> m_block;
};

TEST_F(VersionInformation, IsCzech) {
  EXPECT_EQ(Value(L"CompanyName"), L"Kvez");
  EXPECT_EQ(Value(L"FileDescription"), L"Kvez – obce a poštovní směrovací čísla");
  EXPECT_EQ(Value(L"LegalCopyright"), L"© 2026 vývojáři programu Kvez, licence MIT");
  EXPECT_EQ(Value(L"ProductName"), L"VDKVEZ");
  EXPECT_EQ(Value(L"OriginalFilename"), L"kvez.exe");
}

TEST_F(VersionInformation, NamesTheProjectsVersion) {
  EXPECT_EQ(Value(L"FileVersion"), L"" KVEZ_VERSION);
  EXPECT_EQ(Value(L"ProductVersion"), L"" KVEZ_VERSION);
  void* fixed = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueW(m_block.data(), L"\\", &fixed, &length));
  const auto* numbers = static_cast<const VS_FIXEDFILEINFO*>(fixed);
  const std::wstring version = std::to_wstring(HIWORD(numbers->dwFileVersionMS)) + L"." +
                               std::to_wstring(LOWORD(numbers->dwFileVersionMS)) + L"." +
                               std::to_wstring(HIWORD(numbers->dwFileVersionLS));
  EXPECT_EQ(version, L"" KVEZ_VERSION);
}

// Explorer shows the first group of icons in the order of the names.
TEST(IconResources, ProgramsIconIsTheFirst) {
  std::wstring first;
  EnumResourceNamesW(
      nullptr, RT_GROUP_ICON,
      [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR result) -> BOOL {
        if (!IS_INTRESOURCE(name)) *reinterpret_cast<std::wstring*>(result) = name;
        return FALSE;
      },
      reinterpret_cast<LONG_PTR>(&first));
  EXPECT_EQ(first, L"APLIKACE");
}

}  // namespace
}  // namespace kvez
