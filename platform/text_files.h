#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// Text files for other programs: in the system's 8-bit code page where that spells the whole text, in Windows-1250
/// where it would lose a letter; no byte order mark.
class TextFiles {
 public:
  virtual ~TextFiles() = default;

  /// Creates the file, or replaces the one that is there, with `text` as it stands. A character that both code pages
  /// lack becomes a question mark. The one that is there stays whole until the new one is, also when the program
  /// ends in the middle or the disk is full; only where nothing can take its name it is written itself. Throws
  /// Error when the text cannot be written.
  virtual void Write(const std::wstring& path, std::wstring_view text) = 0;
};

}  // namespace kvez
