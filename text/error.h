#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace kvez {

/// What went wrong: a Czech sentence for the user, and for whoever the user asks the call that failed and the system's
/// code.
class Error : public std::runtime_error {
 public:
  /// An error without a call comes from no system: something was asked for that cannot be.
  explicit Error(std::wstring text, const char* call = "", std::uint32_t code = 0)
      : std::runtime_error(call), m_text(std::move(text)), m_code(code) {}

  const std::wstring& Text() const { return m_text; }
  std::uint32_t Code() const { return m_code; }

  /// The sentence, and behind it in parentheses the call and its code where there are any.
  std::wstring TextWithCode() const;

 private:
  std::wstring m_text;
  std::uint32_t m_code;
};

/// A text that had to be a number (or a truth value) and is none.
class ConversionError : public Error {
 public:
  explicit ConversionError(std::wstring text) : Error(std::move(text)) {}
};

/// A number that does not fit where it is to be kept.
class OverflowError : public ConversionError {
 public:
  OverflowError() : ConversionError(L"Číslo je mimo povolený rozsah.") {}
};

}  // namespace kvez
