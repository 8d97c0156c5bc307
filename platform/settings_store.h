#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace kvez {

/// The store does not let anybody write. `Text` is a sentence for the user.
class SettingsRefused : public std::runtime_error {
 public:
  SettingsRefused() : std::runtime_error("The settings store refuses to be written.") {}

  std::wstring Text() const { return L"Nastavení se nepodařilo uložit."; }
};

/// The per-user settings store: texts under application name, section and key.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The stored text, or `defaultValue` when the key was never written or cannot be read as a text.
  virtual std::wstring Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                           std::wstring_view defaultValue) = 0;

  /// Stores `value`. Throws SettingsRefused when the store refuses.
  virtual void Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                    std::wstring_view value) = 0;
};

}  // namespace kvez
