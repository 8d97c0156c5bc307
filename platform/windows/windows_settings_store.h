#pragma once

#include "platform/settings_store.h"

namespace kvez {

/// Settings in the current user's registry, where programs of this kind have always kept them, so that the
/// settings of an existing user go on working: Software\VB and VBA Program Settings\<application>\<section>.
class WindowsSettingsStore : public SettingsStore {
 public:
  std::wstring Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                   std::wstring_view defaultValue) override;
  void Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
            std::wstring_view value) override;
};

}  // namespace kvez
