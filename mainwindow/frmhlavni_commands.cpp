// The command buttons and the keys of the whole window.

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <utility>

#include "forms/input_gate.h"
#include "mainwindow/frmhlavni.h"

namespace kvez {

void frmhlavni::BindCommands() {
  struct Hint {
    tlText& button;
    StatusIcon icon;
  };
  // tlHObcePSC_MouseMoveEnabled, tlHVyhledej_MouseMoveEnabled and so on: one handler for all.
  const std::array<Hint, 11> hints = {{
      {tlHObcePSC, StatusIcon::Search},
      {tlHVyhledej, StatusIcon::Search},
      {tlHAktualizace, StatusIcon::Program},
      {tlHNapoveda, StatusIcon::Help},
      {tlHOaplikaci, StatusIcon::Program},
      {tlHNastaveni, StatusIcon::Settings},
      {tlHKonec, StatusIcon::Program},
      {tlHMeil, StatusIcon::Mail},
      {tlHWWW, StatusIcon::Internet},
      {tlHPCInfo, StatusIcon::Computer},
      {tlHStorno, StatusIcon::Program},
  }};
  for (const Hint& hint : hints) {
    hint.button.MouseMoveEnabled = [this, &button = hint.button, icon = hint.icon](bool mme) {
      tlH_MouseMoveEnabled(button, icon, mme);
    };
  }
  tlHAktualizace.Click = [this] { tlHAktualizace_Click(); };
  tlHNapoveda.Click = [this] { tlHNapoveda_Click(); };
  tlHOaplikaci.Click = [this] { tlHOaplikaci_Click(); };
  tlHNastaveni.Click = [this] { tlHNastaveni_Click(); };
  tlHKonec.Click = [this] { tlHKonec_Click(); };
  tlHStorno.Click = [this] { tlHStorno_Click(); };
  tlHMeil.Click = [this] { tlHMeil_Click(); };
  tlHWWW.Click = [this] { tlHWWW_Click(); };
  tlHPCInfo.Click = [this] { tlHPCInfo_Click(); };
  // It is seen, and so takes Escape, only while the About panel is open.
  SetCancelButton(&tlHStorno);
}

void frmhlavni::tlH_MouseMoveEnabled(const tlText& button, StatusIcon icon, bool mme) {
  // What goes on is more than what a button would do.
  if (m_work != nullptr) return;
  if (!mme) return ClearMessage();
  // A question has gone from over a pointer that rests here: what its answer has led to is more than a hint.
  if (messageTimer.IsRunning() && !button.PointerHasMoved()) return;
  ShowIcon(icon);
  m_statusBar.SetText(button.ToolTipText(), kMessagePanel, 0);
}

// The empty text takes the icon away, too.
void frmhlavni::ClearMessage() { m_statusBar.SetText(L"", kMessagePanel, SBT_NOBORDERS); }

void frmhlavni::ShowRestingMessage() {
  if (m_modeHint.empty()) return ClearMessage();
  ShowIcon(StatusIcon::Program);
  m_statusBar.SetText(m_modeHint, kMessagePanel, 0);
}

void frmhlavni::tlHKonec_Click() { Unload(); }

void frmhlavni::tlHNastaveni_Click() {
  if (m_settingsWindow && m_settingsWindow->IsOpen()) {
    m_settingsWindow->Show();
    return;
  }
  {
    const forms::InputPause pause(*this);
    auto window = std::make_unique<frmnastaveni>(m_database, m_services.shortcut, this);
    window->Show();
    m_settingsWindow = std::move(window);
  }
  // What could not be read stands unticked there; why, is told over it.
  for (std::int16_t setting = 0; setting < static_cast<std::int16_t>(m_settingTold.size()); ++setting) IsSet(setting);
}

// These three do their work through the shell; what is left for here is the status bar.
void frmhlavni::tlHMeil_Click() { ClearMessage(); }
void frmhlavni::tlHWWW_Click() { ClearMessage(); }
void frmhlavni::tlHPCInfo_Click() { ClearMessage(); }

void frmhlavni::Form_KeyDown(std::int16_t& KeyCode, std::int16_t Shift) {
  // Work that has messages handled in its own way.
  if (m_work != nullptr && KeyCode == VK_ESCAPE && !KeyIsRepeated()) m_work->End();
  if (!forms::TakesInput(*this)) return;
  // A key that is held acts once.
  if (KeyCode == VK_F1 && Shift == 0) {
    KeyCode = 0;
    if (!KeyIsRepeated()) tlHNapoveda_Click();
    return;
  }
  if (Shift != forms::kCtrlMask) return;
  constexpr std::array<std::pair<int, SearchMode>, 3> kModeKeys = {
      {{'P', kModePostal}, {'M', kModeName}, {'O', kModeDistrict}}};
  for (const auto& [key, mode] : kModeKeys) {
    if (KeyCode != key) continue;
    KeyCode = 0;
    if (!KeyIsRepeated()) SelectMode(mode);
    return;
  }
}

void frmhlavni::SelectMode(SearchMode mode) {
  // Without districts the third mode cannot be chosen, and so not by its key.
  if (!optMPSC[mode].Visible()) return;
  // The search panel lies behind the About panel: who wants to search wants to see it.
  if (fraMPSCO.Visible()) tlHStorno_Click();
  if (!optMPSC[mode].Value()) return optMPSC[mode].SetValue(true);
  ResumeSearching();
  FieldToTypeIn().SetFocus();
}

// In district mode the other field is disabled, or shows what was selected.
forms::TextBox& frmhlavni::FieldToTypeIn() { return txtMPSC[optMPSC[kModeDistrict].Value() ? 1 : 0]; }

forms::Control* frmhlavni::WorkGoesOnAt(const forms::Control& leaving) {
  if (fraMPSCO.Visible() && &leaving != &fraMPSCO) return &Text1;
  // Whatever disables or hides one of these is a selection in a list, or has just filled one.
  if (&leaving == &tlHVyhledej || &leaving == &tlHObcePSC) return &lstMPSC[m_shown.list];
  // The districts have taken the place of the field, and of the other list.
  if (&leaving == &txtMPSC[kFieldText] || &leaving == &lstMPSC[kListAll]) return &lstMPSC[kListDistricts];
  return nullptr;
}

}  // namespace kvez
