#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace kvez::forms {

/// An error whose text the user may read.
class Error : public std::exception {
 public:
  explicit Error(std::wstring text) : m_text(std::move(text)) {}

  const std::wstring& Text() const { return m_text; }
  const char* what() const noexcept override { return "error"; }

 private:
  std::wstring m_text;
};

/// A number that does not fit where it is to be kept.
class OverflowError : public Error {
 public:
  OverflowError() : Error(L"Číslo je mimo povolený rozsah.") {}
};

/// How errors that nobody caught are shown. No exception leaves a window procedure.
struct GuardSettings {
  /// The caption of the message box.
  std::wstring title;
  /// Gives the text of an exception type that this layer does not know, or an empty text. It rethrows what it is
  /// given and catches what it knows.
  std::function<std::wstring(std::exception_ptr)> translate;
  /// Shows the text; when empty, a message box with the exclamation icon does.
  std::function<void(const std::wstring& text, const std::wstring& title)> show;
};

/// Sets the guard of the whole program, once at its start.
void SetGuard(GuardSettings settings);

/// The text that the guard shows for `error`.
std::wstring ErrorText(const std::exception_ptr& error);

/// To be called in a catch block: shows the exception that is being handled. While one error is on show, further ones
/// (a window painting itself behind the message box) are dropped, or there would be no end of boxes.
void ReportCurrentException() noexcept;

/// Runs `action`; an exception is shown instead of passed on. False when there was one.
template <typename Action>
bool Guarded(Action&& action) noexcept {
  try {
    std::forward<Action>(action)();
    return true;
  } catch (...) {
    ReportCurrentException();
    return false;
  }
}

}  // namespace kvez::forms
