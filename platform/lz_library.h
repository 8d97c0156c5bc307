#pragma once

#include <cstdint>
#include <string>

namespace kvez {

enum class LzMode { Read, Create, Delete };

/// The expansion library that data files go through: open, copy (which expands), close.
/// A file that is not compressed is copied unchanged. Paths are full paths.
class LzLibrary {
 public:
  virtual ~LzLibrary() = default;

  /// Opens a file and returns its handle, or a negative error code. Create overwrites an existing file.
  /// Delete removes the file; there is nothing to close afterwards.
  virtual std::int32_t OpenFile(const std::wstring& path, LzMode mode) = 0;

  /// Expands everything from `source` into `target`. Returns the bytes written or a negative error code;
  /// a negative handle is such an error too.
  virtual std::int32_t Copy(std::int32_t source, std::int32_t target) = 0;

  /// Closes a handle of OpenFile; a negative one is ignored.
  virtual void Close(std::int32_t handle) = 0;
};

}  // namespace kvez
