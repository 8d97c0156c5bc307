#pragma once

namespace kvez {

/// Claims to be the one instance of the user's session; false when another one runs or is still ending. To be asked
/// once, at the start: the claim is a named mutex that is never given back by hand, so that the system lets go of it
/// only when the process has really ended.
bool ClaimSingleInstance();

/// Brings the window of the instance that runs to the front, restored when it is minimised, or the question that it
/// asks. Without a visible window nothing happens. To be called while this process has the keyboard.
void ShowRunningInstance();

}  // namespace kvez
