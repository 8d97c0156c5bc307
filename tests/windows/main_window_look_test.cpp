// What the main window looks like: its buttons' frames, and its texts in the message font of Windows.

#include "forms/text_ruler.h"
#include "tests/support/message_font.h"
#include "tests/support/system_look.h"
#include "tests/support/tool_tip.h"
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

// One that lay over another would hide its frame.
TEST_F(MainWindowLook, WhatStandsBelowEachOtherSharesNoPixel) {
  frmhlavni& window = Open();
  const std::vector<std::pair<const forms::Control*, const forms::Control*>> neighbours = {
      {&window.txtMPSC[kFieldBeginning], &window.lstMPSC[kListAll]},
      {&window.lstMPSC[kListAll], &window.lblPSCV[kCountAll]},
      {&window.lblPSCV[kCountAll], &window.txtMPSC[kFieldText]},
      {&window.txtMPSC[kFieldText], &window.optMPSC[1]},
      {&window.lblMPSCN, &window.lstMPSC[kListResult]},
      {&window.lstMPSC[kListResult], &window.lblPSCV[kCountResult]}};
  for (const unsigned dpi : {96U, 120U, 144U, 168U, 192U, 216U, 288U}) {
    ScaleTo(dpi);
    for (const auto& [above, below] : neighbours) {
      RECT upper{};
      RECT lower{};
      GetWindowRect(above->Handle(), &upper);
      GetWindowRect(below->Handle(), &lower);
      EXPECT_LE(upper.bottom, lower.top) << GetDlgCtrlID(above->Handle()) << " at " << dpi;
    }
  }
}

// Where a pitch is a whole number of pixels, no gap between two buttons is wider than the next one.
TEST_F(MainWindowLook, ButtonsOfTheColumnStandEvenly) {
  const frmhlavni& window = Open();
  const auto topOf = [](const tlText* button) {
    RECT place{};
    GetWindowRect(button->Handle(), &place);
    return place.top;
  };
  for (const unsigned dpi : {96U, 144U, 192U, 288U}) {
    ScaleTo(dpi);
    const LONG pitch = topOf(&window.tlHObcePSC) - topOf(&window.tlHVyhledej);
    const tlText* above = &window.tlHAktualizace;
    for (const tlText* button : {&window.tlHNapoveda, &window.tlHOaplikaci, &window.tlHNastaveni, &window.tlHKonec}) {
      EXPECT_EQ(topOf(button) - topOf(above), pitch) << dpi;
      above = button;
    }
  }
}

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

/// The size of a control's text in its font, with what else takes room beside it.
SIZE NeededBy(const forms::Control& control) {
  wchar_t text[200]{};
  GetWindowTextW(control.Handle(), text, 200);
  std::wstring shown = text;
  int beside = 0;
  if (dynamic_cast<const tlText*>(&control) != nullptr) {
    std::erase(shown, L'&');
    beside = 2 * 3;  // the focus mark, which does not grow
  } else if (dynamic_cast<const forms::OptionButton*>(&control) != nullptr) {
    beside = control.OwnerForm().ToPixels(270);  // the circle with the gap behind it
  } else if (dynamic_cast<const forms::TextBox*>(&control) != nullptr) {
    shown.clear();  // it scrolls
  }
  return {forms::TextRuler().Width(shown, control.Font()) + beside, forms::LineHeight(control.Font())};
}

class MainWindowInTheUsualFont : public MainWindowLook {
 protected:
  void SetUp() override {
    MainWindowLook::SetUp();
    Open().tlHOaplikaci.Click();
    m_window->lblPSCV[0].SetCaption(L"V seznamu jsou 16 726 obcí.");
    m_window->lblPSCV[1].SetCaption(L"Zadání vyhovuje 16 726 obcí.");
    m_window->lblZpravaI.SetCaption(L"Strpení prosím, vytvářím pomocný seznam okresů.");
    m_window->lblMPSCN.SetCaption(L"Název začíná \"Lhota\".");
    m_window->lblNPSCHT[0].SetCaption(L"Brandýs nad Labem-Stará Boleslav");
    m_window->lblNPSCHT[1].SetCaption(L"Hlavní město Praha");
  }

