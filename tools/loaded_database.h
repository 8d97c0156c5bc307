#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "database/postal_database.h"
#include "database/progress_window.h"
#include "platform/message_dialog.h"
#include "platform/portable/memory_lz_library.h"
#include "platform/portable/portable_formats.h"
#include "platform/portable/portable_settings_store.h"

namespace kvez {

/// Collects what the program would show in message boxes.
class CollectedMessages : public MessageDialog {
 public:
  void Show(std::wstring_view text, MessageIcon icon, std::wstring_view caption) override;
  bool Ask(std::wstring_view text, std::wstring_view caption) override;

  /// Throws ToolError with all of them when there are any.
  void ThrowIfAny() const;

 private:
  std::wstring m_texts;
};

/// The program's own database with the lists of a folder, without a machine around it.
class LoadedDatabase {
 public:
  /// Loads the three lists as the program does, but writes nothing into the folder. Throws ToolError with the program's
  /// messages, or when the files of the folder are just being replaced.
  explicit LoadedDatabase(const std::filesystem::path& folder);

  PostalDatabase& Database() { return m_database; }
  const CollectedMessages& Messages() const { return m_messages; }

 private:
  class NoProgress : public ProgressWindow {
   public:
    void Prubech(float) override {}
    void PrubechPamet(float) override {}
  };

  CollectedMessages m_messages;
  PortableSettingsStore m_settings;
  MemoryLzLibrary m_lz;
  PortableFormats m_formats;
  NoProgress m_progress;
  PostalDatabase m_database;
};

}  // namespace kvez
