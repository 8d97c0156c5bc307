#pragma once

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tool/tool_test.h"

namespace kvez {

inline constexpr std::wstring_view kListHeading = L"NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE\r\n";

class ImportTest : public ToolTest {
 protected:
  /// Imports a list of these bytes into the folder "data".
  ToolRun ImportBytes(const std::string& list) {
    folder.Write("list.csv", list);
    return RunCommand({L"import", Path(L"list.csv"), Path(L"data")});
  }
  ToolRun ImportRows(std::wstring_view rows) {
    return ImportBytes(ToWindows1250(std::wstring(kListHeading).append(rows)));
  }

  /// That a list is refused with a message about a line, and nothing is made of it.
  void ExpectRefused(std::wstring_view rows, const std::string& message) {
    ExpectFailure(ImportRows(rows), Shown(L"list.csv") + ": " + message);
    EXPECT_EQ(std::filesystem::exists(folder.Path() / "data"), false);
  }

  /// The names of obce.csv without their codes and districts, joined by " | ".
  std::string Names() const {
    std::istringstream lines(folder.Read("data/obce.csv"));
    std::string names;
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
      const std::size_t begin = line.find(';') + 1;
      names.append(names.empty() ? "" : " | ").append(line.substr(begin, line.rfind(';') - begin));
    }
    return names;
  }

  /// Those names, in whatever order.
  void ExpectNames(std::vector<std::string> expected) const {
    std::string joined;
    std::sort(expected.begin(), expected.end());
    for (const std::string& name : expected) joined.append(joined.empty() ? "" : " | ").append(name);
    std::vector<std::string> names;
    std::string rest = Names();
    for (std::size_t end = rest.find(" | "); end != std::string::npos; end = rest.find(" | ")) {
      names.push_back(rest.substr(0, end));
      rest.erase(0, end + 3);
    }
    names.push_back(rest);
    std::sort(names.begin(), names.end());
    std::string sorted;
    for (const std::string& name : names) sorted.append(sorted.empty() ? "" : " | ").append(name);
    EXPECT_EQ(sorted, joined);
  }
};

}  // namespace kvez
