// The About panel.

#include "database/application.h"
#include "mainwindow/frmhlavni.h"

namespace kvez {

void frmhlavni::tlHOaplikaci_Click() {
  m_aboutIsOpen = true;
  if (fraMPSCO.Handle() == nullptr) CreateAboutPanel();
  Label1to3[0].SetCaption(L"Název: " + std::wstring(kApplicationTitle));
  VersionInformation& version = m_platform.output.version;
  Label1to3[1].SetCaption(L"Verze: " + version.ProductVersion());
  Label1to3[2].SetCaption(version.ProductName());
  fraMPSCO.SetVisible(true);
  Text1.SetFocus();
  // Last, when none of them has the focus any more.
  for (tlText* button : {&tlHAktualizace, &tlHVyhledej, &tlHObcePSC, &tlHNastaveni, &tlHOaplikaci}) {
    button->SetEnabled(false);
  }
}

void frmhlavni::tlHStorno_Click() {
  tlHAktualizace.SetEnabled(true);
  tlHObcePSC.SetEnabled(true);
  m_aboutIsOpen = false;
  m_searchingResumed = true;
  UpdatePanel();
  // Before the panel goes: else the focus would fall to the light-blue field, which hides the search button.
  if (txtMPSC[kFieldText].Enabled()) {
    txtMPSC[kFieldText].SetFocus();
  } else {
    lstMPSC[kListDistricts].SetFocus();
  }
  fraMPSCO.SetVisible(false);
  tlHOaplikaci.SetEnabled(true);
  tlHNastaveni.SetEnabled(true);
  ClearMessage();
}

}  // namespace kvez
