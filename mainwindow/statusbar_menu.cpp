#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "mainwindow/statusbar.h"

namespace kvez {

void StatusBar::OnMenuSelect(unsigned command, unsigned flags, HMENU menu) {
  const bool closed = flags == 0xFFFF && menu == nullptr;
  // With a submenu or a separator the number is no command.
  const bool isCommand = !closed && (flags & (MF_POPUP | MF_SEPARATOR)) == 0;
  const auto found = std::ranges::find(m_menuExplanations, command, &MenuExplanation::command);
  if (isCommand && found != m_menuExplanations.end()) {
    ShowMenuExplanation(found->text);
  } else if (m_menuExplanationShown) {
    ShowMessage();
  }
}

void StatusBar::ShowMenuExplanation(std::wstring_view text) {
  if (!IsWindow(m_window)) return;
  m_menuExplanationShown = true;
  SendMessageW(m_window, SB_SETICON, kMessagePanel, 0);
  SendText(text, kMessagePanel);
}

void StatusBar::ShowMessage() {
  m_menuExplanationShown = false;
  SendText(m_message, kMessagePanel | static_cast<std::size_t>(m_messageFlags));
  SendMessageW(m_window, SB_SETICON, kMessagePanel, reinterpret_cast<LPARAM>(m_panels[kMessagePanel].icon.Get()));
}

}  // namespace kvez
