#include "platform/windows/windows_output.h"

#include <utility>

namespace kvez {

WindowsOutput::WindowsOutput(Clock& clock, VersionInformation& version, std::function<HWND()> owner,
                             std::function<void()> doEvents, std::wstring title)
    : m_clock(clock),
      m_version(version),
      m_pendingMessages(std::move(doEvents)),
      m_clipboard(std::move(owner)),
      m_printer(std::move(title)) {}

OutputPlatform WindowsOutput::Services() {
  return {m_clock, m_pendingMessages, m_version, m_textFiles, m_clipboard, m_folders, m_mail, m_printer};
}

}  // namespace kvez
