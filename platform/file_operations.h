#pragma once

#include <string>

namespace kvez {

/// Looking for single files, copying, moving and removing them. Paths are full paths. Nothing here throws anything but
/// std::bad_alloc.
class FileOperations {
 public:
  virtual ~FileOperations() = default;

  /// Whether anything has that name, a folder too.
  virtual bool Exists(const std::wstring& path) = 0;

  /// Whether there is a file of that name that is neither hidden nor one of the system's.
  virtual bool IsNormalFile(const std::wstring& path) = 0;

  /// Copies a file with its date, in place of the file there: as a whole and on the disk, or not at all. False when it
  /// cannot.
  virtual bool Copy(const std::wstring& from, const std::wstring& to) = 0;

  /// Moves a file to another name of the same folder, in place of the file there, at once or not at all. False when it
  /// cannot.
  virtual bool Move(const std::wstring& from, const std::wstring& to) = 0;

  /// Removes a file. A missing one counts as removed.
  virtual bool Remove(const std::wstring& path) = 0;
};

}  // namespace kvez
