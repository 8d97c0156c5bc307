// The result list's menu and its commands.

#include <algorithm>

#include "database/application.h"
#include "forms/input_gate.h"
#include "mainwindow/frmhlavni.h"
#include "mainwindow/list_menu.h"
#include "mainwindow/scopes.h"

namespace kvez {

void frmhlavni::VytvorNabidku() { m_listMenu = CreateListMenu(); }

void frmhlavni::lstMPSC_MouseUp(std::size_t index, std::int16_t button, std::int16_t /*shift*/, float /*xTwips*/,
                                float /*yTwips*/) {
  // An empty list says so whatever the button was.
  if (index != kListResult || !forms::TakesInput(*this)) return;
  const forms::InputPause pause(*this);
  if (SaysThatListIsEmpty()) return;
  POINT pointer{};
  GetCursorPos(&pointer);
  // A press that began elsewhere asked for nothing here.
  if (button == forms::kRightButton && lstMPSC[index].WasPressedHere()) ShowListMenu(pointer);
}

void frmhlavni::lstMPSC_ContextMenuKey() {
  if (!forms::TakesInput(*this)) return;
  const forms::InputPause pause(*this);
  if (SaysThatListIsEmpty()) return;
  ShowListMenu(lstMPSC[kListResult].MenuPlace());
}

bool frmhlavni::SaysThatListIsEmpty() {
  if (lstMPSC[kListResult].ListCount() > 0) return false;
  m_platform.messages.Show(L"Seznam je prázdný.", MessageIcon::Information, kApplicationTitle);
  return true;
}

void frmhlavni::ShowListMenu(POINT screen) {
  // The list that is chosen from is the one that leaves, under the heading that it has now: nothing changes it from
  // here to the end of the command, and the cursor stands where the window says that it stands.
  const std::wstring heading = lblMPSCN.Caption();
  const int chosen = TrackPopupMenu(m_listMenu.Get(), TPM_RETURNCMD, screen.x, screen.y, 0, Handle(), nullptr);
  RunListCommand(static_cast<unsigned>(chosen), heading);
}

void frmhlavni::RunListCommand(unsigned command, const std::wstring& heading) {
  const std::wstring_view question = ListQuestion(command);
  if (question.empty() || !m_platform.messages.Ask(question, kApplicationTitle) || !IsOpen()) return;
  StandOnSelectedResult();
  switch (command) {
    case kListPrint:
      PrintList(heading);
      break;
    case kListExport:
      m_database.pExport(heading);
      break;
    case kListCopy:
      m_database.pClipboard(heading);
      break;
    case kListMail:
      m_database.pMail(heading);
      break;
  }
}

void frmhlavni::PrintList(const std::wstring& heading) {
  const HourglassScope hourglass;
  const VisibleScope panel(picMPSCPI);
  LongWork work(*this);
  ShowIcon(StatusIcon::List);
  BeginStep(L"Tiskne se seznam vybraných obcí. Tisk ukončí klávesa Esc.", L"Strpení prosím, připravuji tisk.");
  m_database.pTisk(heading, *this);
  picZpravaI.Cls();
  work.WasEnded() ? SayForAWhile(L"Tisk byl ukončen.") : ShowRestingMessage();
}

}  // namespace kvez
