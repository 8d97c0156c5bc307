#include "platform/windows/windows_message_dialog.h"

#include <string>

#include "platform/windows/held_keys.h"
#include "platform/windows/modal_scope.h"

namespace kvez {
namespace {

UINT IconStyle(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return MB_ICONINFORMATION;
    case MessageIcon::Question:
      return MB_ICONQUESTION;
    case MessageIcon::Exclamation:
      break;
  }
  return MB_ICONEXCLAMATION;
}

// Modal to the whole program, whichever of its windows the box belongs to.
int ShowBox(HWND owner, std::wstring_view text, std::wstring_view caption, UINT style) {
  const HeldKeysStayOutside heldKeysStayOutside;
  const ModalScope modal(owner);
  return MessageBoxW(owner, std::wstring(text).c_str(), std::wstring(caption).c_str(), style);
}

}  // namespace

WindowsMessageDialog::WindowsMessageDialog(std::function<HWND()> owner) : m_owner(std::move(owner)) {}

void WindowsMessageDialog::Show(std::wstring_view text, MessageIcon icon, std::wstring_view caption) {
  ShowBox(m_owner(), text, caption, MB_OK | IconStyle(icon));
}

bool WindowsMessageDialog::Ask(std::wstring_view text, std::wstring_view caption) {
  return ShowBox(m_owner(), text, caption, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

}  // namespace kvez
