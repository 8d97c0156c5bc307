#include "mainwindow/about_text.h"

namespace kvez {

namespace {

// The state of the data stands in data/stav.txt, beside the tables that it belongs to.
constexpr const wchar_t* kAboutText =
    L"Kvez vyhledává obce České republiky, jejich poštovní směrovací čísla, dodávací pošty a okresy.\r\n"
    L"\r\n"
    L"Údaje vycházejí ze seznamu „Seznam PSČ částí obcí a obcí bez částí“, který zveřejňuje Česká pošta, s.\u00a0p., mezi "
    L"výstupy pro zákazníky. Údaje dodané s programem: stav " KVEZ_DATA_STATE
    L". Novější stáhnete tlačítkem Aktualizace.\r\n"
    L"\r\n"
    L"Program je svobodný software s licencí MIT: smíte ho zdarma používat, šířit i měnit. Je poskytován tak, jak je, bez "
    L"jakékoli záruky.";

constexpr const wchar_t* kTrialText =
    L"Toto je zkušební sestavení programu bez vlastních adres: aktualizuje se jen ze serveru na tomto počítači a "
    L"tlačítka "
    L"E-mail a Internet nikam nevedou.\r\n"
    L"\r\n";

}  // namespace

std::wstring AboutText(bool trial) { return trial ? std::wstring(kTrialText) + kAboutText : kAboutText; }

}  // namespace kvez
