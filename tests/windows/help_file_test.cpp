// Which file is given to the help viewer.
#include "mainwindow/help_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/help_bytes.h"

namespace kvez {
namespace {

bool Fits(const std::string& bytes) {
  return IsWholeHelp({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

TEST(HelpFormat, SignatureAndLengthMustFit) {
  const std::string help = test::HelpBytes();
  EXPECT_TRUE(Fits(help));
  EXPECT_FALSE(Fits(help + "x"));
  std::string longer = help;
  longer[108] = 1;  // by four gigabytes
  EXPECT_FALSE(Fits(longer));
  std::string other = help;
  other[3] = 'T';
  EXPECT_FALSE(Fits(other));
  EXPECT_FALSE(Fits("<!DOCTYPE html><html><head><title>404</title></head><body>" + std::string(200, ' ')));
}

TEST(HelpFormat, NoCutFits) {
  const std::string help = test::HelpBytes();
  for (std::size_t length = 0; length < help.size(); ++length) EXPECT_FALSE(Fits(help.substr(0, length))) << length;
}

TEST(HelpFormat, SectionOutsideOfTheFileDoesNotFit) {
  for (const int section : {113, 120, 255}) {
    std::string help = test::HelpBytes();
    help[56] = static_cast<char>(section);
    EXPECT_FALSE(Fits(help)) << section;
  }
  std::string help = test::HelpBytes();
  for (int i = 56; i < 64; ++i) help[static_cast<std::size_t>(i)] = '\xFF';
  EXPECT_FALSE(Fits(help));
}

TEST(HelpFormat, TheHelpOfTheProgramFitsAndNoCutOfIt) {
  std::ifstream stream(std::filesystem::path(KVEZ_PROGRAM_FOLDER) / "kvez.chm", std::ios::binary);
  const std::string help((std::istreambuf_iterator<char>(stream)), {});
  ASSERT_FALSE(help.empty()) << "kvez.chm is not built: is fp-utils-3.2.2 installed?";
  EXPECT_TRUE(Fits(help));
  EXPECT_FALSE(Fits(help.substr(0, help.size() / 2)));
  EXPECT_FALSE(Fits(help.substr(0, help.size() - 1)));
  EXPECT_FALSE(Fits(help + "x"));
}

}  // namespace
}  // namespace kvez
