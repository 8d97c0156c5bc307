// What the finished program's file says about itself, for both processors. Read from its bytes, natively: no Windows is
// needed, and both are looked at in one place.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <string_view>

#include "tests/facts/pe_file.h"

namespace kvez {
namespace {

using test::PeFile;

struct Processor {
  const char* name;
  const char* program;
  bool is64Bit;

  friend void PrintTo(const Processor& processor, std::ostream* out) { *out << processor.name; }
};

constexpr Processor kX64 = {"x64", KVEZ_SOURCE_DIR "/build/kvez/kvez.exe", true};
constexpr Processor kX86 = {"x86", KVEZ_SOURCE_DIR "/build/windows-i686/kvez/kvez.exe", false};

class ProgramFacts : public ::testing::TestWithParam<Processor> {
 protected:
  PeFile program{GetParam().program};
};

INSTANTIATE_TEST_SUITE_P(Of, ProgramFacts, ::testing::Values(kX64, kX86),
                         [](const auto& processor) { return processor.param.name; });

TEST_P(ProgramFacts, IsAWindowProgramOfItsProcessor) {
  EXPECT_EQ(program.Is64Bit(), GetParam().is64Bit);
  EXPECT_EQ(program.Machine(), GetParam().is64Bit ? 0x8664 : 0x014C);
  EXPECT_EQ(program.Subsystem(), 2);  // windows, no console
  EXPECT_LE(program.SubsystemVersion(), 601);
}

TEST_P(ProgramFacts, ItsMemoryIsLaidOutAtRandomAndDataIsNotExecuted) {
  constexpr unsigned kRelocationsStripped = 0x0001;
  constexpr unsigned kHighEntropy = 0x0020;
  constexpr unsigned kDynamicBase = 0x0040;
  constexpr unsigned kNoExecution = 0x0100;
  const unsigned expected = kDynamicBase | kNoExecution | (GetParam().is64Bit ? kHighEntropy : 0U);
  EXPECT_EQ(program.DllCharacteristics() & expected, expected);
  EXPECT_EQ(program.Characteristics() & kRelocationsStripped, 0U);
  EXPECT_GT(program.RelocationSize(), 100U);
}

TEST_P(ProgramFacts, SizeStaysSmall) { EXPECT_LE(program.Size(), 1'000'000U); }

TEST_P(ProgramFacts, ManifestTellsWhatTheProgramIsMadeFor) {
  const std::string manifest = program.Resource(24);
  for (
      const std::string_view line : {
          R"(<activeCodePage xmlns="http://schemas.microsoft.com/SMI/2019/WindowsSettings">cs-CZ</activeCodePage>)",
          R"(<dpiAware xmlns="http://schemas.microsoft.com/SMI/2005/WindowsSettings">true/pm</dpiAware>)",
          R"(<dpiAwareness xmlns="http://schemas.microsoft.com/SMI/2016/WindowsSettings">PerMonitorV2, PerMonitor</dpiAwareness>)",
          R"(<assemblyIdentity type="win32" name="Microsoft.Windows.Common-Controls" version="6.0.0.0" processorArchitecture="*" publicKeyToken="6595b64144ccf1df" language="*"/>)",
          R"(<requestedExecutionLevel level="asInvoker" uiAccess="false"/>)",
          R"(<supportedOS Id="{35138b9a-5d96-4fbd-8e2d-a2440225f93a}"/>)",  // Windows 7
          R"(<supportedOS Id="{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}"/>)",  // 8
          R"(<supportedOS Id="{1f676c76-80e1-4239-95bb-83d0f6d0da78}"/>)",  // 8.1
          R"(<supportedOS Id="{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"/>)",  // 10 and 11
      }) {
    EXPECT_NE(manifest.find(line), std::string::npos) << line << " is missing in\n" << manifest;
  }
}

/// The committed list, "library function first Windows version" a line: "library function" to version.
std::map<std::string, std::string> KnownImports(const std::string& file) {
  std::ifstream stream(KVEZ_SOURCE_DIR "/tests/facts/" + file);
  EXPECT_TRUE(stream.good()) << file;
  std::map<std::string, std::string> known;
  for (std::string line; std::getline(stream, line);) {
    while (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.starts_with('#')) continue;
    const std::size_t function = line.find(' ');
    const std::size_t version = line.find(' ', function + 1);
    EXPECT_NE(version, std::string::npos) << file << ": " << line;
    EXPECT_TRUE(known.emplace(line.substr(0, version), line.substr(version + 1)).second) << line << " stands twice";
  }
  return known;
}

TEST_P(ProgramFacts, NeedsOnlyFunctionsThatAreListedAndThatWindows7Has) {
  const std::string file = std::string("imports-") + GetParam().name + ".txt";
  std::map<std::string, std::string> known = KnownImports(file);
  const std::set<std::string> imports = program.Imports();
  constexpr std::array<std::string_view, 4> kVersions = {"Windows 2000", "Windows XP", "Windows Vista", "Windows 7"};
  for (const std::string& import : imports) {
    const auto found = known.find(import);
    if (found == known.end()) {
      ADD_FAILURE() << import << " is new: add it to tests/facts/" << file << " with its first Windows version";
      continue;
    }
    EXPECT_NE(std::find(kVersions.begin(), kVersions.end(), found->second), kVersions.end())
        << import << " needs " << found->second << ", and the program must start on Windows 7";
    known.erase(found);
  }
  for (const auto& [import, version] : known) {
    ADD_FAILURE() << import << " stands in tests/facts/" << file << " and the program needs it no more";
  }
}

// A library that is named by its bare name is looked for beside the program first, but for these: the system has them
// loaded from its own folder before any program, and the common controls are the ones that the manifest asks for.
TEST_P(ProgramFacts, NoLibraryOfItsImportsCanBeTakenFromItsFolder) {
  const std::set<std::string> known = {"advapi32.dll", "comctl32.dll", "gdi32.dll",    "kernel32.dll",
                                       "msvcrt.dll",   "ole32.dll",    "oleaut32.dll", "user32.dll"};
  std::set<std::string> named;
  for (const std::string& import : program.Imports()) named.insert(import.substr(0, import.find(' ')));
  EXPECT_EQ(named, known);
  // Their loading is not in the program's hands.
  EXPECT_EQ(program.DelayedImports(), std::set<std::string>());
}

}  // namespace
}  // namespace kvez
