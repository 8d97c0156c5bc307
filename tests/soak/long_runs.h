#pragma once

#include "tests/soak/soak.h"

namespace kvez::soak {

/// 30,000 searches in one program: each text finds the same number of rows as the first time.
void SearchLong(Soak& soak);
/// 10,000 random events, with three seeds.
void SendRandomEvents(Soak& soak);

}  // namespace kvez::soak
