#pragma once

#include <string>

namespace kvez {

/// Copies of files that are kept under another name in the same folder. Paths are full paths. Nothing here throws
/// anything but std::bad_alloc.
class KeptFiles {
 public:
  virtual ~KeptFiles() = default;

  virtual bool Exists(const std::wstring& path) = 0;

  /// Copies a file with its date, in place of the file there: as a whole and on the disk, or not at all. False when it
  /// cannot.
  virtual bool Copy(const std::wstring& from, const std::wstring& to) = 0;

  /// Moves a file to another name, in place of the file there, at once or not at all. False when it cannot.
  virtual bool Move(const std::wstring& from, const std::wstring& to) = 0;

  /// Removes a file. A missing one counts as removed.
  virtual bool Remove(const std::wstring& path) = 0;
};

}  // namespace kvez
