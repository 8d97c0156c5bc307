#include "forms/timer.h"

#include "forms/form.h"
#include "text/assertion.h"

namespace kvez::forms {

Timer::~Timer() {
  if (m_form == nullptr) return;
  SetEnabled(false);
  m_form->UnregisterTimer(*this);
}

void Timer::Create(Form& form, unsigned intervalMilliseconds, bool enabled) {
  Assert(m_form == nullptr, "a timer is created once");
  m_form = &form;
  m_interval = intervalMilliseconds;
  form.RegisterTimer(*this);
  SetEnabled(enabled);
}

void Timer::SetInterval(unsigned milliseconds) {
  m_interval = milliseconds;
  Restart();
}

void Timer::SetEnabled(bool enabled) {
  m_enabled = enabled;
  Restart();
}

void Timer::Restart() {
  if (m_form == nullptr || m_form->Handle() == nullptr) return;
  const auto id = reinterpret_cast<UINT_PTR>(this);
  KillTimer(m_form->Handle(), id);
  if (m_enabled && m_interval > 0) SetTimer(m_form->Handle(), id, m_interval, nullptr);
}

}  // namespace kvez::forms
