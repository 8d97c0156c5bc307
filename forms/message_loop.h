#pragma once

#include "forms/form.h"

namespace kvez::forms {

/// Handles messages until `form` is unloaded.
void RunMessageLoop(const Form& form);

/// Handles the messages that wait now and returns.
void DoEvents();

}  // namespace kvez::forms
