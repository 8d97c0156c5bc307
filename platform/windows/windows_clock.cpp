#include "platform/windows/windows_clock.h"

#include <windows.h>

namespace kvez {

DateTime WindowsClock::Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

std::uint64_t WindowsClock::Milliseconds() { return GetTickCount64(); }

}  // namespace kvez
