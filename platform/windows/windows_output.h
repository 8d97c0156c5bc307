#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/platform.h"
#include "platform/windows/windows_clipboard.h"
#include "platform/windows/windows_folder_dialog.h"
#include "platform/windows/windows_mail_client.h"
#include "platform/windows/windows_pending_messages.h"
#include "platform/windows/windows_printer.h"
#include "platform/windows/windows_text_files.h"

namespace kvez {

/// The system's services for handing out a list, all together.
class WindowsOutput {
 public:
  /// `owner` names the window that the clipboard belongs to afterwards, `doEvents` handles the waiting messages,
  /// `title` is what printed documents are called. The clock and the version information outlive this object.
  WindowsOutput(Clock& clock, VersionInformation& version, std::function<HWND()> owner, std::function<void()> doEvents,
                std::wstring title);

  OutputPlatform Services();

 private:
  Clock& m_clock;
  VersionInformation& m_version;
  WindowsPendingMessages m_pendingMessages;
  WindowsTextFiles m_textFiles;
  WindowsClipboard m_clipboard;
  WindowsFolderDialog m_folders;
  WindowsMailClient m_mail;
  WindowsPrinter m_printer;
};

}  // namespace kvez
