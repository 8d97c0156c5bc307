#include "platform/windows/windows_message_dialog.h"

#include <string>

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

}  // namespace

WindowsMessageDialog::WindowsMessageDialog(std::function<HWND()> owner) : m_owner(std::move(owner)) {}

void WindowsMessageDialog::Show(std::wstring_view text, MessageIcon icon, std::wstring_view caption) {
  MessageBoxW(m_owner(), std::wstring(text).c_str(), std::wstring(caption).c_str(), MB_OK | IconStyle(icon));
}

bool WindowsMessageDialog::Ask(std::wstring_view text, std::wstring_view caption) {
  return MessageBoxW(m_owner(), std::wstring(text).c_str(), std::wstring(caption).c_str(),
                     MB_YESNO | MB_ICONQUESTION) == IDYES;
}

}  // namespace kvez
