#pragma once

#include "tests/soak/soak.h"

namespace kvez::soak {

/// Kills during start, search, export, print and update: 200 of each.
void KillEverywhere(Soak& soak);

}  // namespace kvez::soak
