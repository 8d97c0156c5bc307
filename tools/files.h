#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace kvez {

using Bytes = std::vector<std::uint8_t>;

/// How a path stands in messages.
std::string Shown(const std::filesystem::path& path);

/// The whole file. Throws ToolError when it cannot be read.
Bytes ReadWholeFile(const std::filesystem::path& path);

struct NewFile {
  std::filesystem::path path;
  Bytes bytes;
  /// Looks at what was read back, beyond its being the same bytes; throws ToolError. May be empty.
  std::function<void(const Bytes&)> check;
};

/// Writes all files under temporary names (with ".new" behind), reads them back, and only then gives them their own
/// names, in order. Throws ToolError; then the temporary files are gone, and as long as one could not be written or
/// read back, no old file was replaced.
void ReplaceFiles(const std::vector<NewFile>& files);

/// Makes the folder and those above it. Throws ToolError.
void MakeFolder(const std::filesystem::path& path);

}  // namespace kvez
