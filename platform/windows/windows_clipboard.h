#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/clipboard.h"
#include "platform/windows/patience.h"

namespace kvez {

/// The system's clipboard. It belongs afterwards to the window that `owner` names, without which the system takes no
/// text.
class WindowsClipboard : public Clipboard {
 public:
  explicit WindowsClipboard(std::function<HWND()> owner, Patience patience = {});

  void Replace(std::wstring_view text) override;

 private:
  bool OpenPatiently() const;

  std::function<HWND()> m_owner;
  Patience m_patience;
};

}  // namespace kvez
