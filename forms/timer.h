#pragma once

#include <windows.h>

#include "forms/events.h"

namespace kvez::forms {

class Form;

/// Raises an event again and again while it is enabled. For a single shot, the handler disables it.
class Timer {
 public:
  Timer() = default;
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer();

  void Create(Form& form, unsigned intervalMilliseconds, bool enabled = false);

  unsigned Interval() const { return m_interval; }
  /// An enabled timer starts anew with the new interval. An interval of 0 stops it.
  void SetInterval(unsigned milliseconds);
  bool Enabled() const { return m_enabled; }
  /// Enabling starts the interval anew.
  void SetEnabled(bool enabled);

  /// The "Timer" event.
  PlainEvent Elapsed;

 private:
  friend class Form;
  void Restart();

  Form* m_form = nullptr;
  unsigned m_interval = 0;
  bool m_enabled = false;
};

}  // namespace kvez::forms
