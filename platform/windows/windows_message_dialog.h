#pragma once

#include <windows.h>

#include <functional>

#include "platform/message_dialog.h"

namespace kvez {

/// Message boxes over the window that `owner` names at the moment of asking (none: a null handle).
class WindowsMessageDialog : public MessageDialog {
 public:
  explicit WindowsMessageDialog(std::function<HWND()> owner);

  void Show(std::wstring_view text, MessageIcon icon, std::wstring_view caption) override;
  bool Ask(std::wstring_view text, std::wstring_view caption) override;

 private:
  std::function<HWND()> m_owner;
};

}  // namespace kvez
