#pragma once

namespace kvez {

/// The start of the program: refuses a second instance, creates the one database object and the one main window, and
/// runs until that window is gone. Returns the exit status of the process.
int Main();

}  // namespace kvez
