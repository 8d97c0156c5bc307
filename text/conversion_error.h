#pragma once

#include <exception>
#include <string>
#include <utility>

namespace kvez {

/// A text that had to be a number (or a truth value) and is none. `Text` is a plain Czech sentence for the user.
class ConversionError : public std::exception {
 public:
  explicit ConversionError(std::wstring text) : m_text(std::move(text)) {}

  const std::wstring& Text() const { return m_text; }
  const char* what() const noexcept override { return "conversion error"; }

 private:
  std::wstring m_text;
};

}  // namespace kvez
