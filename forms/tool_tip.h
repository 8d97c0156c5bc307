#pragma once

#include <windows.h>

#include <string>

namespace kvez::forms {

class Control;
class Form;

/// The tooltip of a form. It shows the text of the control under the pointer, and has a window from the first one on,
/// which goes with the form's.
class ToolTip {
 public:
  explicit ToolTip(Form& form) : m_form(form) {}

  /// Watches over a control that the pointer has come to. False when that has nothing to tell, or not yet.
  bool Watch(Control& control);
  /// After the text of a watched control has changed.
  void Renew(Control& control);
  /// After the form's font or scaling has changed. The texts are to be renewed then: where words are broken depends on
  /// both.
  void Rescale();
  void SystemColorsChanged();

 private:
  void Create();
  int Width() const;  // pixels
  std::wstring Fitting(const Control& control) const;

  Form& m_form;
  HWND m_window = nullptr;
};

}  // namespace kvez::forms
