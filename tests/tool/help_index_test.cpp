// The index of the help is laid out by hand; the help viewer shows it as it stands.

// The system's collation on Windows puts blanks and hyphens in another order.
#ifndef _WIN32

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "platform/collation.h"
#include "text/utf8.h"

namespace kvez {
namespace {

std::vector<std::wstring> NamesInTheIndex() {
  constexpr std::string_view kName = "name=\"Name\" value=\"";
  std::ifstream stream(std::filesystem::path(KVEZ_SOURCE_DIR) / "help" / "kvez.hhk", std::ios::binary);
  const std::string index{std::istreambuf_iterator<char>(stream), {}};
  std::vector<std::wstring> names;
  for (auto at = index.find(kName); at != std::string::npos; at = index.find(kName, at)) {
    at += kName.size();
    names.push_back(FromUtf8(index.substr(at, index.find('"', at) - at)).value());
  }
  return names;
}

TEST(HelpIndex, IsInTheOrderOfTheAlphabet) {
  const std::vector<std::wstring> names = NamesInTheIndex();
  ASSERT_GT(names.size(), 40U);
  const auto collation = CreateCzechCollation();
  std::vector<std::wstring> sorted = names;
  std::sort(sorted.begin(), sorted.end(), [&](const std::wstring& a, const std::wstring& b) {
    return collation->SortKey(a) < collation->SortKey(b);
  });
  EXPECT_EQ(names, sorted);
}

}  // namespace
}  // namespace kvez

#endif
