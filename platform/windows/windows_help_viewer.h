#pragma once

#include <windows.h>

#include <functional>

#include "platform/help_viewer.h"

namespace kvez {

/// HTML Help over the window that `owner` names at the moment of asking.
class WindowsHelpViewer : public HelpViewer {
 public:
  explicit WindowsHelpViewer(std::function<HWND()> owner);

  /// The viewer knows paths of fewer than 260 characters.
  bool Takes(const std::wstring& path) override;
  bool Show(const std::wstring& path) override;
  void CloseAll() override;

 private:
  std::function<HWND()> m_owner;
  bool m_opened = false;
};

}  // namespace kvez
