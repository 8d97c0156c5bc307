// How the button looks.
#include <algorithm>
#include <array>
#include <utility>

#include "controls/button_rules.h"
#include "controls/tlText.h"
#include "forms/contrast.h"
#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"

namespace kvez {
namespace {

/// What all buttons are drawn in, one after the other. It is kept, and so is the bitmap in it: making both, and even
/// selecting the bitmap, takes longer than the drawing.
class OffScreen {
 public:
  /// Makes room for `size` pixels like those of `window`. False when the system has none.
  bool Fit(HDC window, SIZE size) {
    if (!m_context) m_context.Reset(CreateCompatibleDC(window));
    if (!m_context) return false;
    if (m_bitmap && size.cx <= m_size.cx && size.cy <= m_size.cy) return true;
    const SIZE enough{std::max(size.cx, m_size.cx), std::max(size.cy, m_size.cy)};
    OwnedBitmap bitmap(CreateCompatibleBitmap(window, enough.cx, enough.cy));
    if (!bitmap || SelectObject(m_context.Get(), bitmap.Get()) == nullptr) return false;
    m_bitmap = std::move(bitmap);
    m_size = enough;
    return true;
  }
  HDC Context() const { return m_context.Get(); }

 private:
  OwnedBitmap m_bitmap;
  OwnedMemoryContext m_context;  // goes before the bitmap that is selected into it
  SIZE m_size{};
};

}  // namespace

void tlText::Repaint(const RECT& area) {
  if (Handle() != nullptr) Keep(RedrawWindow(Handle(), &area, nullptr, RDW_INVALIDATE | RDW_UPDATENOW));
}

void tlText::OnPaint() {
  // Not the context of BeginPaint: a hover change asks for the inside only, but the border may have changed with it.
  ValidateRect(Handle(), nullptr);
  const WindowContext window(Handle());
  const RECT& client = m_run.ClientRect;
  // Drawn out of sight first: no flicker, and no letters thickened by being drawn over themselves.
  static OffScreen offScreen;
  if (!offScreen.Fit(window.Get(), {client.right, client.bottom})) {
    Paint(window.Get());
    return;
  }
  Paint(offScreen.Context());
  Keep(BitBlt(window.Get(), 0, 0, client.right, client.bottom, offScreen.Context(), 0, 0, SRCCOPY));
}

void tlText::Paint(HDC context) {
  const ObjectSelection font(context, Font());
  FillRect(context, &m_run.ClientRect, BackBrush());
  SetBkMode(context, TRANSPARENT);

  PlaceCaption(context);
  // The colours go to the device as they are kept, even when they are references to system colours.
  Keep(static_cast<std::intptr_t>(SetTextColor(context, CaptionColor())));
  DrawCaption(context);

  RECT inside = m_run.ClientRect;
  if (m_run.HasFocus.IsTrue() && !m_run.IsDown.IsTrue()) DrawFocusMark(context, inside);
  if (m_deMove.IsZero() || m_run.IsOver.IsTrue()) {
    Keep(DrawEdge(context, &inside, GetEdgeStyle(m_deBorder, m_deMove, m_run.IsDown),
                  GetEdgeFlags(m_deBorder, m_deMove)));
  }
}

void tlText::DrawCaption(HDC context) {
  const RECT place = m_run.IsDown.IsTrue() ? ShiftedByOne(m_run.TextRect) : m_run.TextRect;
  UINT style = DST_PREFIXTEXT;
  if (Enabled().IsZero()) {
    // Where a theme leaves no relief, its own colour for what is disabled.
    if (forms::MakesRelief(BackColor(), GetSysColor(COLOR_3DHILIGHT), GetSysColor(COLOR_3DSHADOW))) {
      style |= DSS_DISABLED;
    } else {
      SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    }
  }
  Keep(CallWithDrawnText(
      context, m_caption,
      [&](const std::string& bytes) {
        return DrawStateA(context, nullptr, nullptr, reinterpret_cast<LPARAM>(bytes.c_str()),
                          static_cast<WPARAM>(lstrlenA(bytes.c_str())), place.left, place.top, 0, 0, style);
      },
      [&](const std::wstring& whole) {
        return DrawStateW(context, nullptr, nullptr, reinterpret_cast<LPARAM>(whole.c_str()),
                          static_cast<WPARAM>(lstrlenW(whole.c_str())), place.left, place.top, 0, 0, style);
      }));
}

void tlText::PlaceCaption(HDC context) {
  RECT measured{};
  constexpr UINT format = DT_CALCRECT | DT_SINGLELINE;
  Keep(CallWithDrawnText(
      context, m_caption,
      [&](const std::string& bytes) {
        return DrawTextA(context, bytes.c_str(), lstrlenA(bytes.c_str()), &measured, format);
      },
      [&](const std::wstring& whole) {
        return DrawTextW(context, whole.c_str(), lstrlenW(whole.c_str()), &measured, format);
      }));
  m_run.TextRect = CenteredText(m_run.ClientRect, {measured.right, measured.bottom});
}

/// The colour by the button's state. While the action of a click runs, the button looks normal and forgets the pointer.
COLORREF tlText::CaptionColor() {
  if (!m_run.IsOver.IsTrue() || !m_run.InAction.IsZero()) {
    m_run.IsOver = false;
    return ForeColor();
  }
  return m_run.IsDown.IsTrue() ? m_downColor : m_moveColor;
}

/// Leaves in `inside` what is left for the border.
void tlText::DrawFocusMark(HDC context, RECT& inside) {
  const LONG right = m_run.ClientRect.right;
  const LONG bottom = m_run.ClientRect.bottom;
  if (m_focusDraw == 0) {
    const OwnedPen pen(CreatePen(PS_SOLID, 1, m_focusColor));
    const ObjectSelection selection(context, pen.Get());
    const std::array<POINT, 3> line{{{right - 1, 0}, {right - 1, bottom - 1}, {-1, bottom - 1}}};
    Keep(Polyline(context, line.data(), static_cast<int>(line.size())));
    inside.right = right - 1;
    inside.bottom = bottom - 1;
  } else if (m_focusDraw == 1) {
    SetTextColor(context, ForeColor());
    Keep(DrawFocusRect(context, &m_run.FocusRect));
  }
}

}  // namespace kvez
