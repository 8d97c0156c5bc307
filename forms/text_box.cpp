#include "forms/text_box.h"

#include <algorithm>
#include <array>
#include <utility>

#include "forms/form.h"

namespace kvez::forms {
namespace {

/// Empty when there is no text, or when another program keeps the clipboard.
std::wstring ClipboardText(HWND window) {
  std::wstring text;
  if (!OpenClipboard(window)) return text;
  if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* characters = static_cast<const wchar_t*>(GlobalLock(memory))) {
      const auto* const end = characters + GlobalSize(memory) / sizeof(wchar_t);
      text.assign(characters, std::find(characters, end, L'\0'));
      GlobalUnlock(memory);
    }
  }
  CloseClipboard();
  return text;
}

}  // namespace

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

LRESULT TextBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_PASTE || !Paste) return EventControl::OnMessage(message, wParam, lParam);
  PasteText();
  return 0;
}

void TextBox::PasteText() {
  std::wstring text = ClipboardText(Handle());
  if (text.empty()) return;
  text = Paste(text);
  if (m_maxLength > 0) {
    DWORD first = 0;
    DWORD end = 0;
    Native(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&end));
    const std::size_t kept = static_cast<std::size_t>(Native(WM_GETTEXTLENGTH)) - (end - first);
    const auto limit = static_cast<std::size_t>(m_maxLength);
    text.resize(std::min(text.size(), limit - std::min(limit, kept)));
  }
  Native(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void TextBox::SelectAll() { Native(EM_SETSEL, 0, -1); }

void TextBox::DoClipboardKey(std::int16_t keyCode) {
  constexpr std::array<std::pair<int, UINT>, 4> kCommands = {
      {{'C', WM_COPY}, {'X', WM_CUT}, {'V', WM_PASTE}, {'Z', WM_UNDO}}};
  for (const auto& [key, command] : kCommands) {
    if (key == keyCode) OnMessage(command, 0, 0);
  }
}

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

// Of a higher line the system's box would cut off what lies below the letters.
int TextBox::LineRoom() const {
  if (m_style != TextBoxStyle::SingleLine) return 0;
  return OwnerForm().ToPixels(GetPlace().height) - 2 * GetSystemMetrics(SM_CYEDGE);
}

COLORREF TextBox::DefaultBackColor() const {
  return GetSysColor(Enabled() && m_style == TextBoxStyle::SingleLine ? COLOR_WINDOW : COLOR_BTNFACE);
}

// The one that belongs to the background: a theme may have made both of any colour.
COLORREF TextBox::DefaultForeColor() const {
  return GetSysColor(m_style == TextBoxStyle::SingleLine ? COLOR_WINDOWTEXT : COLOR_BTNTEXT);
}

}  // namespace kvez::forms
