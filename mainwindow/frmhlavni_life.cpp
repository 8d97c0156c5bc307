// The main window's life: loading, the progress bar, closing.

#include "database/application.h"
#include "forms/guard.h"
#include "forms/input_gate.h"
#include "forms/message_loop.h"
#include "mainwindow/frmhlavni.h"
#include "mainwindow/scopes.h"
#include "text/assertion.h"

namespace kvez {

void frmhlavni::Form_Load() {
  {
    const forms::InputPause pause(*this, forms::Closing::GoesOn);
    SetCaption(kApplicationTitle);
    m_statusBar.Create(Handle(), false);
    if (Scaling() != Dpi()) m_statusBar.DpiChanged(Scaling());
    VytvorNabidku();
    Titul();
    if (!IsOpen()) return;
    for (tlText* button : {&tlHWWW, &tlHPCInfo, &tlHStorno}) button->SetFocusDraw(tlHMeil.FocusDraw());
    CentreMessagePanel();
    picMPSCPI.SetVisible(true);
    // Whatever the loading fails with: the window is there and can load again.
    forms::Guarded([this] { NactiDatabazi(); });
  }
  if (!IsOpen()) return;
  m_busy = false;
  optMPSC[kModeName].SetValue(true);
  forms::Guarded([this] { OfferPreviousDatabase(); });
}

void frmhlavni::Titul() {
  SetCaption(kApplicationTitle);
  tlHOaplikaci.SetToolTipText(L"Kontakt na autora.");
  // The light-blue field comes first in the order of the Tab key, but with the focus it would hide the search button
  // as long as the loading takes.
  txtMPSC[kFieldText].SetFocus();
  Show();
  // Painted before the long loading begins.
  forms::DoEvents();
}

void frmhlavni::NactiDatabazi() {
  {
    const HourglassScope hourglass;
    ShowIcon(StatusIcon::Loading);
    try {
      LoadAndFillLists();
    } catch (...) {
      if (!IsOpen()) return;
      // Memory ran out, most likely. A part of the lists would be worse than none: the rows would lead nowhere.
      m_database.pscUvolni();
      ShowNoData();
      optMPSC[kModeDistrict].SetVisible(false);
      forms::ReportCurrentException();
    }
    if (m_database.pscCelkem() > 0) m_previous.Forget();
  }
  if (!IsOpen()) return;
  const std::wstring updated = LastUpdateText();
  tlHAktualizace.SetToolTipText(updated);
  m_statusBar.SetText(updated, kMessagePanel, 0);
}

void frmhlavni::LoadAndFillLists() {
  BeginStep(L"Načítání databáze obcí ze souboru.", L"Strpení prosím, načítám databázi obcí.");
  m_database.pscNacti(*this);
  // Each of the three may show a message, over which the program can be closed.
  if (!IsOpen()) return;
  BeginStep(L"Načítání databáze dodávacích pošt ze souboru.", L"Strpení prosím, načítám databázi pošt.");
  m_database.pscpNacti(*this);
  if (!IsOpen()) return;
  BeginStep(L"Načítání databáze okresů ze souboru.", L"Strpení prosím, načítám databázi okresů.");
  m_database.pscoNacti(*this);
  if (!IsOpen()) return;
  if (m_database.pscCelkem() > 0) {
    FillLists();
  } else {
    ShowNoData();
  }
}

// What stood in the lists before, an update that brought nothing good having come between, belongs to no data any more.
void frmhlavni::ShowNoData() {
  for (forms::ListBox& list : lstMPSC) {
    list.Clear();
    list.SetHorizontalExtent(0);
  }
  picMPSCPI.SetVisible(false);
}

void frmhlavni::BeginStep(std::wstring_view status, std::wstring_view message) {
  m_statusBar.SetText(status, kMessagePanel, 0);
  BeginStep(message);
}

void frmhlavni::BeginStep(std::wstring_view message) {
  picZpravaI.Cls();
  picZpravaI.Refresh();
  ShowMessage(message);
}

void frmhlavni::ShowMessage(std::wstring_view message) {
  lblZpravaI.SetCaption(message);
  // Nobody handles messages while the work goes on: the panel paints itself now, or what lies behind shines through.
  picMPSCPI.Refresh();
  lblZpravaI.Refresh();
}

void frmhlavni::FillLists() {
  // Quick start: the long list is drawn when the panel no longer lies on it; each look of it takes as long as a
  // thousand rows.
  const FillScope listIsDrawnOnce(lstMPSC[kListAll]);
  ShowIcon(StatusIcon::List);
  BeginStep(L"Vytváření uživatelského seznamu.", L"Strpení prosím, vytvářím seznam obcí.");
  m_database.pscVyberVse(m_allList, *this);
  lblPSCV[kCountAll].SetCaption(m_database.pscVybran());
  lblPSCV[kCountResult].SetCaption(L"");
  const bool districts = m_database.pscoCelkem() > 0;
  if (districts) {
    BeginStep(L"Strpení prosím, vytvářím pomocný seznam okresů.");
    m_database.pscoVyberVse(m_districtList, *this);
  }
  optMPSC[kModeDistrict].SetVisible(districts);
  picMPSCPI.SetVisible(false);
  picZpravaI.Cls();
  ShowIcon(StatusIcon::Program);
}

std::wstring frmhlavni::LastUpdateText() const {
  const DateTime date = m_database.pscDatabazeZeDne();
  if (date == DateTime{}) return L"Datum poslední aktualizace databáze není známo.";
  return L"Poslední aktualizace databáze byla provedena " + m_platform.formats.Date(date, L"d.mmmm yyyy") + L".";
}

void frmhlavni::CentreMessagePanel() {
  forms::Place place = picMPSCPI.GetPlace();
  place.left = static_cast<int>((ClientWidth() - place.width) / 2.0);
  place.top = static_cast<int>((ClientHeight() - place.height) / 2.0);
  picMPSCPI.Move(place);
}

void frmhlavni::Prubech(float fraction) {
  Assert(fraction >= 0 && fraction <= 1, "progress is a part of the whole");
  picZpravaI.FillRectangle(0, 0, picZpravaI.ScaleWidth() * fraction, picZpravaI.ScaleHeight());
  // Whoever reports the progress knows what to do when it fails.
  if (m_work != nullptr && !m_work->GoesOn()) throw WorkIsEnded();
}

void frmhlavni::PrubechPamet(float fraction) {
  picZpravaI.Cls();
  picZpravaI.Refresh();
  Prubech(fraction);
}

bool frmhlavni::ConfirmsExit() { return m_platform.messages.Ask(L"Přejete si program ukončit ?", kApplicationTitle); }

void frmhlavni::Form_QueryUnload(std::int16_t& cancel, forms::UnloadMode /*mode*/) {
  // Here and not in Form_Unload: the end of the session asks first and unloads later, without a question.
  if (!ConfirmsExit()) cancel = 1;
}

void frmhlavni::Form_Unload(std::int16_t& /*cancel*/) {
  m_busy = true;
  picMPSCPI.SetVisible(true);
  ShowMessage(L"Nashledanou.");
  for (const List list : {kListAll, kListResult}) lstMPSC[list].Clear();
  m_services.help.CloseAll();
  if (m_settingsWindow) m_settingsWindow->Unload();
  Hide();
  forms::DoEvents();
  m_listMenu.Reset();
  m_database.pscUvolni();
  // A wish that cannot be read must not keep a window that nobody sees any more.
  forms::Guarded([this] { clszastupce(m_services.shortcut).zStop(); });
}

void frmhlavni::Form_Terminate() {
  messageTimer.Stop();
  m_statusBar.Destroy();
}

void frmhlavni::Form_Resize() {
  m_statusBar.DpiChanged(Scaling());
  m_statusBar.ParentResized();
}

}  // namespace kvez
