#include "tools/data_state.h"

#include <charconv>
#include <string_view>
#include <vector>

#include "platform/durable_files.h"
#include "tools/files.h"
#include "tools/lines.h"
#include "tools/tool.h"

namespace kvez {
namespace {

/// The number that `digits` are, or -1.
int Number(std::string_view digits) {
  int number = -1;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size() ? number : -1;
}

/// A day as "2024-11-01".
std::optional<std::chrono::sys_days> ParseDay(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const int year = Number(text.substr(0, 4));
  const int month = Number(text.substr(5, 2));
  const int day = Number(text.substr(8, 2));
  if (year < 0 || month < 0 || day < 0) return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return std::nullopt;
  return std::chrono::sys_days(date);
}

}  // namespace

std::filesystem::file_time_type DataState::FileTime() const {
  return std::chrono::file_clock::from_sys(std::chrono::sys_seconds(date) + std::chrono::hours(12));
}

std::optional<DataState> ReadDataState(const std::filesystem::path& folder) {
  const std::filesystem::path file = folder / "stav.txt";
  if (durable::Look(file) == durable::Answer::Missing) return std::nullopt;
  const Bytes bytes = ReadWholeFile(file);
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const std::vector<std::string_view> lines = SplitLines(text);
  const auto date = lines.size() == 2 ? ParseDay(lines[1]) : std::nullopt;
  if (!date || lines[0].empty()) {
    throw ToolError(Shown(file) + " is not two lines, a state in words and its day as YYYY-MM-DD");
  }
  return DataState{std::string(lines[1]), *date};
}

}  // namespace kvez
