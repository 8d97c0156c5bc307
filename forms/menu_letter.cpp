#include "forms/menu_letter.h"

#include <array>
#include <optional>

#include "forms/access_key.h"

namespace kvez::forms {

LRESULT AnswerMenuLetter(HMENU menu, wchar_t letter) {
  std::optional<int> choice;  // the first that can be chosen
  std::optional<int> shown;   // the first of all
  bool isOnly = true;
  for (int row = 0, count = GetMenuItemCount(menu); row < count; ++row) {
    std::array<wchar_t, 64> text{};
    GetMenuStringW(menu, static_cast<UINT>(row), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    if (!IsSameLetter(text.front(), letter)) continue;
    if (!shown) shown = row;
    if ((GetMenuState(menu, static_cast<UINT>(row), MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) != 0) continue;
    isOnly = !choice;
    if (!choice) choice = row;
  }
  if (choice) return MAKELRESULT(*choice, isOnly ? MNC_EXECUTE : MNC_SELECT);
  return shown ? MAKELRESULT(*shown, MNC_SELECT) : 0;
}

}  // namespace kvez::forms
