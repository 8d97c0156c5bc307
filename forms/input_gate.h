#pragma once

#include "forms/form.h"

namespace kvez::forms {

/// Whether the form takes input now. Whatever the user, the pointer or a timer starts asks here first. False while the
/// form is closed, being closed or asking about it, while it is disabled (a dialog lies over it), while a menu of this
/// thread is open, and while an InputPause of it lives. It need not be the active window.
bool TakesInput(const Form& form);

/// The same for what the pointer does merely by passing: the form must be the active window as well.
bool TakesPointer(const Form& form);

/// What becomes of a wish to close the form while an InputPause lives.
enum class Closing {
  Waits,   // it is kept, and asked about when the pause ends
  GoesOn,  // it is asked about at once: the work looks after each step whether the form is still open
};

/// The form takes no input for as long as the object lives: a print, a download, a question, a menu of its own. Pauses
/// may be nested, and outlive the form's window.
class InputPause {
 public:
  explicit InputPause(Form& form, Closing closing = Closing::Waits);
  InputPause(const InputPause&) = delete;
  InputPause& operator=(const InputPause&) = delete;
  ~InputPause();

 private:
  Form& m_form;
  const Closing m_closing;
};

}  // namespace kvez::forms
