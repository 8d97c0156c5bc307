// The search panel: modes, typing, and the searches.

#include "forms/input_gate.h"
#include "mainwindow/frmhlavni.h"
#include "mainwindow/scopes.h"
#include "mainwindow/search_rules.h"
#include "text/assertion.h"

namespace kvez {
namespace {

constexpr int kCtrlA = 1;

// Five digits and one blank, "692 01".
constexpr int kPostalTextLength = 6;

// Setting 2: the light-blue field searches by itself some time after the last key was released.
constexpr std::int16_t kSearchWhileTyping = 2;

}  // namespace

void frmhlavni::optMPSC_Click(std::size_t index) {
  Assert(index < optMPSC.size(), "the option button is one of the three modes");
  ShowIcon(StatusIcon::Program);
  EndDeferredSearch();
  m_mode = static_cast<SearchMode>(index);
  m_chosenRow.reset();
  m_searchingResumed = false;
  m_modeHint = {};
  UpdatePanel();

  // The list that the mode works with is shown, with nothing selected, in the place that both share.
  lstMPSC[kListAll].SetVisible(!IsMode(kModeDistrict));
  lstMPSC[kListDistricts].SetVisible(IsMode(kModeDistrict));
  lstMPSC[IsMode(kModeDistrict) ? kListDistricts : kListAll].SetListIndex(-1);
  m_shown.row = -1;
  // Behind the selection, which has allowed the address of any length.
  const int maxLength = IsMode(kModePostal) ? kPostalTextLength : 0;
  for (forms::TextBox& box : txtMPSC) box.SetMaxLength(maxLength);

  for (forms::TextBox& box : txtMPSC) box.SetText(L"");
  for (forms::Label& label : lblNPSCHT) label.SetCaption(L"");
  txtMPSC[kFieldText].SetEnabled(!IsMode(kModeDistrict));
  // A search has left the cursor on its last row, which is none of this list's.
  IsMode(kModeDistrict) ? m_database.pscoDetail(0) : m_database.pscDetail(0);
  lblPSCV[kCountAll].SetCaption(IsMode(kModeDistrict) ? m_database.pscoVybran() : m_database.pscVybran());
  if (!IsMode(kModeDistrict)) txtMPSC[kFieldText].SetFocus();
}

void frmhlavni::txtMPSC_GotFocus(std::size_t index) {
  if (index == 1) tlHVyhledej.SetVisible(false);
}

void frmhlavni::txtMPSC_LostFocus(std::size_t index) {
  if (index == 1) tlHVyhledej.SetVisible(true);
}

void frmhlavni::txtMPSC_KeyPress(std::size_t /*index*/, std::int16_t& keyAscii) {
  // Enter was handled when the key went down; passed on it would only beep.
  if (keyAscii == VK_RETURN || (IsMode(kModePostal) && keyAscii != kCtrlA && !IsPostalKey(keyAscii))) keyAscii = 0;
}

void frmhlavni::txtMPSC_Change(std::size_t index) {
  forms::TextBox& box = txtMPSC[index];
  const std::wstring text = box.Text();
  if (index == 1) m_deferredSearchIsDue = !text.empty();
  if (IsMode(kModePostal) && !text.empty() && !IsPostalText(text)) box.SetText(L"");
}

std::wstring frmhlavni::txtMPSC_Paste(const std::wstring& text) const {
  return IsMode(kModePostal) ? PostalTextToPaste(text, kPostalTextLength) : NameToPaste(text);
}

void frmhlavni::txtMPSC_KeyDown(std::size_t index, std::int16_t& keyCode, std::int16_t shift) {
  // The filter of PSČ mode swallows the control characters of the clipboard keys, too: their work is done here.
  if (IsMode(kModePostal) && shift == forms::kCtrlMask) txtMPSC[index].DoClipboardKey(keyCode);
  // A key that is held acts once; with Ctrl or Alt, Shift belongs to what comes next.
  const bool acts = !KeyIsRepeated();
  if (keyCode == VK_SHIFT && acts && (shift & ~forms::kShiftMask) == 0 && (IsMode(kModePostal) || IsMode(kModeName))) {
    HandFocusOver(txtMPSC[index], txtMPSC[index == 0 ? 1 : 0]);
  }
  if (index == 0) {
    if (keyCode != VK_RETURN || !acts || !forms::TakesInput(*this)) return;
    VyhledejSeznam();
    txtMPSC[kFieldBeginning].SetText(L"");
    txtMPSC[kFieldText].SelectAll();
    return;
  }
  if (IsSet(kSearchWhileTyping)) {
    tmrMPSC.SetEnabled(false);
  } else if (keyCode == VK_RETURN && acts) {
    tmrMPSC_Timer();
    txtMPSC[kFieldBeginning].SelectAll();
  }
}

void frmhlavni::txtMPSC_KeyUp(std::size_t index, std::int16_t& keyCode, std::int16_t /*shift*/) {
  if (index != 1 || !IsSet(kSearchWhileTyping)) return;
  // These come with other keys, or from the other field; alone they type nothing that could be searched for.
  const bool typesNothing = keyCode == VK_SHIFT || keyCode == VK_CONTROL || keyCode == VK_MENU;
  if (!typesNothing || m_deferredSearchIsDue) tmrMPSC.SetEnabled(true);
}

// The search belongs to the text and the mode that it was typed in: whatever else is shown since then stays.
void frmhlavni::EndDeferredSearch() {
  tmrMPSC.SetEnabled(false);
  m_deferredSearchIsDue = false;
}

void frmhlavni::tmrMPSC_Timer() {
  tmrMPSC.SetEnabled(false);
  if (!forms::TakesInput(*this) || m_aboutIsOpen) {
    // Behind a question, a menu or a print nothing changes; it is searched for when they are over.
    tmrMPSC.SetEnabled(true);
    return;
  }
  EndDeferredSearch();
  if (Trimmed(txtMPSC[kFieldBeginning].Text()).empty()) return;
  if (IsMode(kModeDistrict)) {
    SelectBeginning(kListDistricts);
  } else if (IsMode(kModePostal)) {
    VyhledejPSC();
  } else if (IsMode(kModeName)) {
    SelectBeginning(kListAll);
    // What was found has ended the mode, and with it the field's use. Another text has its own time, but for the date
    // of the database, which stays.
    const std::wstring said = m_statusBar.Message();
    if (!m_mode && (said.empty() || said == LastUpdateText())) {
      SayThatAModeIsNeeded(L"K dalšímu hledání zvolte PSČ, Obec nebo Okres.");
    }
  } else {
    SayThatNoModeIsChosen();
  }
}

void frmhlavni::SelectBeginning(std::size_t index) {
  forms::ListBox& list = lstMPSC[index];
  const std::wstring text = txtMPSC[kFieldBeginning].Text();
  const int before = list.ListIndex();
  int found = list.FindString(text);
  // What was copied along with a name is no part of it; a blank that was typed may be.
  if (found < 0) found = list.FindString(Trimmed(text));
  list.SetListIndex(found);
  // It is what was looked for, also when it had been chosen before.
  if (found >= 0 && found == before) lstMPSC_Click(index);
}

void frmhlavni::SayThatNoModeIsChosen() { SayThatAModeIsNeeded(L"Nejdříve zvolte PSČ, Obec nebo Okres."); }

void frmhlavni::SayThatAModeIsNeeded(std::wstring_view text) {
  ShowIcon(StatusIcon::Program);
  m_statusBar.SetText(text, kMessagePanel, 0);
}

void frmhlavni::VyhledejSeznam() {
  if (!forms::TakesInput(*this) || m_aboutIsOpen) return;
  if (!m_mode) return SayThatNoModeIsChosen();
  if (!tlHVyhledej.Enabled()) return;
  EndDeferredSearch();
  const forms::InputPause pause(*this);
  const BusyScope busy(m_busy);
  const std::wstring text = Trimmed(txtMPSC[kFieldText].Text());
  lblPSCV[kCountResult].SetCaption(L"");
  lblMPSCN.SetCaption(L"");
  lblMPSCN.Refresh();
  m_samePostalCode = false;

  std::wstring description;
  {
    const HourglassScope hourglass;
    if (optMPSC[kModePostal].Value()) {
      m_samePostalCode = true;
      m_database.pscNajdiPSC(true, ReadPostalCode(text), m_resultList, description);
    } else if (optMPSC[kModeName].Value()) {
      m_database.pscVyberPostu(text, m_resultList, description);
    } else if (optMPSC[kModeDistrict].Value()) {
      txtMPSC[kFieldText].SetText(L"");
      const forms::ListBox& list = lstMPSC[kListDistricts];
      lblNPSCHT[kDetailMunicipality].SetCaption(list.ListIndex() >= 0 ? L"všechny obce okresu" : L"");
      lblNPSCHT[kDetailDistrict].SetCaption(list.List(list.ListIndex()));
      m_database.pscoVyberPostu(m_resultList, description);
    }
  }
  lblMPSCN.SetCaption(description);
  if (m_database.pscNalezen()) {
    // Re-setting the values shows the mode again; a value that stays the same raises no click.
    for (const SearchMode mode : {kModePostal, kModeName}) optMPSC[mode].SetValue(optMPSC[mode].Value());
  } else if (!optMPSC[kModeDistrict].Value()) {
    txtMPSC[kFieldText].SetFocus();
  }
  lblPSCV[kCountResult].SetCaption(m_database.pVybran());
  lblPSCV[kCountResult].Announce();
  ForgetRow(kListResult);
  UpdatePanel();
  ShowSearchOffer(text);
}

void frmhlavni::VyhledejPSC() {
  const forms::InputPause pause(*this);
  const BusyScope busy(m_busy);
  m_samePostalCode = false;
  std::wstring description;
  {
    const HourglassScope hourglass;
    m_database.pscNajdiPSC(false, ReadPostalCode(txtMPSC[kFieldBeginning].Text()), m_resultList, description);
  }
  ShowSearchResult(description);
}

void frmhlavni::ShowSearchResult(const std::wstring& description) {
  lblMPSCN.SetCaption(description);
  lblPSCV[kCountResult].SetCaption(m_database.pVybran());
  lblPSCV[kCountResult].Announce();
  ForgetRow(kListResult);
  UpdatePanel();
}

void frmhlavni::tlHVyhledej_Click() {
  VyhledejSeznam();
  txtMPSC[kFieldText].SelectAll();
}

void frmhlavni::tlHObcePSC_Click() {
  EndDeferredSearch();
  const forms::InputPause pause(*this);
  const BusyScope busy(m_busy);
  std::wstring description;
  {
    const HourglassScope hourglass;
    StandOnSelectedResult();
    m_database.pscObceKPSC(m_resultList, description);
  }
  m_samePostalCode = true;
  m_shown = {kListResult, -1};
  ShowSearchResult(description);
  ClearMessage();
}

}  // namespace kvez
