#pragma once

#include <string>

#include "platform/downloader.h"
#include "platform/file_operations.h"
#include "platform/help_viewer.h"
#include "settings/clszastupce.h"

namespace kvez {

/// What the main window's commands ask of the machine beside the core's services. The services outlive whoever holds
/// this.
struct CommandServices {
  Downloader& downloader;
  HelpViewer& help;
  FileOperations& files;
  ShortcutPlatform shortcut;

  /// Without a trailing separator.
  const std::wstring& ProgramFolder() const { return shortcut.programFolder; }
};

}  // namespace kvez
