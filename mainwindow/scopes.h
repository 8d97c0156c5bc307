#pragma once

#include "forms/control.h"
#include "forms/list_box.h"
#include "forms/mouse_pointer.h"
#include "text/assertion.h"

namespace kvez {

/// The hourglass over the whole screen for as long as the object lives.
class HourglassScope {
 public:
  HourglassScope() { forms::Screen::SetMousePointer(forms::kPointerHourglass); }
  HourglassScope(const HourglassScope&) = delete;
  HourglassScope& operator=(const HourglassScope&) = delete;
  ~HourglassScope() { forms::Screen::SetMousePointer(forms::kPointerDefault); }
};

/// A control that is shown for as long as the object lives.
class VisibleScope {
 public:
  explicit VisibleScope(forms::Control& control) : m_control(control) { m_control.SetVisible(true); }
  VisibleScope(const VisibleScope&) = delete;
  VisibleScope& operator=(const VisibleScope&) = delete;
  ~VisibleScope() { m_control.SetVisible(false); }

 private:
  forms::Control& m_control;
};

/// A list box that is not drawn for as long as the object lives.
class FillScope {
 public:
  explicit FillScope(forms::ListBox& list) : m_list(list) { m_list.BeginFill(0, 0); }
  FillScope(const FillScope&) = delete;
  FillScope& operator=(const FillScope&) = delete;
  ~FillScope() { m_list.EndFill(); }

 private:
  forms::ListBox& m_list;
};

/// A flag that is true for as long as the object lives.
class BusyScope {
 public:
  explicit BusyScope(bool& flag) : m_flag(flag) {
    Assert(!flag, "one search at a time");
    m_flag = true;
  }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;
  ~BusyScope() { m_flag = false; }

 private:
  bool& m_flag;
};

}  // namespace kvez
