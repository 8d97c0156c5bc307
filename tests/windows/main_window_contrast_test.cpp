// The main window's colours in contrast themes, and while the user changes from one to the other.

#include <map>

#include "tests/support/system_look.h"
#include "tests/windows/main_window_test.h"

namespace kvez {
namespace {

using test::Contrast;
using test::Pixels;

/// What guidelines ask for where everybody shall read a text.
constexpr double kReadsWell = 7;

/// How well the text inside a control's edges reads: the contrast of its strongest colour with the one that covers
/// most. 1 when there is only one.
double Legibility(const Pixels& pixels) {
  constexpr int kEdges = 4;  // border and focus mark
  std::map<COLORREF, int> counts;
  for (int y = kEdges; y < pixels.Height() - kEdges; ++y) {
    for (int x = kEdges; x < pixels.Width() - kEdges; ++x) ++counts[pixels.At(x, y)];
  }
  if (counts.empty()) return 0;
  const auto back = std::ranges::max_element(counts, {}, &std::pair<const COLORREF, int>::second)->first;
  double strongest = 1;
  for (const auto& [color, count] : counts) {
    // Single pixels may be anything.
    if (count > 3) strongest = std::max(strongest, Contrast(back, color));
  }
  return strongest;
}

struct Theme {
  const char* name;
  const test::Palette& palette;
};

class MainWindowContrast : public MainWindowTest, public ::testing::WithParamInterface<Theme> {
 protected:
  static Pixels PictureOf(const forms::Control& control) {
    UpdateWindow(control.Handle());
    return Pixels::OfWindow(control.Handle());
  }

  /// Every text of the window, the buttons' in all their colours.
  void ExpectAllReadsWell() {
    frmhlavni& window = *m_window;
    window.txtMPSC[1].SetText(L"Lednice");
    window.lblPSCV[1].SetCaption(L"Zadání vyhovuje 12 obcí.");
    window.lblMPSCN.SetCaption(L"Název začíná.");
    window.lblNPSCHT[0].SetCaption(L"Lednice");
    forms::DoEvents();
    for (const forms::Control* control : std::initializer_list<const forms::Control*>{
             &window.txtMPSC[1], &window.lstMPSC[0], &window.lblPSCV[0], &window.lblPSCV[1], &window.lblMPSCN,
             &window.lblNPSCHT[0], &window.lblMPSCH[0], &window.lblMPSCH[2]}) {
      EXPECT_GE(Legibility(PictureOf(*control)), kReadsWell) << GetDlgCtrlID(control->Handle());
    }
    for (tlText* button : {&window.tlHVyhledej, &window.tlHKonec}) ExpectButtonReadsWell(*button);
  }

  static void ExpectButtonReadsWell(tlText& button) {
    test::PointAt(test::FarAway());
    EXPECT_GE(Legibility(PictureOf(button)), kReadsWell);
    const COLORREF back = PictureOf(button).At(6, 6);
    EXPECT_EQ(back, GetSysColor(COLOR_BTNFACE));
    test::PointAt(test::CenterOf(button.Handle()));
    EXPECT_GE(Legibility(PictureOf(button)), kReadsWell) << "under the pointer";
    EXPECT_GT(PictureOf(button).Count(button.MoveColor()), 3);
    test::PressButton();
    EXPECT_GE(Legibility(PictureOf(button)), kReadsWell) << "held down";
    EXPECT_GT(PictureOf(button).Count(button.DownColor()), 3);
    // Leaving lifts the button: nothing is chosen.
    test::PointAt(test::FarAway());
    test::ReleaseButton();
  }
};

TEST_P(MainWindowContrast, ReadsWellFromTheStart) {
  const test::SystemColors theme(GetParam().palette);
  OpenInFront();
  ExpectAllReadsWell();
}

TEST_P(MainWindowContrast, FollowsTheChangeAndTheWayBack) {
  const test::SystemColors ordinary(test::kOrdinaryColors);
  frmhlavni& window = OpenInFront();
  const COLORREF field = window.txtMPSC[1].BackColor();
  const COLORREF move = window.tlHKonec.MoveColor();
  const Pixels button = PictureOf(window.tlHKonec);
  {
    const test::SystemColors theme(GetParam().palette);
    ExpectAllReadsWell();
  }
  ExpectAllReadsWell();
  // A click has brought it to the button, with its mark.
  window.txtMPSC[0].SetFocus();
  EXPECT_EQ(window.txtMPSC[1].BackColor(), field);
  EXPECT_EQ(window.tlHKonec.MoveColor(), move);
  EXPECT_EQ(PictureOf(window.tlHKonec), button);
}

TEST_P(MainWindowContrast, AboutPanelReadsWell) {
  const test::SystemColors theme(GetParam().palette);
  frmhlavni& window = OpenInFront();
  window.tlHOaplikaci.Click();
  forms::DoEvents();
  EXPECT_GE(Legibility(PictureOf(window.Text1)), kReadsWell);
  for (const forms::Label& label : window.Label1to3) EXPECT_GE(Legibility(PictureOf(label)), kReadsWell);
  for (tlText* button : {&window.tlHMeil, &window.tlHStorno}) ExpectButtonReadsWell(*button);
}

TEST_P(MainWindowContrast, ButtonsHaveAFrameOnAllFourSides) {
  const test::SystemColors theme(GetParam().palette);
  const tlText& button = Open().tlHKonec;
  const Pixels pixels = Pixels::OfPrint(button.Handle());
  const COLORREF form = GetSysColor(COLOR_BTNFACE);
  // A line reads well enough at 3, a text needs more.
  const auto line = [&](COLORREF outer, COLORREF inner) {
    return std::max(Contrast(form, outer), Contrast(form, inner));
  };
  const int right = pixels.Width() - 1;
  const int bottom = pixels.Height() - 1;
  EXPECT_GE(line(pixels.At(0, 9), pixels.At(1, 9)), 3);
  EXPECT_GE(line(pixels.At(9, 0), pixels.At(9, 1)), 3);
  EXPECT_GE(line(pixels.At(right, 9), pixels.At(right - 1, 9)), 3);
  EXPECT_GE(line(pixels.At(9, bottom), pixels.At(9, bottom - 1)), 3);
}

INSTANTIATE_TEST_SUITE_P(Themes, MainWindowContrast,
                         ::testing::Values(Theme{"dark", test::kDarkContrast}, Theme{"light", test::kLightContrast}),
                         [](const auto& info) { return std::string(info.param.name); });

/// What a theme of Windows says about buttons: face, text and what is disabled; and how well the last reads.
struct StandardTheme {
  const char* name;
  COLORREF face;
  COLORREF text;
  COLORREF gray;
  double ratio;

