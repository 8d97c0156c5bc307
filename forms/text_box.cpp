#include "forms/text_box.h"

#include <algorithm>

namespace kvez::forms {

void TextBox::Create(Container& container, int id, const Place& place, TextBoxStyle style) {
  m_style = style;
  const DWORD kind = style == TextBoxStyle::SingleLine
                         ? DWORD{ES_AUTOHSCROLL}
                         : DWORD{ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL};
  CreateNative(L"EDIT", Prepare(container, id, place, kind | WS_TABSTOP, WS_EX_CLIENTEDGE));
  SetTabStop(true);
  Finish();
}

std::wstring TextBox::Text() const {
  std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(Native(WM_GETTEXTLENGTH), 0)), L'\0');
  const LRESULT copied = Native(WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

void TextBox::SetText(std::wstring_view text) {
  Native(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(std::wstring(text).c_str()));
  // A box of several lines changes silently when code changes it.
  if (m_style != TextBoxStyle::SingleLine && Change) Change();
}

void TextBox::SetMaxLength(int characters) {
  m_maxLength = characters;
  Native(EM_SETLIMITTEXT, static_cast<WPARAM>(std::max(characters, 0)));
}

void TextBox::SelectAll() { Native(EM_SETSEL, 0, -1); }

void TextBox::OnCommand(UINT notification) {
  if (notification == EN_CHANGE && Change) Change();
}

bool TextBox::OnKeyPress(std::int16_t& keyAscii) {
  if (!EventControl::OnKeyPress(keyAscii)) return false;
  constexpr std::int16_t kCtrlA = 1;
  if (keyAscii == kCtrlA) {
    SelectAll();
    return false;
  }
  // A box of one line only beeps at these.
  const bool beeps = keyAscii == VK_RETURN || keyAscii == VK_ESCAPE || keyAscii == VK_TAB;
  return m_style != TextBoxStyle::SingleLine || !beeps;
}

COLORREF TextBox::DefaultBackColor() const {
  return GetSysColor(Enabled() && m_style == TextBoxStyle::SingleLine ? COLOR_WINDOW : COLOR_BTNFACE);
}

COLORREF TextBox::DefaultForeColor() const { return GetSysColor(COLOR_WINDOWTEXT); }

}  // namespace kvez::forms
