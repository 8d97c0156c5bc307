#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "forms/buttons.h"
#include "forms/form.h"
#include "postal/clspsc.h"
#include "settings/clszastupce.h"

namespace kvez {

/// The window identifiers of the check boxes count up from here.
inline constexpr int kChkN = 300;

/// What the check box of a yes/no setting says.
std::wstring_view SettingCaption(std::int16_t setting);

/// The settings window: three yes/no settings, each written when it is clicked. There is nothing to confirm and nothing
/// to take back. A setting that cannot be read stands there unticked; one that cannot be written goes back to what is
/// stored, and the exception to the caller.
class frmnastaveni : public forms::Form {
 public:
  /// The database keeps the settings; both outlive the window.
  frmnastaveni(clspsc& database, ShortcutPlatform shortcut, const forms::Form* owner = nullptr);
  ~frmnastaveni() override;

  /// True while a settings window is loaded; keeps its loading from writing the settings back.
  inline static bool SettingsOpen = false;

  std::array<forms::CheckBox, 3> chkN;

 protected:
  void Form_Load() override;
  void Form_Unload(std::int16_t& cancel) override;
  void Form_KeyDown(std::int16_t& KeyCode, std::int16_t Shift) override;
  void Form_Resize() override { FitCaptions(); }

 private:
  void chkN_Click(std::int16_t Index);
  void ShowStored(std::int16_t Index);
  void FitCaptions();
  bool CaptionsFit() const;

  clspsc& m_database;
  ShortcutPlatform m_shortcut;
};

}  // namespace kvez