  void ExpectTextsFit() const {
    int seen = 0;
    for (const forms::Control* control : m_window->Controls()) {
      const bool isLines = control == &m_window->Text1;
      if (isLines || dynamic_cast<const forms::ListBox*>(control) != nullptr || control->Handle() == nullptr) continue;
      if (GetWindowTextLengthW(control->Handle()) == 0) continue;
      RECT room{};
      GetClientRect(control->Handle(), &room);
      const SIZE needed = NeededBy(*control);
      const int id = GetDlgCtrlID(control->Handle());
      EXPECT_LE(needed.cy, room.bottom) << id << " at " << m_window->Scaling();
      EXPECT_LE(needed.cx, room.right) << id << " at " << m_window->Scaling();
      ++seen;
    }
    EXPECT_EQ(seen, 26);
  }

  /// The About panel lies on the rest, the two lists share their place.
  void ExpectNothingOverlaps() const {
    std::vector<RECT> places;
    for (const forms::Control* control : m_window->Controls()) {
      const bool isOnForm = GetParent(control->Handle()) == m_window->Handle();
      if (!isOnForm || !control->Visible() || control == &m_window->fraMPSCO) continue;
      RECT place{};
      GetWindowRect(control->Handle(), &place);
      for (const RECT& other : places) {
        RECT common{};
        IntersectRect(&common, &place, &other);
        // Rounding may cost a pixel.
        EXPECT_LE(std::min(common.right - common.left, common.bottom - common.top), 1)
            << GetDlgCtrlID(control->Handle());
      }
      places.push_back(place);
    }
    EXPECT_GT(places.size(), 15U);
  }

  test::UsualMessageFont m_usual;
  test::UserMessageFont m_font{test::UsualMessageFont::kFace, 9};
};

TEST_F(MainWindowInTheUsualFont, TextsFitAtEveryScaling) {
  for (const unsigned dpi : kAllScalings) {
    ScaleTo(dpi);
    // 2724 units of 2048 that are 9 points high: the font is there, and the window has it.
    ASSERT_NEAR(m_window->LineHeight(), 9.0 * dpi / 72 * 2724 / 2048, 1);
    ExpectTextsFit();
  }
}

TEST_F(MainWindowInTheUsualFont, TextsFitWhileTheUserEnlargesThem) {
  const LONG width = m_window->ToPixels(m_window->txtMPSC[0].GetPlace().width);
  for (const int points : {11, 16, 20}) {
    const test::UserMessageFont large(test::UsualMessageFont::kFace, points);
    ASSERT_NEAR(m_window->LineHeight(), points * 96.0 / 72 * 2724 / 2048, 1);
    EXPECT_GT(m_window->ToPixels(m_window->txtMPSC[0].GetPlace().width), width);
    ExpectTextsFit();
    ExpectNothingOverlaps();
  }
  EXPECT_EQ(m_window->ToPixels(m_window->txtMPSC[0].GetPlace().width), width);
  ExpectTextsFit();
}

TEST_F(MainWindowInTheUsualFont, TextsFitWhereTheScreenIsTooSmall) {
  // At 100 % the window needs more than a quarter of the tests' screen.
  for (const unsigned dpi : {480U, 672U}) {
    ScaleTo(dpi);
    EXPECT_LT(m_window->Scaling(), dpi);
    RECT outer{};
    RECT work{};
    GetWindowRect(m_window->Handle(), &outer);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_LE(outer.right - outer.left, work.right - work.left);
    EXPECT_LE(outer.bottom - outer.top, work.bottom - work.top);
    ExpectTextsFit();
    ExpectNothingOverlaps();
  }
}

TEST_F(MainWindowInTheUsualFont, StatusBarGrowsAlong) {
  const HWND bar = FindWindowExW(m_window->Handle(), nullptr, L"msctls_statusbar32", nullptr);
  const auto letters = [bar] {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(bar, WM_GETFONT, 0, 0)), sizeof font, &font);
    return std::abs(static_cast<int>(font.lfHeight));
  };
  const int before = letters();
  const test::UserMessageFont large(test::UsualMessageFont::kFace, 18);
  EXPECT_NEAR(letters(), 2 * before, 2);
  RECT place{};
  RECT client{};
  GetWindowRect(bar, &place);
  GetClientRect(m_window->Handle(), &client);
  // What the design leaves it.
  EXPECT_LE(place.bottom - place.top, m_window->ToPixels(345));
}

