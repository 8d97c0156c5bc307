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

using MainWindowFieldColor = MainWindowTest;

TEST_F(MainWindowFieldColor, IsLightBlueWithOrdinaryColors) {
  const test::SystemColors ordinary(test::kOrdinaryColors);
  EXPECT_EQ(Open().txtMPSC[1].BackColor(), RGB(0xD7, 0xEB, 0xFF));
}

}  // namespace
}  // namespace kvez
