#include "settings/frmnastaveni.h"

#include <windows.h>

#include <utility>

#include "database/application.h"
#include "forms/mouse_pointer.h"
#include "forms/text_ruler.h"
#include "text/assertion.h"
#include "text/error.h"

namespace kvez {
namespace {

constexpr int kClientWidth = 5175;
constexpr int kClientHeight = 855;
constexpr std::int16_t kShortcutSetting = 1;
// The square of a check box with the gap behind it.
constexpr int kMarkWidth = 300;

struct Row {
  const wchar_t* caption;
  forms::Place place;
};

constexpr std::array<Row, 3> kRows{{
    {L"Automaticky vybrat v seznamu položku pod kurzorem myši.", {60, 60, 5055, 195}},
    {L"Vytvořit zástupce na ploše.", {60, 330, 5055, 195}},
    {L"Světlemodré pole - automatické vyhledání po uvolnění klávesy.", {60, 600, 5055, 195}},
}};

/// SettingsOpen is false for as long as the object lives: what it ticks is not written back.
class OnlyShowing {
 public:
  OnlyShowing() : m_before(std::exchange(frmnastaveni::SettingsOpen, false)) {}
  OnlyShowing(const OnlyShowing&) = delete;
  OnlyShowing& operator=(const OnlyShowing&) = delete;
  ~OnlyShowing() { frmnastaveni::SettingsOpen = m_before; }

 private:
  bool m_before;
};

}  // namespace

std::wstring_view SettingCaption(std::int16_t setting) { return kRows.at(static_cast<std::size_t>(setting)).caption; }

frmnastaveni::frmnastaveni(clspsc& database, ShortcutPlatform shortcut, const forms::Form* owner)
    : Form({.className = L"KvezNastaveni",
            .border = forms::BorderStyle::FixedDialog,
            .clientWidth = kClientWidth,
            .clientHeight = kClientHeight,
            .icon = L"NASTAVENI",
            .owner = owner}),
      m_database(database),
      m_shortcut(std::move(shortcut)) {
  SetKeyPreview(true);
  for (std::size_t i = 0; i < chkN.size(); ++i) {
    const auto index = static_cast<std::int16_t>(i);
    chkN[i].Create(*this, kChkN + index, kRows[i].place, kRows[i].caption);
    chkN[i].Click = [this, index] { chkN_Click(index); };
  }
  FitCaptions();
}

frmnastaveni::~frmnastaveni() {
  if (IsOpen()) SettingsOpen = false;
}

void frmnastaveni::Form_Load() {
  for (std::size_t i = 0; i < chkN.size(); ++i) ShowStored(static_cast<std::int16_t>(i));
  SetCaption(std::wstring(kApplicationTitle) + L" - nastavení");
  SettingsOpen = true;
}

void frmnastaveni::Form_Unload(std::int16_t&) { SettingsOpen = false; }

void frmnastaveni::Form_KeyDown(std::int16_t& KeyCode, std::int16_t) {
  if (KeyCode == VK_ESCAPE) Unload();
}

// Ticking a box raises chkN_Click, which must not write what is only being read.
void frmnastaveni::ShowStored(std::int16_t Index) {
  Assert(Index >= 0 && static_cast<std::size_t>(Index) < chkN.size(), "the setting is one of the three");
  const OnlyShowing nothingIsWritten;
  std::int16_t value = 0;
  try {
    value = m_database.vGetNastaveniRegistr(Index);
  } catch (const ConversionError&) {
    // No number: unticked, so that a click stores one.
  }
  chkN[static_cast<std::size_t>(Index)].SetValue(value);
}

void frmnastaveni::chkN_Click(std::int16_t Index) {
  if (!SettingsOpen) return;
  const std::int16_t value = chkN[static_cast<std::size_t>(Index)].Value();
  try {
    m_database.vSetNastaveniRegistr(Index, value);
  } catch (...) {
    ShowStored(Index);
    throw;
  }
  if (Index != kShortcutSetting) return;
  // No guard gives the pointer back after an error: an hourglass that stays tells that the work was not finished.
  forms::Screen::SetMousePointer(forms::kPointerHourglass);
  clszastupce(m_shortcut).zZastupcePlocha(value != 0);
  forms::Screen::SetMousePointer(forms::kPointerDefault);
}

// The rows are 13 pixels high at 100 %. The user's own font is taken when it fits; the usual one of today is higher and
// wider, and so gives way to the classic font of dialogs, for which rows of that height are made.
void frmnastaveni::FitCaptions() {
  for (forms::CheckBox& box : chkN) box.SetFontStyle({});
  if (CaptionsFit()) return;
  constexpr int classicPoints = 8;
  constexpr int smallestPercent = 50;
  const int classicHeight = MulDiv(classicPoints, static_cast<int>(Scaling()), 72);
  const int userHeight = std::abs(static_cast<int>(FontDescription().lfHeight));
  for (int percent = MulDiv(classicHeight, 100, userHeight); percent >= smallestPercent; --percent) {
    for (forms::CheckBox& box : chkN) box.SetFontStyle({.bold = false, .percent = percent, .face = L"Tahoma"});
    if (CaptionsFit()) return;
  }
}

bool frmnastaveni::CaptionsFit() const {
  forms::TextRuler ruler;
  for (std::size_t i = 0; i < chkN.size(); ++i) {
    const HFONT font = chkN[i].Font();
    if (forms::LineHeight(font) > ToPixels(kRows[i].place.height)) return false;
    if (ruler.Width(kRows[i].caption, font) > ToPixels(kRows[i].place.width - kMarkWidth)) return false;
  }
  return true;
}

}  // namespace kvez
