// The way back from an update that has brought no database, and what is told of one that has brought a doubtful one.

#include <windows.h>

#include <commctrl.h>

#include "database/application.h"
#include "mainwindow/frmhlavni.h"

namespace kvez {

void frmhlavni::OfferPreviousDatabase() {
  if (m_database.pscCelkem() > 0 || !m_previous.AreKept()) return;
  if (!m_platform.messages.Ask(L"Přejete si vrátit předchozí databázi ?", kApplicationTitle)) return;
  if (!m_previous.PutBack()) {
    m_platform.messages.Show(L"Předchozí databázi se nepodařilo vrátit.", MessageIcon::Exclamation, kApplicationTitle);
    return;
  }
  picMPSCPI.SetVisible(true);
  NactiDatabazi();
  if (!IsOpen()) return;
  RestartSearching();
  if (m_database.pscCelkem() > 0) SayThatDatabaseIsKept();
}

void frmhlavni::SayThatDatabaseIsKept() { SayForAWhile(L"Byla zachována původní databáze."); }

void frmhlavni::SayForAWhile(std::wstring_view text) {
  ShowIcon(StatusIcon::Program);
  m_statusBar.SetText(text, kMessagePanel, 0);
  messageTimer.Start([this, text = std::wstring(text)] {
    // A hint or another message may have taken its place.
    if (m_statusBar.Message() == text) ClearMessage();
  });
}

void frmhlavni::TellOfLooseEnds() {
  const std::wstring sentence = m_database.pscNesoulad();
  if (sentence.empty()) return;
  const std::wstring updated = LastUpdateText();
  tlHAktualizace.SetToolTipText(updated + L" " + sentence);
  m_statusBar.SetText(sentence, kMessagePanel, 0);
  messageTimer.Start([this, sentence, updated] {
    if (m_statusBar.Message() == sentence) m_statusBar.SetText(updated, kMessagePanel, 0);
  });
}

}  // namespace kvez
