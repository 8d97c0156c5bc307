// The sources of the help: no link leads nowhere, no page is out of reach, no text has a character that the help's
// code page lacks.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace kvez {
namespace {

using testing::IsEmpty;

const std::filesystem::path kHelp = std::filesystem::path(KVEZ_SOURCE_DIR) / "help";
/// Before each page's name in the contents and in the index.
constexpr std::string_view kLocal = "name=\"Local\" value=\"";

std::string Content(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// What stands after each `opening` up to the first of the characters `ends`, where that is anything.
std::set<std::string> After(const std::string& text, std::string_view opening, const char* ends) {
  std::set<std::string> found;
  for (auto at = text.find(opening); at != std::string::npos; at = text.find(opening, at)) {
    at += opening.size();
    const std::string part = text.substr(at, text.find_first_of(ends, at) - at);
    if (!part.empty()) found.insert(part);
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
    EXPECT_THAT(Missing(After(text, "href=\"", "\"#")), IsEmpty()) << page;
    EXPECT_THAT(Missing(After(text, "src=\"", "\"")), IsEmpty()) << page;
  }
}

TEST(HelpPages, ContentsHasEveryPageAndNoOther) {
  EXPECT_EQ(After(Content(kHelp / "kvez.hhc"), kLocal, "\""), Pages());
}

TEST(HelpPages, IndexLeadsToPagesThatExist) {
  EXPECT_THAT(Missing(After(Content(kHelp / "kvez.hhk"), kLocal, "\"")), IsEmpty());
}

TEST(HelpPages, ContentsNamesThePagesByTheirTitles) {
  const std::string contents = Content(kHelp / "kvez.hhc");
  for (const std::string& page : Pages()) {
    const std::string text = Content(kHelp / page);
    const auto titles = After(text, "<title>", "<");
    ASSERT_EQ(titles.size(), 1U) << page;
    EXPECT_EQ(After(text, "<h1>", "<"), titles) << page;
    const std::string entry =
        "name=\"Name\" value=\"" + *titles.begin() + "\"><param name=\"Local\" value=\"" + page + "\"";
    EXPECT_NE(contents.find("<param " + entry), std::string::npos) << page;
  }
}

TEST(HelpPages, PicturesHaveTheirTrueSizesAndAWordForThoseWhoDoNotSeeThem) {
  for (const std::string& page : Pages()) {
    const std::string text = Content(kHelp / page);
    for (const std::string& picture : After(text, "<img src=\"", "\"")) {
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
    for (const std::string& picture : After(text, "<img ", ">")) {
      EXPECT_EQ(After(picture, "alt=\"", "\"").size(), 1U) << page << ": " << picture;
    }
  }
}

/// What the program's code says, one text behind the other, as it is shown.
std::string TextsOfTheProgram() {
  std::string texts;
  for (const char* room : {"database", "forms", "mainwindow", "output", "platform", "settings"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kHelp.parent_path() / room)) {
      if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") texts += Content(entry.path());
    }
  }
  constexpr std::string_view kQuote = "\\\"";
  for (auto at = texts.find(kQuote); at != std::string::npos; at = texts.find(kQuote, at)) texts.erase(at, 1);
  return texts;
}

TEST(HelpPages, MessagesThatAreExplainedAreThoseOfTheProgram) {
  constexpr std::string_view kCell = "<tr><td>";
  constexpr std::string_view kEllipsis = "…";
  const std::string program = TextsOfTheProgram();
  const std::string page = Content(kHelp / "zpravy.html");
  int parts = 0;
  for (auto at = page.find(kCell); at != std::string::npos; at = page.find(kCell, at)) {
    at += kCell.size();
    std::string messages = page.substr(at, page.find("</td>", at) - at);
    // Each part between what differs from time to time or comes from elsewhere, and between two messages of one row.
    for (const std::string_view gap : {"<br>", "Kvez"}) {
      for (auto mark = messages.find(gap); mark != std::string::npos; mark = messages.find(gap)) {
        messages.replace(mark, gap.size(), kEllipsis);
      }
    }
    for (std::size_t begin = 0; begin < messages.size();) {
      const std::size_t end = std::min(messages.find(kEllipsis, begin), messages.size());
      const std::string part = messages.substr(begin, end - begin);
      begin = end + kEllipsis.size();
      if (part.size() < 2) continue;
      EXPECT_NE(program.find(part), std::string::npos) << part;
      ++parts;
    }
  }
  EXPECT_GT(parts, 30);
}

}  // namespace
}  // namespace kvez
