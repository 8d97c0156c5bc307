#pragma once

#include "platform/automation.h"

namespace kvez {

/// Automation objects of this machine. Must be made and used on one thread, which it keeps ready for such objects.
class WindowsAutomation : public Automation {
 public:
  WindowsAutomation();
  WindowsAutomation(const WindowsAutomation&) = delete;
  WindowsAutomation& operator=(const WindowsAutomation&) = delete;
  ~WindowsAutomation() override;

  std::unique_ptr<AutomationObject> Create(const std::wstring& name) override;

 private:
  bool m_initialized;
};

}  // namespace kvez
