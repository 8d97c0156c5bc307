// The sources of the help: no link leads nowhere, no page is out of reach, no text has a character that the help's
// code page lacks.

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace kvez {
namespace {

using testing::IsEmpty;

const std::filesystem::path kHelp = std::filesystem::path(KVEZ_SOURCE_DIR) / "help";

std::string Content(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The first group of every match.
std::set<std::string> Matches(const std::string& text, const char* pattern) {
  std::set<std::string> found;
  const std::regex expression(pattern);
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
    found.insert((*match)[1]);
  }
  return found;
}

std::set<std::string> Pages() {
  std::set<std::string> pages;
  for (const auto& entry : std::filesystem::directory_iterator(kHelp)) {
    if (entry.path().extension() == ".html") pages.insert(entry.path().filename().string());
  }
  return pages;
}

std::set<std::string> Missing(const std::set<std::string>& files) {
  std::set<std::string> missing;
  for (const std::string& file : files) {
    if (!std::filesystem::exists(kHelp / file)) missing.insert(file);
  }
  return missing;
}

TEST(HelpPages, EveryLinkAndPictureIsThere) {
  ASSERT_FALSE(Pages().empty());
  for (const std::string& page : Pages()) {
    const std::string text = Content(kHelp / page);
    EXPECT_THAT(Missing(Matches(text, R"(href="([^"#]+))")), IsEmpty()) << page;
    EXPECT_THAT(Missing(Matches(text, R"(src="([^"]+))")), IsEmpty()) << page;
  }
}

TEST(HelpPages, ContentsHasEveryPageAndNoOther) {
  EXPECT_EQ(Matches(Content(kHelp / "kvez.hhc"), R"(name="Local" value="([^"]+))"), Pages());
}

TEST(HelpPages, IndexLeadsToPagesThatExist) {
  EXPECT_THAT(Missing(Matches(Content(kHelp / "kvez.hhk"), R"(name="Local" value="([^"]+))")), IsEmpty());
}

TEST(HelpPages, ContentsNamesThePagesByTheirTitles) {
  const std::string contents = Content(kHelp / "kvez.hhc");
  for (const std::string& page : Pages()) {
    const std::string text = Content(kHelp / page);
    const auto titles = Matches(text, R"(<title>([^<]+)</title>)");
    ASSERT_EQ(titles.size(), 1U) << page;
    EXPECT_EQ(Matches(text, R"(<h1>([^<]+)</h1>)"), titles) << page;
    const std::string entry =
        "name=\"Name\" value=\"" + *titles.begin() + "\"><param name=\"Local\" value=\"" + page + "\"";
    EXPECT_NE(contents.find("<param " + entry), std::string::npos) << page;
  }
}

TEST(HelpPages, PicturesHaveTheirTrueSizesAndAWordForThoseWhoDoNotSeeThem) {
  for (const std::string& page : Pages()) {
    const std::string text = Content(kHelp / page);
    for (const std::string& picture : Matches(text, R"(<img src="([^"]+))")) {
      const std::string bytes = Content(kHelp / picture);
      ASSERT_GT(bytes.size(), 24U) << picture;
      // Width and height, big-endian, at 16 and 20 in a PNG file.
      const auto number = [&bytes](std::size_t at) {
        return (static_cast<unsigned char>(bytes[at + 2]) << 8) | static_cast<unsigned char>(bytes[at + 3]);
      };
      const std::string size =
          "width=\"" + std::to_string(number(16)) + "\" height=\"" + std::to_string(number(20)) + "\"";
      EXPECT_NE(text.find(size), std::string::npos) << page << ": " << picture << " is " << size;
    }
    EXPECT_EQ(Matches(text, R"(<img ([^>]*)>)").size(), Matches(text, R"(<img [^>]*alt="([^"]+))").size()) << page;
  }
}

}  // namespace
}  // namespace kvez
