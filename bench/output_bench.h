#pragma once

#include "bench/limits.h"
#include "database/postal_database.h"

namespace kvez::bench {

/// The list text of all municipalities of `source`, and of ten times as many.
void MeasureListText(PostalDatabase& source, Limits& limits);

}  // namespace kvez::bench
