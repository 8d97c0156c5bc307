// The three lists: what a selection shows, and the selection that follows the pointer.

#include "forms/input_gate.h"
#include "mainwindow/frmhlavni.h"

namespace kvez {
namespace {

// Setting 0: the entry under the pointer is selected by itself.
constexpr std::int16_t kSelectUnderPointer = 0;

}  // namespace

void frmhlavni::lstMPSC_Click(std::size_t index) {
  EndDeferredSearch();
  m_shown = {index, lstMPSC[index].ListIndex()};
  txtMPSC[kFieldText].SetEnabled(true);
  txtMPSC[kFieldText].SetMaxLength(0);
  lstMPSC[index].ListIndex() >= 0 ? ChooseRow(index) : ForgetRow(index);
  UpdatePanel();
  switch (index) {
    case kListAll:
      ShowMunicipality();
      break;
    case kListResult:
      ShowResult();
      break;
    default:
      ShowDistrict();
      return;
  }
  txtMPSC[kFieldText].SetText(m_database.pscPSCObec());
  // The focus stays in the list, whose row is only the name.
  if (lstMPSC[index].ListIndex() >= 0) lblPSCV[index].Announce(m_database.pscPSCObec());
  lblNPSCHT[kDetailMunicipality].SetCaption(m_database.pscObec());
  lblNPSCHT[kDetailDistrict].SetCaption(m_database.pscOkres());
}

void frmhlavni::ShowMunicipality() {
  const forms::ListBox& list = lstMPSC[kListAll];
  if (list.ListIndex() >= 0) {
    m_database.pscDetail(list.ItemData(list.ListIndex()));
  } else {
    m_database.pscDetail(0);
  }
  lblPSCV[kCountAll].SetCaption(m_database.pscVybran());
}

void frmhlavni::ShowResult() {
  const forms::ListBox& list = lstMPSC[kListResult];
  if (list.ListIndex() >= 0) {
    m_database.pDetail(list.ItemData(list.ListIndex()));
    tlHObcePSC.SetToolTipText(L"Vytvoří seznam obcí pro PSČ \"" + m_database.pscPSCObec() + L"\".");
  }
  lblPSCV[kCountResult].SetCaption(m_database.pVybran());
}

void frmhlavni::ShowDistrict() {
  const forms::ListBox& list = lstMPSC[kListDistricts];
  if (list.ListIndex() >= 0) {
    m_database.pscoDetail(list.ItemData(list.ListIndex()));
  } else {
    m_database.pscoDetail(0);
  }
  lblPSCV[kCountAll].SetCaption(m_database.pscoVybran());
}

void frmhlavni::lstMPSC_MouseMove(std::size_t index, float xTwips, float yTwips) {
  if (m_busy || !IsSet(kSelectUnderPointer)) return;
  forms::ListBox& list = lstMPSC[index];
  const int row = list.RowThatThePointerCameTo(xTwips, yTwips);
  if (row < 0 || m_shown == Shown{index, row}) return;
  // The row may still be its list's selected one although another list's is shown.
  if (row == list.ListIndex()) {
    lstMPSC_Click(index);
  } else {
    list.SetListIndex(row);
  }
}

void frmhlavni::lstMPSC_KeyDown(std::size_t index, std::int16_t keyCode, std::int16_t shift) {
  if (!forms::TakesInput(*this)) return;
  if (keyCode == VK_RETURN && shift == 0 && !KeyIsRepeated()) {
    forms::TextBox& field = txtMPSC[kFieldText].Enabled() ? txtMPSC[kFieldText] : txtMPSC[kFieldBeginning];
    field.SetFocus();
    // As after Tab: typing begins a new search.
    field.SelectAll();
  }
  if (keyCode == 'C' && shift == forms::kCtrlMask && !KeyIsRepeated()) CopyAddress(index);
}

void frmhlavni::CopyAddress(std::size_t index) {
  const forms::ListBox& list = lstMPSC[index];
  if (list.ListIndex() < 0) return;
  // A district has no address.
  std::wstring line = list.List(list.ListIndex());
  if (index != kListDistricts) {
    // The row of another list may be the current municipality, and stays it.
    const std::int32_t current = m_database.pscPozice();
    const std::int32_t entry = list.ItemData(list.ListIndex());
    index == kListAll ? m_database.pscDetail(entry) : m_database.pDetail(entry);
    line = m_database.pscPSCObec();
    m_database.pscDetail(current);
  }
  m_platform.output.clipboard.Replace(line);
}

}  // namespace kvez
