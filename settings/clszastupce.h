#pragma once

#include <cstdint>
#include <string>

#include "platform/automation.h"
#include "platform/settings_store.h"
#include "platform/shell.h"

namespace kvez {

/// What the shortcut class needs of the machine and of the program. The services outlive whoever holds this.
struct ShortcutPlatform {
  SettingsStore& settings;
  Shell& shell;
  Automation& automation;
  std::wstring programFolder;   // without a trailing separator
  std::wstring executableName;  // without ".exe"
};

/// The program's shortcut on the user's desktop, and the recorded wish to have one. Keeps no state of its own: make
/// one, call one member, let it go.
class clszastupce {
 public:
  explicit clszastupce(ShortcutPlatform platform);

  /// Puts a wanted shortcut that has gone back on the desktop. Throws ConversionError like zZastupceRegistr.
  void zStop();

  /// The recorded wish; false when nothing is recorded. The getter throws ConversionError when what is stored is
  /// neither True nor False, the setter Error when the store refuses.
  bool zZastupceRegistr() const;
  void zZastupceRegistr(bool wanted);

  /// Whether the shortcut exists; creates (over an existing one) or deletes it and records the wish. A shortcut that
  /// cannot be created is not reported.
  bool zZastupcePlocha() const;
  void zZastupcePlocha(bool wanted);

 private:
  std::wstring LinkPath() const;
  std::wstring DesktopFolder(std::int32_t folder) const;
  void MakeShortcut(bool create);
  void SaveShortcut();
  void SaveThroughScriptingHost(const ShellLink& link);
  std::int32_t FileOp(std::int32_t operation, const std::wstring& from, const std::wstring& to) const;
  std::intptr_t FileExists(const std::wstring& path) const;

  ShortcutPlatform m_platform;
};

}  // namespace kvez
