#pragma once

#include <span>
#include <string_view>

#include "platform/windows/owned.h"

namespace kvez {

/// The commands of the result list's menu that can be chosen. The numbers between and after them are those of
/// separators and of entries that are shown only.
enum ListCommand : unsigned { kListPrint = 1, kListExport = 2, kListCopy = 4, kListMail = 5 };

struct ListMenuRow {
  unsigned id;
  unsigned flags;
  std::wstring_view text;
  std::wstring_view question;  // asked before the command runs; empty: the row cannot be chosen
};

/// The rows in the order in which they are shown.
std::span<const ListMenuRow> ListMenuRows();

/// The menu with all rows. Throws Error when the system makes none.
OwnedMenu CreateListMenu();

/// What is asked before a command; empty for a number that is none.
std::wstring_view ListQuestion(unsigned command);

}  // namespace kvez
