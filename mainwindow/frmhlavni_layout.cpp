// The main window's controls: their places in twips, captions, tooltips and events.

#include <utility>

#include "mainwindow/about_text.h"
#include "mainwindow/addresses.h"
#include "mainwindow/control_ids.h"
#include "mainwindow/frmhlavni.h"
#include "mainwindow/menu_explanations.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

using forms::Place;

// Two columns of lists, a column of buttons, 30 twips from the edges.
constexpr int kLeftColumn = 30;
constexpr int kRightColumn = 3180;
constexpr int kColumnWidth = 3105;
// The details of the shown municipality stand clear of the search mode beside them.
constexpr int kDetailsLeft = kRightColumn + 150;
constexpr int kButtonColumn = 6390;
constexpr int kButtonWidth = 1620;
constexpr int kButtonHeight = 345;
constexpr int kButtonPitch = 390;
constexpr int kClientWidth = kButtonColumn + kButtonWidth + 30;
// The status bar lies below the controls.
constexpr int kClientHeight = 4065 + 345;

constexpr int kLineHeight = forms::Form::kLineTwips;

constexpr Place kListPlace = {kLeftColumn, 330, kColumnWidth, 2790};
// Between the lists and the field below them, with room for the rounding to pixels on both sides: 15 twips covered the
// field's frame at 150 %.
constexpr int kCountTop = kListPlace.top + kListPlace.height + 10;

// Where the loading puts it as well, so that nothing has to move then.
constexpr Place kMessagePanelPlace = {(kClientWidth - 4650) / 2, (kClientHeight - 930) / 2, 4650, 930};

constexpr unsigned kDeferredSearchMilliseconds = 1500;

// What all buttons of the window have in common: a dotted focus mark, which everybody sees, colours that can be read,
// and the border of two lines: the single one is as light as the form at the left and at the top, where its button
// would seem to have no edge.
MemoryPropertyBag ButtonProperties(const wchar_t* caption) {
  return {{L"FoD", 1},
          {L"DEB", 1},
          {L"MC", static_cast<std::int32_t>(frmhlavni::ButtonMoveColor())},
          {L"DC", static_cast<std::int32_t>(frmhlavni::ButtonDownColor())},
          {L"C", std::wstring(caption)}};
}

struct AboutButton {
  tlText frmhlavni::*button;
  int id;
  const wchar_t* name;
  std::int32_t mode;
  const wchar_t* file;
  const wchar_t* caption;
  const wchar_t* toolTip;
};

constexpr std::array<AboutButton, 4> kAboutButtons = {{
    {&frmhlavni::tlHMeil, kTlHMeil, L"tlHMeil", 2, kMailAddress, L"&E-mail", L"Vaše přání nebo připomínky."},
    {&frmhlavni::tlHWWW, kTlHWWW, L"tlHWWW", 1, kWebPage, L"&Internet", L"Stránky programu."},
    {&frmhlavni::tlHPCInfo, kTlHPCInfo, L"tlHPCInfo", 3, L"", L"&PC-info", L"Systémové informace Vašeho počítače."},
    {&frmhlavni::tlHStorno, kTlHStorno, L"tlHStorno", 0, L"", L"&Storno", L"Návrat na vyhledávání."},
}};

}  // namespace

frmhlavni::frmhlavni(clspsc& database, const Platform& platform, CommandServices services)
    : Form({.clientWidth = kClientWidth, .clientHeight = kClientHeight, .icon = L"APLIKACE"}),
      m_database(database),
      m_platform(platform),
      m_services(std::move(services)),
      m_statusBar(m_platform.formats, m_platform.output.clock, MainWindowMenuExplanations()),
      m_previous(m_services.files, m_services.ProgramFolder()) {
  SetKeyPreview(true);
  // What is created first lies in front.
  CreateMessagePanel();
  DesignAboutPanel();
  CreateSearchPanel();
  CreateButtons();
  tmrMPSC.Create(*this, kDeferredSearchMilliseconds);
  BindEvents();
  BindCommands();
}

void frmhlavni::CreateMessagePanel() {
  picMPSCPI.SetVisible(false);
  picMPSCPI.Create(*this, kPicMPSCPI, kMessagePanelPlace, forms::PictureBorder::Single);
  lblZpravaI.Create(picMPSCPI, kLblZpravaI, {150, 165, 4350, kLineHeight});
  picZpravaI.Create(picMPSCPI, kPicZpravaI, {150, 480, 4320, 270}, forms::PictureBorder::Sunken);
  picZpravaI.SetIsProgressBar(true);
  picZpravaI.SetAccessibleName(L"Průběh");
}

void frmhlavni::DesignAboutPanel() {
  fraMPSCO.SetVisible(false);
  for (const AboutButton& row : kAboutButtons) {
    MemoryPropertyBag properties = ButtonProperties(row.caption);
    properties.WriteInteger(L"SEM", row.mode);
    properties.WriteString(L"SEF", row.file);
    (this->*row.button).ReadProperties(properties);
    (this->*row.button).SetToolTipText(row.toolTip);
  }
  // By its full path: the shell would look for the bare name in the working folder and in the program's first.
  tlHPCInfo.SetSEFile(SystemFolder() + L"\\msinfo32.exe");
}

