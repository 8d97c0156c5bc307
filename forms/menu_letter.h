#pragma once

#include <windows.h>

namespace kvez::forms {

/// The answer to WM_MENUCHAR: the row that `letter` stands for, of a menu whose texts mark no access keys. The first
/// letter of a row chooses it when it can be chosen and is the only such row; else it is only highlighted. 0 when no
/// row begins so.
LRESULT AnswerMenuLetter(HMENU menu, wchar_t letter);

}  // namespace kvez::forms
