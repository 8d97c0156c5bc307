#include "platform/portable/local_time.h"

namespace kvez {

std::optional<DateTime> LocalDateTime(std::time_t seconds) {
  std::tm local{};
#ifdef _WIN32
  if (localtime_s(&local, &seconds) != 0) return std::nullopt;
#else
  if (localtime_r(&seconds, &local) == nullptr) return std::nullopt;
#endif
  return DateTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace kvez
