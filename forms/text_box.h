#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"

namespace kvez::forms {

enum class TextBoxStyle { SingleLine, ReadOnlyLines /* several lines, wrapped, that can be read and copied */ };

class TextBox : public EventControl {
 public:
  void Create(Container& container, int id, const Place& place, TextBoxStyle style = TextBoxStyle::SingleLine);

  std::wstring Text() const;
  /// Raises Change, as typing does.
  void SetText(std::wstring_view text);

  int MaxLength() const { return m_maxLength; }
  /// How many characters can be typed or pasted; 0 means any number. A longer text set by code stays.
  void SetMaxLength(int characters);

  void SelectAll();

  PlainEvent Change;

  bool HasAccessKey(wchar_t) const override { return false; }
  void OnCommand(UINT notification) override;

 protected:
  bool OnKeyPress(std::int16_t& keyAscii) override;
  COLORREF DefaultBackColor() const override;
  COLORREF DefaultForeColor() const override;

 private:
  TextBoxStyle m_style = TextBoxStyle::SingleLine;
  int m_maxLength = 0;
};

}  // namespace kvez::forms
