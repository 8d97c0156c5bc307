#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace kvez {

/// Which state of the official list the tables of a folder hold: what its stav.txt says.
struct DataState {
  std::string day;  // "2024-11-01"
  std::chrono::sys_days date;

  /// What files that are made of the tables carry as their time, so that the program tells that day as the one of its
  /// database: its noon, so that no time zone makes another day of it.
  std::filesystem::file_time_type FileTime() const;
};

/// Nothing when the folder has no stav.txt. Throws ToolError when it is no two lines of words and day, or cannot be
/// read.
std::optional<DataState> ReadDataState(const std::filesystem::path& folder);

}  // namespace kvez
