// What the search panel offers, after whatever was chosen in it.

#include <new>
#include <utility>

#include "database/search_offer.h"
#include "mainwindow/frmhlavni.h"
#include "text/assertion.h"

namespace kvez {

void frmhlavni::UpdatePanel() {
  if (!IsOpen()) return;
  const PanelOffer offer = OfferOf({.mode = m_mode,
                                    .row = m_chosenRow,
                                    .samePostalCode = m_samePostalCode,
                                    .aboutIsOpen = m_aboutIsOpen,
                                    .searchingResumed = m_searchingResumed});
  if (!offer.mode) LeaveTypingModes();
  // The one that comes before the one that goes: that one may have the focus.
  if (offer.commonPostalCode) tlHObcePSC.SetVisible(true);
  tlHVyhledej.SetEnabled(offer.search);
  if (!offer.commonPostalCode) tlHObcePSC.SetVisible(false);
  txtMPSC[kFieldBeginning].SetToolTipText(offer.lightBlueField);
  ShowModeHint(offer.hint);
  TakeSearchOfferAway();
}

void frmhlavni::ShowModeHint(std::wstring_view hint) {
  const std::wstring_view shown = std::exchange(m_modeHint, hint);
  if (hint == shown) return;
  if (!hint.empty()) {
    m_statusBar.SetText(hint, kMessagePanel, 0);
  } else if (m_statusBar.Message() == shown) {
    // What else the status bar says meanwhile is no hint of a mode.
    ClearMessage();
  }
}

void frmhlavni::ShowSearchOffer(const std::wstring& text) {
  if (IsMode(kModeDistrict)) return;
  const auto by = IsMode(kModePostal) ? EndedSearch::By::PostalCode : EndedSearch::By::Name;
  try {
    m_searchOffer = OfferAfter({by, text, m_database.pCelkem()}, m_database.Municipalities(), m_database.PostOffices(),
                               m_platform.formats);
  } catch (const std::bad_alloc&) {
    // An offer is no reason for a message; the search itself has had its own.
    m_searchOffer.clear();
  }
  if (m_searchOffer.empty()) return;
  ShowIcon(StatusIcon::Search);
  m_statusBar.SetText(m_searchOffer, kMessagePanel, 0);
}

void frmhlavni::TakeSearchOfferAway() {
  const std::wstring offer = std::exchange(m_searchOffer, {});
  if (offer.empty() || m_statusBar.Message() != offer) return;
  ShowRestingMessage();
}

void frmhlavni::LeaveTypingModes() {
  if (!IsMode(kModePostal) && !IsMode(kModeName)) return;
  optMPSC[kModePostal].SetValue(false);
  optMPSC[kModeName].SetValue(false);
  m_mode.reset();
  txtMPSC[kFieldBeginning].SetText(L"");
}

void frmhlavni::ChooseRow(std::size_t list) {
  Assert(list < lstMPSC.size(), "the list is one of the three");
  m_chosenRow = static_cast<List>(list);
  m_searchingResumed = false;
}

void frmhlavni::ForgetRow(std::size_t list) {
  if (m_chosenRow == static_cast<List>(list)) m_chosenRow.reset();
}

void frmhlavni::ResumeSearching() {
  m_chosenRow.reset();
  UpdatePanel();
}

void frmhlavni::StandOnSelectedResult() {
  const forms::ListBox& list = lstMPSC[kListResult];
  Assert(list.ListCount() == m_database.pCelkem(), "the result list shows the result");
  m_database.pDetail(list.ListIndex() >= 0 ? list.ItemData(list.ListIndex()) : 0);
}

}  // namespace kvez
