#pragma once

#include "platform/clock.h"

namespace kvez {

/// The machine's clock in its own time zone.
class WindowsClock : public Clock {
 public:
  DateTime Now() override;
  std::uint64_t Milliseconds() override;
};

}  // namespace kvez
