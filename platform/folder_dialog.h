#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kvez {

/// Asks the user for a folder.
class FolderDialog {
 public:
  /// The length of the buffer that the system writes a path into.
  static constexpr std::size_t kPathBufferLength = 260;

  virtual ~FolderDialog() = default;

  /// Shows the system's folder dialog over the foreground window, with `prompt` above the tree. Nothing when the user
  /// cancels; otherwise the whole path buffer as the system left it, NUL characters behind the path. An item that is
  /// no folder of the file system leaves the buffer all NUL.
  virtual std::optional<std::wstring> Browse(std::wstring_view prompt) = 0;

  /// Whether the path is a folder that can be reached now; a drive without a medium is none.
  virtual bool IsDirectory(const std::wstring& path) = 0;
};

}  // namespace kvez
