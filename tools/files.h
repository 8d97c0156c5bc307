#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kvez {

using Bytes = std::vector<std::uint8_t>;

/// How a path stands in messages; an empty one between apostrophes.
std::string Shown(const std::filesystem::path& path);

/// The whole file. Throws ToolError when it cannot be read.
Bytes ReadWholeFile(const std::filesystem::path& path);

struct NewFile {
  std::filesystem::path path;
  Bytes bytes;
  /// Looks at what was read back, beyond its being the same bytes; throws ToolError. May be empty.
  std::function<void(const Bytes&)> check;
  /// When it is to have been written last. Nothing for now.
  std::optional<std::filesystem::file_time_type> time = std::nullopt;
};

/// Replaces the files of one folder: afterwards it holds all of the new ones or all of the old ones, and nothing else
/// that was not there before. The new files are written under names of their own, flushed to the disk and read back
/// before the first of them gets its name. When the process is killed on the way, the next replacement in the folder
/// finishes or undoes this one first. Throws ToolError; then the old files are there.
void ReplaceFiles(const std::vector<NewFile>& files);

/// Finishes or undoes what a killed replacement has left in a folder. Throws ToolError when that cannot be done, or
/// when another process is at it.
void FinishReplacement(const std::filesystem::path& folder);

/// Throws ToolError when the files of a folder are partly new and partly old ones just now.
void ExpectNoReplacement(const std::filesystem::path& folder);

/// Makes the folder and those above it. Throws ToolError.
void MakeFolder(const std::filesystem::path& path);

}  // namespace kvez
