#include "mainwindow/list_menu.h"

#include <algorithm>

#include "platform/windows/system_code_page.h"
#include "text/error.h"

namespace kvez {

std::span<const ListMenuRow> ListMenuRows() {
  static constexpr unsigned kString = 0;
  static constexpr unsigned kShownOnly = MF_GRAYED | MF_DISABLED;
  static constexpr ListMenuRow rows[] = {
      {kListPrint, kString, L"Tisk", L"Přejete si seznam vybraných obcí vytisknout ?"},
      {kListExport, kString, L"Export", L"Přejete si seznam vybraných obcí exportovat do souboru ?"},
      {3, MF_SEPARATOR, L"", L""},
      {kListCopy, kString, L"Uložit do schránky", L"Přejete si seznam vybraných obcí vložit do schránky ?"},
      {kListMail, kString, L"Poslat e-mailem", L"Přejete si seznam vybraných obcí zaslat e-mailem ?"},
      {6, MF_SEPARATOR, L"", L""},
      {7, kShownOnly, L"Adresář", L""},
      {8, kShownOnly, L"Základní školy", L""},
  };
  return rows;
}

namespace {

bool Append(HMENU menu, const ListMenuRow& row) {
  // A separator has no text.
  return CallWithText(
             row.text,
             [&](const std::string& bytes) {
               return AppendMenuA(menu, row.flags, row.id, bytes.empty() ? nullptr : bytes.c_str());
             },
             [&](const std::wstring& text) { return AppendMenuW(menu, row.flags, row.id, text.c_str()); }) != FALSE;
}

}  // namespace

OwnedMenu CreateListMenu() {
  OwnedMenu menu(CreatePopupMenu());
  for (const ListMenuRow& row : ListMenuRows()) {
    if (!Append(menu.Get(), row)) throw Error(L"Nabídku se nepodařilo otevřít.", "AppendMenuW", GetLastError());
  }
  return menu;
}

std::wstring_view ListQuestion(unsigned command) {
  const auto found = std::ranges::find(ListMenuRows(), command, &ListMenuRow::id);
  return found == ListMenuRows().end() ? std::wstring_view() : found->question;
}

}  // namespace kvez
