#pragma once

#include "bench/limits.h"
#include "mainwindow/frmhlavni.h"

namespace kvez::bench {

/// Every action of a person in the loaded main window, from the key or the click to the painted answer, beside the time
/// that one picture of the screen lasts.
void MeasureOneFrame(frmhlavni& window, clspsc& database, Limits& limits);

}  // namespace kvez::bench
