#pragma once

#include <cstdint>

#include "platform/date_time.h"

namespace kvez {

/// The present moment. Who waits on behalf of a person, or shows the time, asks here.
class Clock {
 public:
  virtual ~Clock() = default;

  /// Local time, to the second.
  virtual DateTime Now() = 0;

  /// Milliseconds since a moment before the program's start. Nobody can set them back.
  virtual std::uint64_t Milliseconds() = 0;
};

}  // namespace kvez
