#include "forms/containers.h"

#include <oleacc.h>

#include <algorithm>
#include <cmath>

#include "forms/client_area.h"
#include "forms/form.h"
#include "platform/windows/owned.h"
#include "text/assertion.h"

namespace kvez::forms {
void Frame::Create(Container& container, int id, const Place& place, std::wstring_view caption) {
  Parameters parameters = Prepare(container, id, place, BS_GROUPBOX | WS_GROUP | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
  const std::wstring text(caption);
  parameters.text = text.c_str();
  CreateNative(L"BUTTON", parameters);
  Finish();
}

AccessibleDescription Frame::Describe() const {
  AccessibleDescription description = Control::Describe();
  description.role = ROLE_SYSTEM_GROUPING;
  description.state = AccessibleState();
  return description;
}

LRESULT Frame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto reflected = Reflect(message, wParam, lParam)) return *reflected;
  switch (message) {
    case WM_ERASEBKGND: {
      // A group box leaves its inside to the window behind; this one has to hide it.
      const RECT client = ClientOf(Handle());
      FillRect(reinterpret_cast<HDC>(wParam), &client, BackBrush());
      return 1;
    }
    case WM_NCHITTEST:
      // For the same reason it lets the mouse through to what lies behind.
      return HTCLIENT;
    default:
      return Control::OnMessage(message, wParam, lParam);
  }
}

void PictureBox::Create(Container& container, int id, const Place& place, PictureBorder border) {
  m_border = border;
  const DWORD style = border == PictureBorder::Single ? DWORD{WS_BORDER} : 0UL;
  const DWORD extended = border == PictureBorder::Sunken ? DWORD{WS_EX_CLIENTEDGE} : 0UL;
  Parameters parameters = Prepare(container, id, place, style | WS_CLIPCHILDREN, extended | WS_EX_CONTROLPARENT);
  // Quick start: a progress bar draws a thousand times, and fetching a device context each time would take longer than
  // the drawing.
  parameters.classStyle = CS_OWNDC;
  CreateOwn(L"KvezPicture", parameters);
  Finish();
}

float PictureBox::ScaleWidth() const {
  return static_cast<float>(ClientOf(Handle()).right) * Control::OwnerForm().TwipsPerPixel();
}

float PictureBox::ScaleHeight() const {
  return static_cast<float>(ClientOf(Handle()).bottom) * Control::OwnerForm().TwipsPerPixel();
}

void PictureBox::FillRectangle(float left, float top, float right, float bottom) {
  Assert(left <= right && top <= bottom, "the corners are in their order");
  const Filled filled{left, top, right, bottom, ForeColor()};
  const RECT pixels = ToPixels(filled);
  RECT fresh = pixels;
  // A growing bar is one rectangle, not one for each step, and only what it grows by is drawn.
  std::erase_if(m_filled, [&](const Filled& old) {
    if (old.left < left || old.top < top || old.right > right || old.bottom > bottom) return false;
    const RECT drawn = ToPixels(old);
    if (old.color == filled.color) SubtractRect(&fresh, &fresh, &drawn);
    return true;
  });
  m_filled.push_back(filled);
  if (Handle() == nullptr || IsRectEmpty(&fresh)) return;
  const OwnedBrush brush(CreateSolidBrush(filled.color));
  FillRect(WindowContext(Handle()).Get(), &fresh, brush.Get());
  if (m_isProgressBar) NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
}

void PictureBox::Cls() {
  m_filled.clear();
  Invalidate();
}

RECT PictureBox::ToPixels(const Filled& filled) const {
  const float twipsPerPixel = Control::OwnerForm().TwipsPerPixel();
  const auto pixels = [twipsPerPixel](float twips) { return std::lround(twips / twipsPerPixel); };
  return {pixels(filled.left), pixels(filled.top), pixels(filled.right), pixels(filled.bottom)};
}

void PictureBox::DrawInto(HDC context) const {
  const RECT client = ClientOf(Handle());
  FillRect(context, &client, BackBrush());
  for (const Filled& filled : m_filled) {
    const RECT pixels = ToPixels(filled);
    const OwnedBrush brush(CreateSolidBrush(filled.color));
    FillRect(context, &pixels, brush.Get());
  }
}

void PictureBox::OnPaint() {
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(Handle(), &paint);
  DrawInto(context);
  EndPaint(Handle(), &paint);
}

LRESULT PictureBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto reflected = Reflect(message, wParam, lParam)) return *reflected;
  switch (message) {
    case WM_ERASEBKGND:
      return 1;  // painting covers everything
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_PRINTCLIENT:
      DrawInto(reinterpret_cast<HDC>(wParam));
      return 0;
    default:
      return EventControl::OnMessage(message, wParam, lParam);
  }
}

COLORREF PictureBox::DefaultForeColor() const { return GetSysColor(COLOR_HIGHLIGHT); }

AccessibleDescription PictureBox::Describe() const {
  AccessibleDescription description = EventControl::Describe();
  description.role = ROLE_SYSTEM_PANE;
  description.state = AccessibleState();
  if (!m_isProgressBar) return description;
  float filled = 0;
  for (const Filled& rectangle : m_filled) filled = std::max(filled, rectangle.right);
  const float width = ScaleWidth();
  const long percent = width > 0 ? std::lround(std::clamp(filled / width, 0.0F, 1.0F) * 100) : 0;
  description.role = ROLE_SYSTEM_PROGRESSBAR;
  description.value = std::to_wstring(percent) + L" %";
  return description;
}

}  // namespace kvez::forms
