#pragma once

#include <windows.h>

#include <functional>

namespace kvez {

/// Takes a message of the status bar away some time after it was shown. A process has one at a time.
class MessageTimer {
 public:
  MessageTimer() = default;
  MessageTimer(const MessageTimer&) = delete;
  MessageTimer& operator=(const MessageTimer&) = delete;
  ~MessageTimer() { Stop(); }

  unsigned Interval() const { return m_interval; }
  /// One that runs starts anew with the new interval.
  void SetInterval(unsigned milliseconds);

  /// Runs `action` once after the interval, in place of one that still waits. It must not throw.
  void Start(std::function<void()> action);
  void Stop();
  bool IsRunning() const { return m_timer != 0; }

 private:
  static void CALLBACK Procedure(HWND window, UINT message, UINT_PTR timer, DWORD time);

  unsigned m_interval = 5000;  // milliseconds
  UINT_PTR m_timer = 0;
  std::function<void()> m_action;
};

}  // namespace kvez
