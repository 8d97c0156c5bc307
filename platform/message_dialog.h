#pragma once

#include <string_view>

namespace kvez {

enum class MessageIcon { Exclamation, Information, Question };

/// Modal messages and questions. The owner is whatever window the implementation serves.
class MessageDialog {
 public:
  virtual ~MessageDialog() = default;

  /// Shows `text` with an OK button and returns when the user has closed it.
  virtual void Show(std::wstring_view text, MessageIcon icon, std::wstring_view caption) = 0;

  /// Asks `text` with Yes and No buttons and the question icon; true for Yes.
  virtual bool Ask(std::wstring_view text, std::wstring_view caption) = 0;
};

}  // namespace kvez
