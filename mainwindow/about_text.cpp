#include "mainwindow/about_text.h"

namespace kvez {

// The state of the data stands in data/stav.txt, beside the tables that it belongs to.
const wchar_t kAboutText[] =
    L"Kvez vyhledává obce České republiky, jejich poštovní směrovací čísla, dodávací pošty a okresy.\r\n"
    L"\r\n"
    L"Údaje vycházejí ze seznamu „Seznam PSČ částí obcí a obcí bez částí“, který zveřejňuje Česká pošta, s.\u00a0p., jako "
    L"otevřená data. Údaje dodané s programem: stav " KVEZ_DATA_STATE
    L". Novější stáhnete tlačítkem Aktualizace.\r\n"
    L"\r\n"
    L"Program je svobodný software s licencí MIT: smíte ho zdarma používat, šířit i měnit. Je poskytován tak, jak je, bez "
    L"jakékoli záruky.";

}  // namespace kvez
