#pragma once

#include "tests/soak/soak.h"

namespace kvez::soak {

/// Updates from servers that answer wrongly, each in another way in its turn, and after each of them from a good one.
void UpdateFromWrongServers(Soak& soak);

}  // namespace kvez::soak
