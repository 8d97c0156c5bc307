#pragma once

#include <functional>
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
  /// What Ctrl does with the key of this code: C copies, X cuts, V pastes, Z takes the last change back. Any other key
  /// does nothing. For who keeps the characters of these keys from the box.
  void DoClipboardKey(std::int16_t keyCode);

  PlainEvent Change;
  /// What goes into a box of one line instead of a text that is pasted. Without it, that text goes in as the system
  /// has it: up to its first line end, which may be at its very beginning.
  std::function<std::wstring(const std::wstring& text)> Paste;

  bool HasAccessKey(wchar_t) const override { return false; }
  void OnCommand(UINT notification) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKeyPress(std::int16_t& keyAscii) override;
  int LineRoom() const override;
  COLORREF DefaultBackColor() const override;
  COLORREF DefaultForeColor() const override;

 private:
  void PasteText();

  TextBoxStyle m_style = TextBoxStyle::SingleLine;
  int m_maxLength = 0;
};

}  // namespace kvez::forms
