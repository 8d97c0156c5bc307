#pragma once

#include "tests/soak/soak.h"

namespace kvez::soak {

/// Two programs in one folder, as two sessions of a terminal server run them: they start at once again and again, and
/// one starts while the other updates.
void RunTwoPrograms(Soak& soak);

}  // namespace kvez::soak
