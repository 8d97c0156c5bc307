#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// Text files for other programs: one byte per character in the system's 8-bit code page, no byte order mark.
class TextFiles {
 public:
  virtual ~TextFiles() = default;

  /// Creates the file, or empties the one that is there, and writes `text` as it stands. A character that the code
  /// page lacks becomes its default character. Throws std::runtime_error when the file cannot be created or written
  /// whole; what was written until then stays.
  virtual void Write(const std::wstring& path, std::wstring_view text) = 0;
};

}  // namespace kvez
