#pragma once

#include <map>
#include <tuple>

#include "platform/settings_store.h"

namespace kvez {

/// A settings store that lasts as long as the object.
class PortableSettingsStore : public SettingsStore {
 public:
  std::wstring Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                   std::wstring_view defaultValue) override;
  void Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
            std::wstring_view value) override;

 private:
  using Place = std::tuple<std::wstring, std::wstring, std::wstring>;
  std::map<Place, std::wstring> m_values;
};

}  // namespace kvez
