#pragma once

#include <optional>

#include "mainwindow/frmhlavni.h"

namespace kvez::bench {

/// Has the result list copied to the clipboard by its menu, with the keyboard, and returns the seconds from the Yes to
/// the question until everything is done and painted. Nothing when the clipboard did not change.
std::optional<double> CopyList(frmhlavni& window);

}  // namespace kvez::bench
