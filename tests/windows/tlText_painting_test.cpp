// What the button draws, looked at on the screen.
#include <optional>

#include "controls/button_rules.h"
#include "tests/support/button_fixture.h"
#include "tests/support/handle_count.h"
#include "tests/support/system_look.h"

namespace kvez {
namespace {

using test::Pixels;

/// Which of the three caption colours is there; CLR_INVALID when none or more than one is.
COLORREF OneOf(const Pixels& pixels, std::initializer_list<COLORREF> colors) {
  COLORREF found = CLR_INVALID;
  for (const COLORREF color : colors) {
    if (pixels.Count(color) == 0) continue;
    if (found != CLR_INVALID) return CLR_INVALID;
    found = color;
  }
  return found;
}

class TlTextPainting : public test::ButtonOnScreen {
 protected:
  static COLORREF CaptionColor(const Pixels& pixels) { return OneOf(pixels, {kFore, kMove, kDown}); }

  /// True when the two outermost pixels of all sides are those of DrawEdge in `inside`.
  static ::testing::AssertionResult HasBorder(const Pixels& pixels, UINT style, UINT flags, const RECT& inside) {
    const HDC screen = GetDC(nullptr);
    const OwnedMemoryContext memory(CreateCompatibleDC(screen));
    const OwnedBitmap bitmap(CreateCompatibleBitmap(screen, pixels.Width(), pixels.Height()));
    ReleaseDC(nullptr, screen);
    const ObjectSelection selection(memory.Get(), bitmap.Get());
    const RECT all{0, 0, pixels.Width(), pixels.Height()};
    const OwnedBrush back(CreateSolidBrush(kBack));
    FillRect(memory.Get(), &all, back.Get());
    RECT edge = inside;
    if (style != 0) DrawEdge(memory.Get(), &edge, style, flags);
    for (int y = 0; y < inside.bottom; ++y) {
      for (int x = 0; x < inside.right; ++x) {
        const bool isRing = x < 2 || y < 2 || x >= inside.right - 2 || y >= inside.bottom - 2;
        if (!isRing || GetPixel(memory.Get(), x, y) == pixels.At(x, y)) continue;
        return ::testing::AssertionFailure() << "at " << x << ", " << y << ": " << std::hex << pixels.At(x, y)
                                             << " instead of " << GetPixel(memory.Get(), x, y);
      }
    }
    return ::testing::AssertionSuccess();
  }

  /// Of a face that is lighter than its shadow and darker than its highlight, whatever this system's are.
  void UseOrdinaryFace() {
    m_colors.emplace(test::kOrdinaryColors);
    button.SetBackColor(GetSysColor(COLOR_BTNFACE));
  }

  static RECT All(const Pixels& pixels) { return {0, 0, pixels.Width(), pixels.Height()}; }

  ::testing::AssertionResult HasRaisedBorder(const Pixels& pixels) const {
    return HasBorder(pixels, GetEdgeStyle(button.DEBorder(), button.DEMove(), false),
                     GetEdgeFlags(button.DEBorder(), button.DEMove()), All(pixels));
  }
  ::testing::AssertionResult HasSunkenBorder(const Pixels& pixels) const {
    return HasBorder(pixels, GetEdgeStyle(button.DEBorder(), button.DEMove(), true),
                     GetEdgeFlags(button.DEBorder(), button.DEMove()), All(pixels));
  }
  static ::testing::AssertionResult HasNoBorder(const Pixels& pixels) { return HasBorder(pixels, 0, 0, All(pixels)); }

  /// The smallest rectangle with all pixels that differ.
  static RECT Differences(const Pixels& first, const Pixels& second) {
    RECT differences{};
    for (int y = 0; y < first.Height(); ++y) {
      for (int x = 0; x < first.Width(); ++x) {
        if (first.At(x, y) == second.At(x, y)) continue;
        const RECT pixel{x, y, x + 1, y + 1};
        RECT all{};
        UnionRect(&all, &differences, &pixel);
        differences = all;
      }
    }
    return differences;
  }

  static void ExpectShiftedByOne(const RECT& normal, const RECT& shifted) {
    EXPECT_EQ(shifted.left, normal.left + 1);
    EXPECT_EQ(shifted.top, normal.top + 1);
    EXPECT_EQ(shifted.right, normal.right + 1);
    EXPECT_EQ(shifted.bottom, normal.bottom + 1);
  }

