#pragma once

#include <windows.h>

#include "database/progress_window.h"
#include "forms/message_loop.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_formats.h"
#include "platform/windows/windows_lz_library.h"
#include "platform/windows/windows_message_dialog.h"
#include "platform/windows/windows_output.h"
#include "platform/windows/windows_settings_store.h"
#include "platform/windows/windows_version_information.h"

namespace kvez {

/// The services that the database gets in the real program.
struct WindowsMachine {
  kvez::Platform Platform() { return {{messages, settings, lz, files, formats}, output.Services()}; }

  /// In front of which messages appear and to which the clipboard belongs.
  HWND window = nullptr;
  WindowsMessageDialog messages{[this] { return window; }};
  WindowsSettingsStore settings;
  WindowsLzLibrary lz;
  WindowsFiles files;
  WindowsFormats formats;
  WindowsClock clock;
  WindowsVersionInformation version;
  WindowsOutput output{clock, version, [this] { return window; }, &forms::DoEvents, L"Kvez"};
};

class NoProgress : public ProgressWindow {
 public:
  void Prubech(float) override {}
  void PrubechPamet(float) override {}
};

}  // namespace kvez