  friend void PrintTo(const StandardTheme& theme, std::ostream* out) { *out << theme.name; }
};

// Three give what is disabled less than 7. It is what their users have chosen, and stays.
constexpr StandardTheme kStandardThemes[] = {
    {"Aquatic", RGB(0x20, 0x20, 0x20), RGB(0xFF, 0xFF, 0xFF), RGB(0xA6, 0xA6, 0xA6), 6.7},
    {"Desert", RGB(0xFF, 0xFA, 0xEF), RGB(0x20, 0x20, 0x20), RGB(0x67, 0x67, 0x67), 5.4},
    {"Dusk", RGB(0x2D, 0x32, 0x36), RGB(0xB6, 0xF6, 0xF0), RGB(0xA6, 0xA6, 0xA6), 5.3},
    {"NightSky", RGB(0, 0, 0), RGB(0xFF, 0xEE, 0x32), RGB(0xA6, 0xA6, 0xA6), 8.6},
    {"HighContrastBlack", RGB(0, 0, 0), RGB(0xFF, 0xFF, 0xFF), RGB(0x3F, 0xF2, 0x3F), 14.0},
    {"HighContrastWhite", RGB(0xFF, 0xFF, 0xFF), RGB(0, 0, 0), RGB(0x60, 0, 0), 14.0},
    {"HighContrast1", RGB(0, 0, 0), RGB(0xFF, 0xFF, 0), RGB(0, 0xFF, 0), 15.3},
    {"HighContrast2", RGB(0, 0, 0), RGB(0, 0xFF, 0), RGB(0xC0, 0xC0, 0xC0), 11.5},
};

class DisabledButton : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    Open().tlHVyhledej.SetEnabled(false);
  }
  /// What stands on the button: how many pixels of the colour there are inside its edges.
  static int CountInside(const Pixels& pixels, COLORREF color) {
    int count = 0;
    for (int y = 4; y < pixels.Height() - 4; ++y) {
      for (int x = 4; x < pixels.Width() - 4; ++x) count += pixels.At(x, y) == color ? 1 : 0;
    }
    return count;
  }
  Pixels Picture() const { return Pixels::OfPrint(m_window->tlHVyhledej.Handle()); }
};

class DisabledButtonInTheme : public DisabledButton, public ::testing::WithParamInterface<StandardTheme> {};

TEST_P(DisabledButtonInTheme, HasTheThemesColorForItAndNoEdge) {
  const StandardTheme& theme = GetParam();
  // With either shadow that the themes have.
  for (const COLORREF shadow : {RGB(128, 128, 128), RGB(0, 0, 0)}) {
    const test::SystemColors colors({{COLOR_BTNFACE, theme.face},
                                     {COLOR_BTNTEXT, theme.text},
                                     {COLOR_BTNHIGHLIGHT, RGB(192, 192, 191)},
                                     {COLOR_BTNSHADOW, shadow},
                                     {COLOR_GRAYTEXT, theme.gray}});
    const Pixels button = Picture();
    EXPECT_GT(CountInside(button, theme.gray), 20);
    EXPECT_EQ(CountInside(button, RGB(192, 192, 191)), 0);
    if (shadow != theme.face) {
      EXPECT_EQ(CountInside(button, shadow), 0);
    }
  }
  EXPECT_NEAR(Contrast(theme.gray, theme.face), theme.ratio, 0.05);
}

INSTANTIATE_TEST_SUITE_P(Themes, DisabledButtonInTheme, ::testing::ValuesIn(kStandardThemes),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(DisabledButton, IsEmbossedWithOrdinaryColors) {
  const test::SystemColors ordinary(test::kOrdinaryColors);
  const Pixels button = Picture();
  EXPECT_GT(CountInside(button, GetSysColor(COLOR_BTNSHADOW)), 20);
  EXPECT_GT(CountInside(button, GetSysColor(COLOR_BTNHIGHLIGHT)), 10);
}

using MainWindowFieldColor = MainWindowTest;

TEST_F(MainWindowFieldColor, IsLightBlueWithOrdinaryColors) {
  const test::SystemColors ordinary(test::kOrdinaryColors);
  EXPECT_EQ(Open().txtMPSC[1].BackColor(), RGB(0xD7, 0xEB, 0xFF));
}

}  // namespace
}  // namespace kvez
