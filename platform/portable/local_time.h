#pragma once

#include <ctime>
#include <optional>

#include "platform/date_time.h"

namespace kvez {

/// A moment of the system's clock in local time, or nothing when the system's calendar does not reach that far.
std::optional<DateTime> LocalDateTime(std::time_t seconds);

}  // namespace kvez
