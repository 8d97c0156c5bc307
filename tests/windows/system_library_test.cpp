// Functions of the system that are looked up by name.
#include "platform/windows/system_library.h"

#include <gtest/gtest.h>

#include "text/error.h"

namespace kvez {
namespace {

TEST(SystemLibraries, ComeFromTheSystemsFolder) {
  wchar_t path[MAX_PATH] = {};
  const HMODULE library = LoadSystemLibrary(L"lz32.dll");
  ASSERT_NE(library, nullptr);
  GetModuleFileNameW(library, path, MAX_PATH);
  EXPECT_EQ(lstrcmpiW(path, (SystemFolder() + L"\\lz32.dll").c_str()), 0);
}

TEST(SystemLibraries, FunctionIsFoundAndCalled) {
  EXPECT_EQ(RequiredFunction<decltype(lstrlenW)>(L"kernel32.dll", "lstrlenW")(L"Praha"), 5);
}

TEST(SystemLibraries, MissingOneIsASentence) {
  for (const auto& [library, function] :
       {std::pair(L"kvez-not-there.dll", "Anything"), std::pair(L"kernel32.dll", "KvezNotThere")}) {
    std::wstring text;
    try {
      RequiredFunction<void()>(library, function);
    } catch (const Error& error) {
      text = error.TextWithCode();
    }
    EXPECT_EQ(text, L"V systému chybí knihovna „" + std::wstring(library) + L"“ nebo její funkce „" +
                        std::wstring(function, function + std::strlen(function)) + L"“.");
  }
}

}  // namespace
}  // namespace kvez
