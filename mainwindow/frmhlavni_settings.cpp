// The yes/no settings as the main window reads them.

#include <utility>

#include "database/application.h"
#include "mainwindow/frmhlavni.h"
#include "text/assertion.h"
#include "text/error.h"

namespace kvez {

bool frmhlavni::IsSet(std::int16_t setting) {
  Assert(setting >= 0 && static_cast<std::size_t>(setting) < m_settingTold.size(), "the setting is one of the three");
  bool& told = m_settingTold[static_cast<std::size_t>(setting)];
  try {
    const bool isSet = m_database.vGetNastaveniRegistr(setting) != 0;
    told = false;
    return isSet;
  } catch (const ConversionError& error) {
    // Asked for at every movement of the pointer, it would be told of at every movement.
    if (!std::exchange(told, true)) TellOfSetting(setting, error.Text());
    return false;
  }
}

void frmhlavni::TellOfSetting(std::int16_t setting, const std::wstring& reason) {
  const std::wstring caption(SettingCaption(setting));
  m_platform.messages.Show(L"Nastavení „" + caption + L"“ nelze přečíst. " + reason + L" Zadejte je prosím znovu.",
                           MessageIcon::Exclamation, kApplicationTitle);
  // Where it can be repaired.
  tlHNastaveni_Click();
}

}  // namespace kvez