using MainWindowLargeFont = MainWindowLook;

TEST_F(MainWindowLargeFont, IsThereFromTheStart) {
  const test::UserMessageFont large(L"Tahoma", 16);
  const frmhlavni& window = Open();
  EXPECT_EQ(window.Scaling(), 168U);
  EXPECT_EQ(-window.FontDescription().lfHeight, 21);
  const HWND bar = FindWindowExW(window.Handle(), nullptr, L"msctls_statusbar32", nullptr);
  std::array<int, 3> edges{};
  SendMessageW(bar, SB_GETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
  EXPECT_GE(edges[1], MulDiv(142, 168, 96));
}

TEST_F(MainWindowInTheUsualFont, FieldsHaveRoomForALine) {
  for (const unsigned dpi : kAllScalings) {
    ScaleTo(dpi);
    for (const forms::TextBox& box : m_window->txtMPSC) {
      RECT room{};
      GetClientRect(box.Handle(), &room);
      EXPECT_LE(forms::LineHeight(box.Font()), room.bottom) << dpi;
      // Lowered by a pixel at most.
      EXPECT_GE(forms::LineHeight(box.Font()) + 1, m_window->LineHeight()) << dpi;
    }
  }
}

TEST_F(MainWindowInTheUsualFont, CountsKeepWhatIsBelowTheLine) {
  frmhlavni& window = *m_window;
  for (const unsigned dpi : kAllScalings) {
    ScaleTo(dpi);
    for (forms::Label* label : {&window.lblPSCV[0], &window.lblPSCV[1], &window.lblMPSCN, &window.lblNPSCHT[0]}) {
      label->SetCaption(L"(gjpqy)");
      const RECT seen = Pixels::OfPrint(label->Handle()).Extent(label->ForeColor());
      SIZE place = {window.ToPixels(label->GetPlace().width), window.ToPixels(label->GetPlace().height)};
      SetWindowPos(label->Handle(), nullptr, 0, 0, place.cx, 2 * place.cy, SWP_NOMOVE | SWP_NOZORDER);
      const RECT whole = Pixels::OfPrint(label->Handle()).Extent(label->ForeColor());
      SetWindowPos(label->Handle(), nullptr, 0, 0, place.cx, place.cy, SWP_NOMOVE | SWP_NOZORDER);
      EXPECT_EQ(seen.bottom, whole.bottom) << dpi;
      EXPECT_GT(whole.bottom, window.LineHeight() / 2) << dpi;
    }
  }
}

TEST_F(MainWindowInTheUsualFont, WhatIsLongerThanItsPlaceIsTheTooltip) {
  frmhlavni& window = *m_window;
  window.tlHStorno.Click();
  window.txtMPSC[0].SetText(L"Nová Ves u Nového Města na Moravě a ještě jedna Nová Ves u Nového Města na Moravě*");
  window.VyhledejSeznam();
  const std::wstring heading = window.lblMPSCN.Caption();
  EXPECT_EQ(test::ToolTipOf(window.lblMPSCN), heading);
  EXPECT_NE(heading.find(L"a ještě jedna"), std::wstring::npos);
  window.txtMPSC[0].SetText(L"Lednice");
  window.VyhledejSeznam();
  EXPECT_EQ(test::ToolTipOf(window.lblMPSCN), L"Zadání posledního hledání.");
  const std::wstring name = L"Výsluní, část obce Nová Ves u Nového Města na Moravě";
  EXPECT_EQ(test::ToolTipOf(window.lblNPSCHT[0]), L"(none)");
  window.lblNPSCHT[0].SetCaption(name);
  EXPECT_EQ(test::ToolTipOf(window.lblNPSCHT[0]), name);
  window.lblNPSCHT[0].SetCaption(L"Lednice");
  EXPECT_EQ(test::ToolTipOf(window.lblNPSCHT[0]), L"");
}

}  // namespace
}  // namespace kvez
