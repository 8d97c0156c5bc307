#pragma once

#include "bench/limits.h"
#include "database/clspsc.h"

namespace kvez::bench {

/// The list text of all municipalities of `source`, and of ten times as many.
void MeasureListText(clspsc& source, Limits& limits);

}  // namespace kvez::bench
