#pragma once

#include <functional>
#include <string>
#include <utility>

namespace kvez::forms {

/// How errors that nobody caught are shown. No exception leaves a window procedure.
struct GuardSettings {
  /// The caption of the message box.
  std::wstring title;
  /// Shows the text; when empty, a message box with the exclamation icon does.
  std::function<void(const std::wstring& text, const std::wstring& title)> show;
};

/// Sets the guard of the whole program, once at its start.
void SetGuard(GuardSettings settings);

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
