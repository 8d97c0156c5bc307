#include "mainwindow/module1.h"

#include <memory>
#include <string>

#include "database/application.h"
#include "forms/guard.h"
#include "forms/message_loop.h"
#include "mainwindow/frmhlavni.h"
#include "mainwindow/single_instance.h"
#include "platform/windows/program_path.h"
#include "platform/windows/system_library.h"
#include "platform/windows/windows_automation.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_downloader.h"
#include "platform/windows/windows_file_operations.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_formats.h"
#include "platform/windows/windows_help_viewer.h"
#include "platform/windows/windows_lz_library.h"
#include "platform/windows/windows_message_dialog.h"
#include "platform/windows/windows_output.h"
#include "platform/windows/windows_settings_store.h"
#include "platform/windows/windows_shell.h"
#include "platform/windows/windows_version_information.h"
#include "postal/clspsc.h"

namespace kvez {
namespace {

// The services of the machine, the one database object and the one main window, in the order of their needs.
class Module1 {
 public:
  // Behind lambdas it no longer sees what is initialized.
  // cppcheck-suppress uninitMemberVar
  Module1()
      : m_messages([this] { return m_window ? GetLastActivePopup(m_window->Handle()) : nullptr; }),
        m_output(
            m_clock, m_version, [this] { return m_window ? m_window->Handle() : nullptr; }, &forms::DoEvents,
            std::wstring(kApplicationTitle)),
        m_database(CorePlatform(), ProgramFolder()) {}

  int Run() {
    m_window = std::make_unique<frmhlavni>(m_database, CorePlatform(), Commands());
    m_window->Load();
    forms::RunMessageLoop(*m_window);
    m_window.reset();
    return 0;
  }

 private:
  Platform CorePlatform() { return {{m_messages, m_settings, m_lz, m_files, m_formats}, m_output.Services()}; }

  CommandServices Commands() {
    return {
        m_downloader, m_help, m_fileOperations, {m_settings, m_shell, m_automation, ProgramFolder(), ProgramName()}};
  }

  // First and so gone last: the objects of others need it.
  WindowsAutomation m_automation;
  WindowsMessageDialog m_messages;
  WindowsSettingsStore m_settings;
  WindowsLzLibrary m_lz;
  WindowsFiles m_files;
  WindowsFormats m_formats;
  WindowsClock m_clock;
  WindowsDownloader m_downloader{m_clock};
  WindowsHelpViewer m_help{[this] { return m_window ? m_window->Handle() : nullptr; }};
  WindowsFileOperations m_fileOperations;
  WindowsVersionInformation m_version;
  WindowsShell m_shell;
  WindowsOutput m_output;
  clspsc m_database;
  std::unique_ptr<frmhlavni> m_window;
};

}  // namespace

int Main() {
  UseSystemLibrariesOnly();
  const std::wstring title(kApplicationTitle);
  if (!ClaimSingleInstance()) {
    const std::wstring text = L"Aplikace \"" + title + L"\" je již spuštěna nebo probíhá její ukončování !";
    MessageBoxW(nullptr, text.c_str(), title.c_str(), MB_OK | MB_ICONINFORMATION);
    ShowRunningInstance();
    return 0;
  }
  forms::SetGuard({.title = title, .show = {}});
  int status = 1;
  forms::Guarded([&status] {
    Module1 module;
    status = module.Run();
  });
  return status;
}

}  // namespace kvez
