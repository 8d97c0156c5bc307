#include "mainwindow/menu_explanations.h"

#include <windows.h>

namespace kvez {

std::span<const MenuExplanation> MainWindowMenuExplanations() {
  static constexpr MenuExplanation explanations[] = {
      {1, L"Vytiskne seznam vybraných obcí."},
      {2, L"Uloží seznam vybraných obcí do textového souboru."},
      {4, L"Vloží seznam vybraných obcí do schránky."},
      {5, L"Odešle seznam vybraných obcí e-mailem."},
      {7, L"Adresář není k dispozici."},
      {8, L"Základní školy nejsou k dispozici."},
      {SC_RESTORE, L"Vrátí okno do původní velikosti."},
      {SC_MOVE, L"Přesune okno."},
      {SC_MINIMIZE, L"Minimalizuje okno na hlavní panel."},
      {SC_CLOSE, L"Ukončení programu"},
  };
  return explanations;
}

}  // namespace kvez
