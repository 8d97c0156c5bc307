#pragma once

#include "forms/form.h"

namespace kvez::forms {

/// Handles messages until `form` is unloaded.
void RunMessageLoop(const Form& form);

/// Handles the messages that wait now and returns.
void DoEvents();

/// The same in the middle of long work of `form`: it is painted, can be moved, minimised and asked to close, but what
/// is typed or clicked in it meanwhile goes nowhere. True when Escape was among that.
bool CatchUp(const Form& form);

}  // namespace kvez::forms