  void FlatUntilHovered() {
    button.SetDEMove(true);
    button.TakePaints();
  }

  Pixels DuringAction() {
    std::optional<Pixels> seen;
    button.Click = [this, &seen] { seen = OnScreenNow(); };
    SendMessageW(button.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    return seen.value();
  }

  SIZE Measured(const char* caption) {
    const HDC context = GetDC(button.Handle());
    RECT rectangle{};
    {
      const ObjectSelection font(context, button.Font());
      DrawTextA(context, caption, -1, &rectangle, DT_CALCRECT | DT_SINGLELINE);
    }
    ReleaseDC(button.Handle(), context);
    return {rectangle.right, rectangle.bottom};
  }

  /// A caption of exactly this width.
  std::string CaptionOfWidth(int width) {
    for (int wide = 0; wide < 8; ++wide) {
      for (int narrow = 0; narrow < 20; ++narrow) {
        for (int middle = 0; middle < 8; ++middle) {
          const std::string caption = std::string(static_cast<std::size_t>(wide), 'm') +
                                      std::string(static_cast<std::size_t>(middle), 'r') +
                                      std::string(static_cast<std::size_t>(narrow), 'i');
          if (Measured(caption.c_str()).cx == width) return caption;
        }
      }
    }
    return {};
  }

  std::optional<test::SystemColors> m_colors;
};

TEST_F(TlTextPainting, NormalLook) {
  const Pixels pixels = OnScreenNow();
  ASSERT_EQ(pixels.Width(), 81);
  ASSERT_EQ(pixels.Height(), 23);
  EXPECT_EQ(CaptionColor(pixels), kFore);
  EXPECT_TRUE(HasRaisedBorder(pixels));
  EXPECT_EQ(pixels.Count(kFocus), 0);
  EXPECT_EQ(pixels.At(5, 5), kBack);
}

TEST_F(TlTextPainting, HoverLook) {
  const RECT normal = OnScreenNow().Extent(kFore);
  test::PointAt(Center());
  const Pixels pixels = OnScreenNow();
  EXPECT_EQ(CaptionColor(pixels), kMove);
  EXPECT_TRUE(HasRaisedBorder(pixels));
  EXPECT_EQ(pixels.Extent(kMove).left, normal.left);
  EXPECT_EQ(pixels.Extent(kMove).top, normal.top);
}

TEST_F(TlTextPainting, DownLook) {
  const RECT normal = OnScreenNow().Extent(kFore);
  test::PointAt(Center());
  test::PressButton();
  const Pixels pixels = OnScreenNow();
  EXPECT_EQ(CaptionColor(pixels), kDown);
  EXPECT_TRUE(HasSunkenBorder(pixels));
  ExpectShiftedByOne(normal, pixels.Extent(kDown));
}

TEST_F(TlTextPainting, DownWithThePointerGone) {
  const RECT normal = OnScreenNow().Extent(kFore);
  SendMessageW(button.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  const Pixels pixels = OnScreenNow();
  EXPECT_EQ(CaptionColor(pixels), kFore);
  EXPECT_TRUE(HasSunkenBorder(pixels));
  ExpectShiftedByOne(normal, pixels.Extent(kFore));
}

TEST_F(TlTextPainting, DuringItsActionItLooksNormal) {
  test::PointAt(Center());
  test::PressButton();
  const Pixels pixels = DuringAction();
  EXPECT_EQ(CaptionColor(pixels), kFore);
  button.SetFocusDraw(2);
  EXPECT_TRUE(HasRaisedBorder(DuringAction()));
  EXPECT_EQ(button.RunTime().IsOver, Boolean(false));
  EXPECT_EQ(button.RunTime().InAction, Boolean(false));
}

TEST_F(TlTextPainting, FlatUntilHoveredHasABorderOnlyUnderThePointer) {
  FlatUntilHovered();
  EXPECT_TRUE(HasNoBorder(OnScreenNow()));
  EXPECT_EQ(CaptionColor(OnScreenNow()), kFore);
  test::PointAt(Center());
  EXPECT_TRUE(HasRaisedBorder(OnScreenNow()));
  EXPECT_EQ(CaptionColor(OnScreenNow()), kMove);
  test::PressButton();
  EXPECT_TRUE(HasSunkenBorder(OnScreenNow()));
  EXPECT_EQ(CaptionColor(OnScreenNow()), kDown);
  EXPECT_TRUE(HasNoBorder(DuringAction()));
  test::PointAt(Outside());
  EXPECT_TRUE(HasNoBorder(OnScreenNow()));
}

TEST_F(TlTextPainting, FlatUntilHoveredIsBareWhenDownWithThePointerGone) {
  FlatUntilHovered();
  const RECT normal = OnScreenNow().Extent(kFore);
  SendMessageW(button.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  const Pixels pixels = OnScreenNow();
  EXPECT_TRUE(HasNoBorder(pixels));
  EXPECT_EQ(CaptionColor(pixels), kFore);
  ExpectShiftedByOne(normal, pixels.Extent(kFore));
}

TEST_F(TlTextPainting, EveryBorderIsRaisedAndSunken) {
  for (const std::int32_t border : {0, 1, 2, 3}) {
    button.SetDEBorder(border);
    EXPECT_TRUE(HasRaisedBorder(OnScreenNow())) << border;
    SendMessageW(button.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_TRUE(HasSunkenBorder(OnScreenNow())) << border;
    other.SetFocus();  // not down any more
  }
}

TEST_F(TlTextPainting, FocusLineRunsAlongTheRightAndTheBottom) {
  button.SetFocus();
  const Pixels pixels = OnScreenNow();
  for (int x = 0; x < 81; ++x) EXPECT_EQ(pixels.At(x, 22), kFocus) << x;
  for (int y = 0; y < 23; ++y) EXPECT_EQ(pixels.At(80, y), kFocus) << y;
  EXPECT_EQ(pixels.Count(kFocus), 81 + 23 - 1);
}

TEST_F(TlTextPainting, BorderLiesInsideTheFocusLine) {
  for (const std::int32_t border : {0, 1, 2}) {
    button.SetDEBorder(border);
    button.SetFocus();
    const Pixels pixels = OnScreenNow();
    EXPECT_TRUE(HasBorder(pixels, GetEdgeStyle(border, false, false), GetEdgeFlags(border, false), {0, 0, 80, 22}))
        << border;
    other.SetFocus();
    EXPECT_TRUE(HasRaisedBorder(OnScreenNow())) << border;
  }
}

TEST_F(TlTextPainting, NoFocusMarkWhileDown) {
  button.SetFocus();
  test::PointAt(Center());
  test::PressButton();
  EXPECT_EQ(OnScreenNow().Count(kFocus), 0);
  EXPECT_TRUE(HasSunkenBorder(OnScreenNow()));
}

TEST_F(TlTextPainting, DottedFocusRectangleIsThreePixelsInside) {
  button.SetFocusDraw(1);
  button.SetCaption(L" ");
  const Pixels before = OnScreenNow();
  button.SetFocus();
  const Pixels pixels = OnScreenNow();
  EXPECT_EQ(pixels.Count(kFocus), 0);
  RECT changed{};
  for (int y = 0; y < 23; ++y) {
    for (int x = 0; x < 81; ++x) {
      if (pixels.At(x, y) == before.At(x, y)) continue;
      const RECT pixel{x, y, x + 1, y + 1};
      RECT all{};
      UnionRect(&all, &changed, &pixel);
      changed = all;
      EXPECT_TRUE(x == 3 || x == 77 || y == 3 || y == 19) << x << ", " << y;
    }
  }
  // Dotted: the very corner may be a gap.
  EXPECT_NEAR(changed.left, 3, 1);
  EXPECT_NEAR(changed.top, 3, 1);
  EXPECT_NEAR(changed.right, 78, 1);
  EXPECT_NEAR(changed.bottom, 20, 1);
  EXPECT_TRUE(HasRaisedBorder(pixels));
}

TEST_F(TlTextPainting, OtherFocusDrawValuesDrawNoMark) {
  const Pixels before = OnScreenNow();
  for (const std::int32_t value : {2, 3, -1}) {
    button.SetFocusDraw(value);
    button.SetFocus();
    EXPECT_TRUE(button.HasKeyboardFocus());
    EXPECT_EQ(OnScreenNow(), before) << value;
    other.SetFocus();
  }
}

TEST_F(TlTextPainting, CaptionIsCenteredWithHalvesToTheEvenPixel) {
  for (const auto& [width, left] : {std::pair{50, 16}, std::pair{51, 15}, std::pair{52, 14}}) {
    const std::string caption = CaptionOfWidth(width);
    ASSERT_NE(caption, "") << width;
    button.SetCaption(L"-");  // captions that differ in case only are not taken
    button.SetCaption(std::wstring(caption.begin(), caption.end()));
    OnScreenNow();
    EXPECT_EQ(button.RunTime().TextRect.left, left) << width;
    EXPECT_EQ(button.RunTime().TextRect.right, 81 - left) << width;
  }
}

TEST_F(TlTextPainting, CaptionIsDrawnWhereItIsPlaced) {
  button.SetCaption(L"H");
  const RECT extent = OnScreenNow().Extent(kFore);
  const RECT& place = button.RunTime().TextRect;
  EXPECT_GE(extent.left, place.left);
  EXPECT_LE(extent.right, place.right);
  EXPECT_GE(extent.top, place.top);
  EXPECT_LE(extent.bottom, place.bottom);
}

TEST_F(TlTextPainting, CzechLettersSurviveTheCodePage) {
  // The same letters drawn by the call that takes them as they are.
  button.SetCaption(L"PSČ řů");
  button.SetDEBorder(3);
  const Pixels pixels = OnScreenNow();
  const HDC screen = GetDC(nullptr);
  const OwnedMemoryContext memory(CreateCompatibleDC(screen));
  const OwnedBitmap bitmap(CreateCompatibleBitmap(screen, 81, 23));
  ReleaseDC(nullptr, screen);
  const ObjectSelection selection(memory.Get(), bitmap.Get());
  const ObjectSelection font(memory.Get(), button.Font());
  const RECT all{0, 0, 81, 23};
  const OwnedBrush back(CreateSolidBrush(kBack));
  FillRect(memory.Get(), &all, back.Get());
  SetBkMode(memory.Get(), TRANSPARENT);
  SetTextColor(memory.Get(), kFore);
  RECT place = button.RunTime().TextRect;
  DrawTextW(memory.Get(), L"PSČ řů", -1, &place, DT_SINGLELINE | DT_NOCLIP);
  int different = 0;
  for (int y = 0; y < 23; ++y) {
    for (int x = 0; x < 81; ++x) different += GetPixel(memory.Get(), x, y) != pixels.At(x, y) ? 1 : 0;
  }
  EXPECT_EQ(different, 0);
}

TEST_F(TlTextPainting, AccessKeyIsUnderlinedAndItsMarkIsNotDrawn) {
  UseOrdinaryFace();
  button.SetDEBorder(3);  // no border
  for (const bool enabled : {true, false}) {
    button.SetEnabled(enabled);
    button.SetCaption(L"HHH");
    const Pixels plain = OnScreenNow();
    button.SetCaption(L"H&HH");
    const Pixels marked = OnScreenNow();
    const RECT letters = plain.Extent(enabled ? kFore : GetSysColor(COLOR_BTNSHADOW));
    const RECT underline = Differences(plain, marked);
    EXPECT_FALSE(IsRectEmpty(&underline)) << "enabled " << enabled;
    // Below the letters, under the one in the middle; embossed it has a light half below and right of its dark one.
    EXPECT_GE(underline.top, letters.bottom) << "enabled " << enabled;
    EXPECT_LE(underline.bottom - underline.top, enabled ? 1 : 2);
    const LONG third = (letters.right - letters.left) / 3;
    EXPECT_NEAR(underline.left, letters.left + third, 2) << "enabled " << enabled;
    EXPECT_NEAR(underline.right, letters.right - third, 2) << "enabled " << enabled;
  }
}

TEST_F(TlTextPainting, DisabledButtonStillDrawsItsBorderAndAnEmbossedCaption) {
  button.SetEnabled(false);
  EXPECT_TRUE(HasRaisedBorder(OnScreenNow()));
  UseOrdinaryFace();
  const Pixels pixels = OnScreenNow();
  EXPECT_EQ(pixels.Count(kFore), 0);
  EXPECT_GT(pixels.Count(GetSysColor(COLOR_BTNSHADOW)), 20);
}

TEST_F(TlTextPainting, TextColorIsNoReferenceToASystemColor) {
  // As a reference it would be the colour of highlighted text, white; as it stands its low bytes are taken.
  button.SetForeColor(0x8000000E);
  const Pixels pixels = OnScreenNow();
  EXPECT_GT(pixels.Count(RGB(0x0E, 0, 0)), 0);
}

TEST_F(TlTextPainting, HoverAndDownColorsAreNoReferencesEither) {
  button.SetMoveColor(0x8000000E);
  button.SetDownColor(0x8000000D);
  test::PointAt(Center());
  EXPECT_GT(OnScreenNow().Count(RGB(0x0E, 0, 0)), 0);
  test::PressButton();
  EXPECT_GT(OnScreenNow().Count(RGB(0x0D, 0, 0)), 0);
}

TEST_F(TlTextPainting, FocusMarksColorIsNoReferenceEither) {
  button.SetFocusColor(0x8000000E);
  button.SetFocus();
  EXPECT_EQ(OnScreenNow().Count(RGB(0x0E, 0, 0)), 81 + 23 - 1);
}

TEST_F(TlTextPainting, StoredValuesThatAreNotAllOnesAreNotZeroAllTheSame) {
  for (const std::int16_t stored : std::initializer_list<std::int16_t>{1, 2, -2}) {
    button.SetEnabled(Boolean::FromStored(stored));
    EXPECT_EQ(CaptionColor(OnScreenNow()), kFore) << stored;
    button.SetDEMove(Boolean::FromStored(stored));
    EXPECT_TRUE(HasNoBorder(OnScreenNow())) << stored;
    test::PointAt(Center());
    EXPECT_TRUE(HasRaisedBorder(OnScreenNow())) << stored;
    test::PointAt(Outside());
  }
}

TEST_F(TlTextPainting, BackgroundMayBeAReferenceToASystemColor) {
  button.SetBackColor(0x80000000 | COLOR_BTNFACE);
  EXPECT_EQ(OnScreenNow().At(5, 5), GetSysColor(COLOR_BTNFACE));
}

TEST_F(TlTextPainting, EmptyCaptionDrawsBorderOnly) {
  button.SetCaption(L"");
  const Pixels pixels = OnScreenNow();
  EXPECT_EQ(pixels.Count(kFore), 0);
  EXPECT_TRUE(HasRaisedBorder(pixels));
}

TEST_F(TlTextPainting, PrintedPictureIsTheOneOnTheScreen) {
  EXPECT_EQ(Pixels::OfPrint(button.Handle()), OnScreenNow());
}

TEST_F(TlTextPainting, ScalesWithItsForm) {
  const int narrow = static_cast<int>(Measured("HHH").cx);
  for (const unsigned dpi : {144U, 192U}) {
    form.ChangeDpi(dpi);
    const Pixels pixels = OnScreenNow();
    EXPECT_EQ(pixels.Width(), dpi == 144 ? 122 : 162);
    EXPECT_EQ(pixels.Height(), dpi == 144 ? 35 : 46);
    const int width = static_cast<int>(Measured("HHH").cx);
    EXPECT_NEAR(width, narrow * static_cast<int>(dpi) / 96, 6);
    EXPECT_EQ(button.RunTime().TextRect.left, HalfOfRest(pixels.Width(), width));
    EXPECT_TRUE(HasRaisedBorder(pixels));
    EXPECT_EQ(button.RunTime().FocusRect.left, 3);
  }
}

TEST_F(TlTextPainting, TenThousandRepaintsLeaveNoObjectBehind) {
  button.SetFocus();
  const auto repaint = [this] { RedrawWindow(button.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); };
  for (int i = 0; i < 10; ++i) repaint();
  const test::HandleCount before = test::CountHandles();
  button.TakePaints();
  for (int i = 0; i < 10000; ++i) repaint();
  EXPECT_EQ(button.TakePaints(), 10000);
  EXPECT_EQ(test::CountHandles(), before);
}

}  // namespace
}  // namespace kvez
