// Which file is given to the help viewer.
#include "mainwindow/help_file.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/help_bytes.h"
#include "tests/support/temporary_folder.h"

namespace kvez {
namespace {

bool Fits(const std::string& bytes, std::uint64_t length) {
  return HasHelpFormat({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, length);
}
bool Fits(const std::string& bytes) { return Fits(bytes, bytes.size()); }

TEST(HelpFormat, SignatureAndLengthMustFit) {
  const std::string help = test::HelpBytes();
  EXPECT_TRUE(Fits(help));
  EXPECT_FALSE(Fits(help, help.size() - 1));
  EXPECT_FALSE(Fits(help, help.size() + 1));
  EXPECT_FALSE(Fits(help, help.size() + (std::uint64_t{1} << 32)));
  std::string other = help;
  other[3] = 'T';
  EXPECT_FALSE(Fits(other));
  EXPECT_FALSE(Fits(""));
  EXPECT_FALSE(Fits("ITSF"));
  EXPECT_FALSE(Fits("<!DOCTYPE html><html><head><title>404</title></head><body>" + std::string(200, ' ')));
}

TEST(HelpFormat, NoCutBeginningFits) {
  const std::string help = test::HelpBytes(100000);
  EXPECT_TRUE(Fits(help, 100000));
  for (std::size_t length = 0; length < 112; ++length) EXPECT_FALSE(Fits(help.substr(0, length), 100000)) << length;
}

TEST(HelpFormat, SectionOutsideOfTheHeaderDoesNotFit) {
  for (const int section : {113, 120, 255}) {
    std::string help = test::HelpBytes();
    help[56] = static_cast<char>(section);
    EXPECT_FALSE(Fits(help)) << section;
  }
  std::string help = test::HelpBytes();
  for (int i = 56; i < 64; ++i) help[static_cast<std::size_t>(i)] = '\xFF';
  EXPECT_FALSE(Fits(help));
}

class HelpFileTest : public ::testing::Test {
 protected:
  std::wstring Path() const { return (folder.Path() / L"kvez.chm").wstring(); }
  TemporaryFolder folder;
};

TEST_F(HelpFileTest, TheHelpOfTheProgramIsOneAndNoCutOfIt) {
  std::ifstream stream(std::filesystem::path(KVEZ_PROGRAM_FOLDER) / "kvez.chm", std::ios::binary);
  const std::string help((std::istreambuf_iterator<char>(stream)), {});
  ASSERT_FALSE(help.empty()) << "kvez.chm is not built: is fp-utils-3.2.2 installed?";
  folder.Write("kvez.chm", help);
  EXPECT_TRUE(IsHelpFile(Path()));
  for (const std::size_t length :
       {std::size_t{0}, std::size_t{4}, std::size_t{119}, help.size() / 2, help.size() - 1}) {
    folder.Write("kvez.chm", help.substr(0, length));
    EXPECT_FALSE(IsHelpFile(Path())) << length;
  }
  folder.Write("kvez.chm", help + "x");
  EXPECT_FALSE(IsHelpFile(Path()));
}

TEST_F(HelpFileTest, HiddenOnesFoldersAndMissingOnesAreNone) {
  EXPECT_FALSE(IsHelpFile(Path()));
  EXPECT_FALSE(HasHelpContent(Path()));
  folder.Write("kvez.chm", test::HelpBytes());
  EXPECT_TRUE(IsHelpFile(Path()));
  for (const DWORD attributes : {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM}}) {
    SetFileAttributesW(Path().c_str(), attributes);
    EXPECT_FALSE(IsHelpFile(Path()));
    EXPECT_TRUE(HasHelpContent(Path()));
  }
  SetFileAttributesW(Path().c_str(), FILE_ATTRIBUTE_NORMAL);
  std::filesystem::remove(Path());
  std::filesystem::create_directory(Path());
  EXPECT_FALSE(IsHelpFile(Path()));
}

}  // namespace
}  // namespace kvez
