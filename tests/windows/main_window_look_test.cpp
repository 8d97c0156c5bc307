// What the main window looks like: its buttons' frames.

#include "tests/support/system_look.h"
#include "tests/windows/main_window_test.h"

namespace kvez {
namespace {

using test::Contrast;
using test::Pixels;

constexpr std::array<unsigned, 5> kAllScalings = {96, 120, 144, 192, 288};

class MainWindowLook : public MainWindowTest {
 protected:
  /// What the system sends when the window gets to a screen of another scaling.
  void ScaleTo(unsigned dpi) {
    RECT place{};
    GetWindowRect(m_window->Handle(), &place);
    SendMessageW(m_window->Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
  }

  std::vector<tlText*> Buttons() {
    frmhlavni& window = *m_window;
    return {&window.tlHVyhledej,  &window.tlHObcePSC,   &window.tlHAktualizace, &window.tlHNapoveda,
            &window.tlHOaplikaci, &window.tlHNastaveni, &window.tlHKonec,       &window.tlHMeil,
            &window.tlHWWW,       &window.tlHPCInfo,    &window.tlHStorno};
  }

  /// The strongest step between two neighbouring pixels on the way from outside over a button's edge, `line(0)` being
  /// the outermost pixel.
  static double StrongestStep(COLORREF outside, const std::function<COLORREF(int)>& line) {
    double strongest = 1;
    for (int i = 0; i < 3; ++i) {
      const COLORREF next = line(i);
      strongest = std::max(strongest, Contrast(outside, next));
      outside = next;
    }
    return strongest;
  }

  /// The weakest of the four sides' frames.
  static double FrameOf(const tlText& button) {
    const Pixels pixels = Pixels::OfPrint(button.Handle());
    const COLORREF form = forms::Form::BackColor();
    const int right = pixels.Width() - 1;
    const int bottom = pixels.Height() - 1;
    // Away from the caption and from the middle of the dotted focus mark.
    return std::min({StrongestStep(form, [&](int i) { return pixels.At(i, bottom / 2); }),
                     StrongestStep(form, [&](int i) { return pixels.At(right - i, bottom / 2); }),
                     StrongestStep(form, [&](int i) { return pixels.At(right / 2, i); }),
                     StrongestStep(form, [&](int i) { return pixels.At(right / 2, bottom - i); })});
  }
};

TEST_F(MainWindowLook, EveryButtonHasAFrameOnAllFourSides) {
  const test::SystemColors ordinary(test::kOrdinaryColors);
  frmhlavni& window = Open();
  window.tlHOaplikaci.Click();
  for (const unsigned dpi : kAllScalings) {
    ScaleTo(dpi);
    for (const tlText* button : Buttons()) {
      // A step of a seventh of the brightness is lost beside the text; a fourth is a line.
      EXPECT_GE(FrameOf(*button), 1.25) << ::testing::PrintToString(button->Caption()) << " at " << dpi;
    }
  }
}

}  // namespace
}  // namespace kvez
