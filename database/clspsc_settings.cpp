// The yes/no settings and the date of the database.

#include "database/application.h"
#include "database/clspsc.h"
#include "text/numeric_text.h"

namespace kvez {
namespace {

std::wstring SettingKey(std::int16_t number) { return L"nastavení" + std::to_wstring(number); }

}  // namespace

std::int16_t clspsc::vGetNastaveniRegistr(std::int16_t number) const {
  const std::wstring stored = m_platform.settings.Get(kSettingsApplication, kSettingsSection, SettingKey(number), L"0");
  return ToInt16(stored) == 0 ? 0 : 1;
}

void clspsc::vSetNastaveniRegistr(std::int16_t number, std::int16_t value) {
  m_platform.settings.Save(kSettingsApplication, kSettingsSection, SettingKey(number), std::to_wstring(value));
}

DateTime clspsc::pscDatabazeZeDne() const {
  // The municipality file stands for all three.
  const std::wstring path = m_programFolder + std::wstring(kMunicipalityFile.compressed);
  return m_platform.files.LastWriteTime(path).value_or(DateTime{});
}

}  // namespace kvez