void frmhlavni::CreateAboutPanel() {
  fraMPSCO.Create(*this, kFraMPSCO, {kLeftColumn, 0, 6255, 4035});
  fraMPSCO.SetAccessibleName(L"O aplikaci");
  for (std::size_t i = 0; i < Label1to3.size(); ++i) {
    const int line = static_cast<int>(i);
    Label1to3[i].Create(fraMPSCO, kLabel1 + line, {180, 225 + kLineHeight * line, 5895, kLineHeight});
  }
  Text1.Create(fraMPSCO, kText1, {180, 1035, 5895, 2370}, forms::TextBoxStyle::ReadOnlyLines);
  Text1.SetText(AboutText(kIsTrial));
  Text1.SetAccessibleName(L"Popis aplikace");
  constexpr int kPitch = 1500;  // the last one ends where the text above ends
  constexpr int kWidth = 1395;
  int left = 180;
  for (const AboutButton& row : kAboutButtons) {
    (this->*row.button).Create(fraMPSCO, row.id, {left, 3540, kWidth, kButtonHeight}, row.name);
    left += kPitch;
  }
  fraMPSCO.BringToFront();
  SetFrontPanel(&fraMPSCO);
  // It says goodbye in front of everything.
  picMPSCPI.BringToFront();
}

void frmhlavni::CreateSearchPanel() {
  txtMPSC[kFieldBeginning].Create(*this, kTxtMPSC + kFieldBeginning, {kLeftColumn, 30, kColumnWidth, 285});
  txtMPSC[kFieldBeginning].SetBackColor(FieldColor());
  txtMPSC[kFieldBeginning].SetAccessibleName(L"Světlemodré pole: vyhledání v seznamu");
  lstMPSC[kListAll].Create(*this, kLstMPSC, kListPlace);
  lstMPSC[kListAll].SetAccessibleName(L"Všechny obce");
  lstMPSC[kListAll].SetToolTipText(L"Seznam všech obcí. Výběrem obce se zobrazí její pošta a okres.");
  lstMPSC[kListDistricts].SetVisible(false);
  lstMPSC[kListDistricts].Create(*this, kLstMPSC + 2, kListPlace);
  lstMPSC[kListDistricts].SetAccessibleName(L"Okresy");
  lstMPSC[kListDistricts].SetToolTipText(L"Seznam okresů. Vyberte okres a stiskněte tlačítko Vyhledej.");
  lblPSCV[kCountAll].Create(*this, kLblPSCV + kCountAll, {kLeftColumn, kCountTop, kColumnWidth, kLineHeight});
  lblPSCV[kCountAll].SetIsLiveRegion(true);
  lblPSCV[kCountAll].SetToolTipText(L"Počet položek v seznamu nebo pořadí vybrané položky.");
  txtMPSC[kFieldText].Create(*this, kTxtMPSC + kFieldText, {kLeftColumn, 3390, kColumnWidth, 285});
  txtMPSC[kFieldText].SetAccessibleName(L"Vyhledej");
  txtMPSC[kFieldText].SetToolTipText(
      L"Zadejte hledaný text a stiskněte Enter. Klávesou Shift přejdete do světlemodrého pole.");

  lblMPSCH[kHeadingSearch].Create(*this, kLblMPSCH + kHeadingSearch, {kLeftColumn, 3765, 765, kLineHeight},
                                  L"Vyhledej");
  struct Option {
    const wchar_t* caption;
    const wchar_t* toolTip;
    int left;
    int width;
  };
  constexpr std::array<Option, 3> kOptions = {{
      {L"PSČ", L"Hledané PSČ zadejte ve formátu 69201 nebo 692 01.", 855, 750},
      {L"Obec", L"Pro vyhledání obce můžete použít zástupný symbol * nebo ?.", 1605, 750},
      {L"Okres", L"Vyberte okres ze seznamu.", 2355, kLeftColumn + kColumnWidth - 2355},
  }};
  for (std::size_t i = 0; i < kOptions.size(); ++i) {
    optMPSC[i].Create(*this, kOptMPSC + static_cast<int>(i), {kOptions[i].left, 3750, kOptions[i].width, kLineHeight},
                      kOptions[i].caption);
    optMPSC[i].SetToolTipText(kOptions[i].toolTip);
  }

  lblMPSCN.Create(*this, kLblMPSCN, {kRightColumn, 60, 4830, kLineHeight});
  lblMPSCN.SetToolTipText(L"Zadání posledního hledání.");
  lstMPSC[kListResult].Create(*this, kLstMPSC + 1, {kRightColumn, 330, kColumnWidth, 2790});
  lstMPSC[kListResult].SetAccessibleName(L"Nalezené obce");
  lstMPSC[kListResult].SetToolTipText(L"Po stisknutí pravého tlačítka myši se zobrazí nabídka.");
  lblPSCV[kCountResult].Create(*this, kLblPSCV + kCountResult, {kRightColumn, kCountTop, kColumnWidth, kLineHeight});
  lblPSCV[kCountResult].SetIsLiveRegion(true);
  lblPSCV[kCountResult].SetToolTipText(L"Počet nalezených obcí nebo pořadí vybrané obce.");

  constexpr std::array<const wchar_t*, 2> kHeadings = {L"Obec", L"Okres"};
  for (std::size_t i = 0; i < kHeadings.size(); ++i) {
    const int line = static_cast<int>(i);
    const int top = 3435 + 330 * line;
    lblMPSCH[i].Create(*this, kLblMPSCH + line, {kDetailsLeft, top, 600, kLineHeight}, kHeadings[i]);
    lblNPSCHT[i].Create(*this, kLblNPSCHT + line, {kDetailsLeft + 600, top, 4080, kLineHeight});
    lblNPSCHT[i].SetFontStyle({.bold = true});
  }
}

