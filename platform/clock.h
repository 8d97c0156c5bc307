#pragma once

#include "platform/date_time.h"

namespace kvez {

/// The present moment.
class Clock {
 public:
  virtual ~Clock() = default;

  /// Local time, to the second.
  virtual DateTime Now() = 0;
};

}  // namespace kvez
