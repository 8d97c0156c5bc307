#pragma once

#include <string>

#include "platform/file_operations.h"

namespace kvez {

/// The data files as they were before an update. They are kept beside themselves from before the first download until a
/// loading has succeeded, so that a process that ends in between has lost nothing.
class PreviousFiles {
 public:
  /// `files` outlives this object; the folder comes without a trailing separator.
  PreviousFiles(FileOperations& files, std::wstring folder);

  /// Keeps a copy of each file that is there. Copies that are kept already stay: since they were made nothing has been
  /// loaded from the files beside them. False when a copy cannot be made; then none is kept.
  bool Keep();

  /// Whether there is a whole set of copies.
  bool AreKept();

  /// Puts the kept files back; afterwards none is kept. False when that cannot be done to the end; then it can be tried
  /// again.
  bool PutBack();

  /// Removes the copies.
  void Forget();

 private:
  FileOperations& m_files;
  std::wstring m_folder;
};

}  // namespace kvez
