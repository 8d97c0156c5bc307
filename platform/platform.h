#pragma once

#include "platform/database_platform.h"
#include "platform/output_platform.h"

namespace kvez {

/// What the portable rooms ask of the machine.
struct Platform : DatabasePlatform {
  OutputPlatform output;
};

}  // namespace kvez
