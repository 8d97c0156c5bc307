#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// The per-user settings store: texts under application name, section and key.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The stored text, or `defaultValue` when the key was never written or cannot be read as a text.
  virtual std::wstring Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                           std::wstring_view defaultValue) = 0;

  /// Stores `value`. Throws Error when the store refuses.
  virtual void Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                    std::wstring_view value) = 0;
};

}  // namespace kvez
