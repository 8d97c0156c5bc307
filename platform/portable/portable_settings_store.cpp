#include "platform/portable/portable_settings_store.h"

namespace kvez {

std::wstring PortableSettingsStore::Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                                        std::wstring_view defaultValue) {
  const auto stored = m_values.find(Place(application, section, key));
  return stored == m_values.end() ? std::wstring(defaultValue) : stored->second;
}

void PortableSettingsStore::Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                                 std::wstring_view value) {
  m_values[Place(application, section, key)] = value;
}

}  // namespace kvez