void frmhlavni::CreateButtons() {
  struct Button {
    tlText& button;
    int id;
    const wchar_t* name;
    int top;
    const wchar_t* caption;
    const wchar_t* toolTip;  // also the hint on the status bar; those of two buttons are set while loading
  };
  // Searching stands at the top of the column, the rest at its bottom, level with the end of the lists.
  constexpr int kBottom = kListPlace.top + kListPlace.height - kButtonHeight;
  const std::array<Button, 7> buttons = {{
      {tlHVyhledej, kTlHVyhledej, L"tlHVyhledej", kListPlace.top, L"&Vyhledej",
       L"Najde v databázi požadované informace a zobrazí seznam."},
      {tlHObcePSC, kTlHObcePSC, L"tlHObcePSC", kListPlace.top + kButtonPitch, L"O&bce k PSČ",
       L"Vyberte obec ze seznamu."},
      {tlHAktualizace, kTlHAktualizace, L"tlHAktualizace", kBottom - 4 * kButtonPitch, L"&Aktualizace", L""},
      {tlHNapoveda, kTlHNapoveda, L"tlHNapoveda", kBottom - 3 * kButtonPitch, L"&Nápověda",
       L"Nápověda na ovládání programu."},
      {tlHOaplikaci, kTlHOaplikaci, L"tlHOaplikaci", kBottom - 2 * kButtonPitch, L"&O aplikaci", L""},
      {tlHNastaveni, kTlHNastaveni, L"tlHNastaveni", kBottom - kButtonPitch, L"Na&staveni", L"Uživatelské nastavení."},
      {tlHKonec, kTlHKonec, L"tlHKonec", kBottom, L"&Konec", L"Ukončení programu"},
  }};
  // There is no result yet whose postal code could be listed.
  tlHObcePSC.SetVisible(false);
  for (const Button& row : buttons) {
    row.button.ReadProperties(ButtonProperties(row.caption));
    row.button.Create(*this, row.id, {kButtonColumn, row.top, kButtonWidth, kButtonHeight}, row.name);
    row.button.SetToolTipText(row.toolTip);
  }
}

void frmhlavni::BindEvents() {
  for (std::size_t i = 0; i < optMPSC.size(); ++i) {
    optMPSC[i].Click = [this, i] { optMPSC_Click(i); };
    optMPSC[i].ChosenAgain = [this] { ResumeSearching(); };
  }
  for (std::size_t i = 0; i < txtMPSC.size(); ++i) {
    forms::TextBox& box = txtMPSC[i];
    box.GotFocus = [this, i] { txtMPSC_GotFocus(i); };
    box.LostFocus = [this, i] { txtMPSC_LostFocus(i); };
    box.Change = [this, i] { txtMPSC_Change(i); };
    box.Paste = [this](const std::wstring& text) { return txtMPSC_Paste(text); };
    box.KeyDown = [this, i](std::int16_t& keyCode, std::int16_t shift) { txtMPSC_KeyDown(i, keyCode, shift); };
    box.KeyPress = [this, i](std::int16_t& keyAscii) { txtMPSC_KeyPress(i, keyAscii); };
    box.KeyUp = [this, i](std::int16_t& keyCode, std::int16_t shift) { txtMPSC_KeyUp(i, keyCode, shift); };
  }
  for (std::size_t i = 0; i < lstMPSC.size(); ++i) {
    lstMPSC[i].Click = [this, i] { lstMPSC_Click(i); };
    lstMPSC[i].KeyDown = [this, i](std::int16_t& keyCode, std::int16_t shift) { lstMPSC_KeyDown(i, keyCode, shift); };
    lstMPSC[i].MouseMove = [this, i](std::int16_t&, std::int16_t&, float& x, float& y) { lstMPSC_MouseMove(i, x, y); };
    lstMPSC[i].MouseUp = [this, i](std::int16_t& button, std::int16_t& shift, float& x, float& y) {
      lstMPSC_MouseUp(i, button, shift, x, y);
    };
  }
  lstMPSC[kListResult].ContextMenuKey = [this] { lstMPSC_ContextMenuKey(); };
  tmrMPSC.Elapsed = [this] { tmrMPSC_Timer(); };
  tlHVyhledej.Click = [this] { tlHVyhledej_Click(); };
  tlHObcePSC.Click = [this] { tlHObcePSC_Click(); };
}

}  // namespace kvez
