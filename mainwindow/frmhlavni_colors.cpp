// The colours that the main window chooses itself. They follow the system's, which a contrast theme may turn round:
// what would not read well gives way to a colour of the theme. Measured, not asked for: a user may also mix colours of
// his own.

#include "forms/contrast.h"
#include "mainwindow/frmhlavni.h"

namespace kvez {
namespace {

// The light-blue field, by which the settings window calls it.
constexpr COLORREF kLightBlue = RGB(0xD7, 0xEB, 0xFF);
constexpr COLORREF kBlue = RGB(0, 0, 0xFF);
constexpr COLORREF kGreen = RGB(0, 0x5A, 0);

COLORREF OnButtons(COLORREF wish) {
  return forms::ReadableOn(forms::Form::BackColor(), {wish, GetSysColor(COLOR_HOTLIGHT), forms::Form::ForeColor()});
}

}  // namespace

COLORREF frmhlavni::ButtonMoveColor() { return OnButtons(kBlue); }
COLORREF frmhlavni::ButtonDownColor() { return OnButtons(kGreen); }

COLORREF frmhlavni::FieldColor() {
  return forms::ReadsWell(GetSysColor(COLOR_WINDOWTEXT), kLightBlue) ? kLightBlue : GetSysColor(COLOR_WINDOW);
}

void frmhlavni::Form_SysColorsChanged() {
  txtMPSC[kFieldBeginning].SetBackColor(FieldColor());
  for (tlText* button : {&tlHMeil, &tlHWWW, &tlHPCInfo, &tlHStorno, &tlHVyhledej, &tlHObcePSC, &tlHAktualizace,
                         &tlHNapoveda, &tlHOaplikaci, &tlHNastaveni, &tlHKonec}) {
    button->SetBackColor(BackColor());
    button->SetForeColor(ForeColor());
    button->SetMoveColor(ButtonMoveColor());
    button->SetDownColor(ButtonDownColor());
  }
  m_statusBar.SystemColorsChanged();
}

}  // namespace kvez
