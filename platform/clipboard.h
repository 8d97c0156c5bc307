#pragma once

#include <string_view>

namespace kvez {

/// The clipboard, for plain text.
class Clipboard {
 public:
  virtual ~Clipboard() = default;

  /// Clears the clipboard and puts `text` on it. Does nothing when another program does not let go of it.
  virtual void Replace(std::wstring_view text) = 0;
};

}  // namespace kvez
