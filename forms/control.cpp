#include "forms/control.h"

#include <oleacc.h>

#include <algorithm>
#include <limits>

#include "forms/access_key.h"
#include "forms/accessible.h"
#include "forms/form.h"
#include "forms/input.h"
#include "forms/mouse_pointer.h"
#include "forms/pointer.h"
#include "forms/private_messages.h"
#include "forms/reach.h"
#include "forms/text_ruler.h"
#include "text/error.h"

namespace kvez::forms {

std::optional<LRESULT> Container::Reflect(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSTATIC:
      break;
    default:
      return std::nullopt;
  }
  auto* control = dynamic_cast<Control*>(Window::FromHandle(reinterpret_cast<HWND>(lParam)));
  if (control == nullptr) return std::nullopt;
  if (message != WM_COMMAND) return control->OnColor(reinterpret_cast<HDC>(wParam));
  control->OnCommand(HIWORD(wParam));
  return 0;
}

Control::~Control() {
  if (m_life) *m_life = nullptr;
  DestroyHandle();
  if (m_form != nullptr) m_form->Unregister(*this);
}

Window::Parameters Control::Prepare(Container& container, int id, const Place& place, DWORD style,
                                    DWORD extendedStyle) {
  m_form = &container.OwnerForm();
  m_parent = container.ContainerHandle();
  Assert(m_parent != nullptr, "the container is there before its controls");
  m_place = place;
  Parameters parameters;
  parameters.style = style | WS_CHILD | WS_CLIPSIBLINGS | (m_visible ? DWORD{WS_VISIBLE} : 0UL) |
                     (m_enabled.IsZero() ? DWORD{WS_DISABLED} : 0UL);
  parameters.extendedStyle = extendedStyle;
  parameters.parent = m_parent;
  parameters.id = id;
  parameters.pixels = {m_form->ToPixels(place.left), m_form->ToPixels(place.top), m_form->ToPixels(place.width),
                       m_form->ToPixels(place.height)};
  return parameters;
}

void Control::Finish() {
  m_life = std::make_shared<Control*>(this);
  m_form->Register(*this);
  ApplyFont();
}

void Control::Move(const Place& place) {
  if (place == m_place) return;
  m_place = place;
  ApplyPlace();
}

void Control::ApplyPlace() {
  if (Handle() == nullptr) return;
  SetWindowPos(Handle(), nullptr, m_form->ToPixels(m_place.left), m_form->ToPixels(m_place.top),
               m_form->ToPixels(m_place.width), m_form->ToPixels(m_place.height), SWP_NOZORDER | SWP_NOACTIVATE);
}

void Control::Rescale() {
  ApplyFont();
  ApplyPlace();
  RenewToolTip();
}

void Control::SetVisible(bool visible) {
  if (visible == m_visible) return;
  if (!visible && Handle() != nullptr) m_form->LeaveFocus(*this);
  m_visible = visible;
  if (Handle() == nullptr) return;
  ShowWindow(Handle(), visible ? SW_SHOWNA : SW_HIDE);
  if (visible) m_form->NotifyShown(this);
}

void Control::SetEnabled(Boolean enabled) {
  const bool changes = enabled.IsZero() != m_enabled.IsZero();
  if (changes && enabled.IsZero() && Handle() != nullptr) m_form->LeaveFocus(*this);
  m_enabled = enabled;
  if (changes && Handle() != nullptr) EnableWindow(Handle(), !enabled.IsZero());
}

void Control::SetFocus() {
  if (Handle() == nullptr) return;
  if (GetActiveWindow() == m_form->Handle()) {
    // The system would let a hidden or disabled control swallow all keys.
    if (IsWindowVisible(Handle()) && IsWindowEnabled(Handle())) ::SetFocus(Handle());
  } else {
    // Taking the focus would bring the form in front of what the user works in; it comes with the next activation.
    m_form->m_focusWhenActive = Handle();
  }
}

bool Control::HasKeyboardFocus() const { return Handle() != nullptr && GetFocus() == Handle(); }

void Control::BringToFront() {
  if (Handle() != nullptr) SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Control::SetToolTipText(std::wstring_view text) {
  if (text == m_toolTipText) return;
  m_toolTipText = text;
  RenewToolTip();
}

void Control::RenewToolTip() {
  if (m_hasToolTip && Handle() != nullptr) m_form->m_toolTip.Renew(*this);
}

COLORREF Control::BackColor() const { return m_backColor.value_or(DefaultBackColor()); }
COLORREF Control::ForeColor() const { return m_foreColor.value_or(DefaultForeColor()); }
COLORREF Control::DefaultBackColor() const { return GetSysColor(COLOR_BTNFACE); }
COLORREF Control::DefaultForeColor() const { return GetSysColor(COLOR_BTNTEXT); }

void Control::SetBackColor(COLORREF color) {
  m_backColor = color;
  Invalidate();
}

void Control::SetForeColor(COLORREF color) {
  m_foreColor = color;
  Invalidate();
}

void Control::SetMousePointer(std::int32_t shape) {
  using Narrow = std::numeric_limits<std::int16_t>;
  if (shape < Narrow::min() || shape > Narrow::max()) throw OverflowError();
  m_mousePointer = static_cast<std::int16_t>(shape);
}

void Control::Invalidate() {
  if (Handle() != nullptr && IsWindowVisible(Handle())) InvalidateRect(Handle(), nullptr, TRUE);
}

COLORREF Control::SeenBackColor() const {
  constexpr COLORREF kSystemReference = 0x80000000;
  const COLORREF color = BackColor();
  return (color & kSystemReference) != 0 ? GetSysColor(static_cast<int>(color & 0xFF)) : color;
}

HBRUSH Control::BackBrush() const {
  const COLORREF color = SeenBackColor();
  if (!m_backBrush || color != m_backBrushColor) {
    m_backBrush.Reset(CreateSolidBrush(color));
    m_backBrushColor = color;
  }
  return m_backBrush.Get();
}

void Control::SetFontStyle(FontStyle style) {
  Assert(style.percent > 0, "a font has a size");
  if (style == m_fontStyle) return;
  m_fontStyle = style;
  ApplyFont();
}

HFONT Control::Font() const { return m_ownFont ? m_ownFont.Get() : m_form->Font(); }

void Control::ApplyFont() {
  if (Handle() == nullptr) return;
  OwnedFont font = MakeOwnFont();
  // The window must have its new font before the old one goes.
  Native(WM_SETFONT, reinterpret_cast<WPARAM>(font ? font.Get() : m_form->Font()), IsWindowVisible(Handle()));
  m_ownFont = std::move(font);
  OnFontChanged();
}

/// Null where the form's font will do.
OwnedFont Control::MakeOwnFont() const {
  OwnedFont font;
  LOGFONTW description = m_form->FontDescription();
  if (m_fontStyle != FontStyle{}) {
    description.lfHeight = MulDiv(description.lfHeight, m_fontStyle.percent, 100);
    if (m_fontStyle.bold) description.lfWeight = FW_BOLD;
    if (m_fontStyle.face != nullptr) lstrcpynW(description.lfFaceName, m_fontStyle.face, LF_FACESIZE);
    font.Reset(CreateFontIndirectW(&description));
  }
  const int room = LineRoom();
  if (room <= 0) return font;
  const int lineHeight = font ? LineHeight(font.Get()) : m_form->LineHeight();
  if (lineHeight <= room) return font;
  FitLine(description, lineHeight, room);
  return OwnedFont(CreateFontIndirectW(&description));
}

void Control::Refresh() {
  if (Handle() != nullptr) UpdateWindow(Handle());
}

bool Control::IsReachable(const Control* leaving) const { return m_tabStop && CanBeReached(*this, leaving); }

bool Control::HasAccessKey(wchar_t character) const {
  std::wstring caption(static_cast<std::size_t>(std::max(GetWindowTextLengthW(Handle()), 0)), L'\0');
  if (!caption.empty()) GetWindowTextW(Handle(), caption.data(), static_cast<int>(caption.size()) + 1);
  return IsSameLetter(AccessKeyOf(caption), character);
}

bool Control::AccessKeyPress(std::int16_t) {
  if (!IsReachable()) return false;
  SetFocus();
  return true;
}

bool Control::MoveInGroup(WPARAM) { return false; }

AccessibleDescription Control::Describe() const {
  AccessibleDescription description;
  if (!m_accessibleName.empty()) description.name = m_accessibleName;
  if (!m_toolTipText.empty()) description.description = m_toolTipText;
  return description;
}

LONG Control::AccessibleState() const {
  LONG state = 0;
  if (!IsWindowVisible(Handle())) state |= STATE_SYSTEM_INVISIBLE;
  if (!IsWindowEnabled(Handle())) {
    state |= STATE_SYSTEM_UNAVAILABLE;
  } else if (m_tabStop) {
    state |= STATE_SYSTEM_FOCUSABLE;
  }
  if (HasKeyboardFocus()) state |= STATE_SYSTEM_FOCUSED;
  return state;
}

void Control::OnCommand(UINT) {}

LRESULT Control::OnColor(HDC context) {
  SetTextColor(context, m_enabled.IsZero() ? GetSysColor(COLOR_GRAYTEXT) : ForeColor());
  SetBkColor(context, SeenBackColor());
  return reinterpret_cast<LRESULT>(BackBrush());
}

LRESULT Control::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP:
      return OnKey(message, wParam, lParam);
    case WM_CHAR:
      return OnChar(wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
    case WM_MOUSEMOVE:
      return OnMouse(message, wParam, lParam);
    case WM_RBUTTONDBLCLK:
      // Of two quick clicks the second one is a click, too.
      m_pressedButtons = static_cast<std::int16_t>(m_pressedButtons | kRightButton);
      return Native(message, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Native(message, wParam, lParam);
      if (Handle() == nullptr) return 0;
      if (message == WM_KILLFOCUS) m_form->KeepInMind(*this, reinterpret_cast<HWND>(wParam));
      message == WM_SETFOCUS ? OnGotFocus() : OnLostFocus();
      return 0;
    case WM_NCPAINT:
      // Without a frame there is nothing to draw; the system would look for it as long as the painting itself takes.
      return HasFrame() ? Native(message, wParam, lParam) : 0;
    case WM_SETCURSOR:
      return SetPointer(LOWORD(lParam)) ? TRUE : Native(message, wParam, lParam);
    case WM_SIZE: {
      const LRESULT result = Native(message, wParam, lParam);
      OnResize();
      return result;
    }
    case WM_GETOBJECT:
      if (const auto answer = AnswerGetObject(*this, m_life, wParam, lParam)) return *answer;
      return Native(message, wParam, lParam);
    case kDoDefaultActionMessage:
      if (CanBeReached(*this)) DoDefaultAction();
      return 0;
    case BM_CLICK:
      // What a screen reader presses a button of the system with.
      return CanBeReached(*this) ? Native(message, wParam, lParam) : 0;
    default:
      return Native(message, wParam, lParam);
  }
}

bool Control::HasFrame() const {
  constexpr LONG_PTR kFrames = WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_HSCROLL | WS_VSCROLL;
  constexpr LONG_PTR kExtendedFrames = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE | WS_EX_WINDOWEDGE | WS_EX_DLGMODALFRAME;
  return (GetWindowLongPtrW(Handle(), GWL_STYLE) & kFrames) != 0 ||
         (GetWindowLongPtrW(Handle(), GWL_EXSTYLE) & kExtendedFrames) != 0;
}

LRESULT Control::OnKey(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
  const std::int16_t shift = ShiftState();
  auto keyCode = static_cast<std::int16_t>(wParam);
  m_form->m_keyIsRepeated = down && IsRepeated(lParam);
  if (down) m_form->PreviewKey(keyCode, shift);
  if (keyCode == 0 || Handle() == nullptr) return 0;
  const bool passOn = down ? OnKeyDown(keyCode, shift) : OnKeyUp(keyCode, shift);
  if (!passOn || keyCode == 0 || Handle() == nullptr) return 0;
  return Native(message, static_cast<WPARAM>(keyCode), lParam);
}

LRESULT Control::OnChar(WPARAM wParam, LPARAM lParam) {
  const auto typed = static_cast<wchar_t>(wParam);
  const std::int16_t before = ToKeyAscii(typed);
  std::int16_t keyAscii = before;
  if (!OnKeyPress(keyAscii) || keyAscii == 0 || Handle() == nullptr) return 0;
  // An unchanged character goes on as it was typed: the code page may not even have it.
  const wchar_t character = keyAscii == before ? typed : FromKeyAscii(keyAscii);
  return Native(WM_CHAR, character, lParam);
}

void Control::NotePointer(UINT message, WPARAM wParam, LPARAM lParam) {
  POINT place = {static_cast<std::int16_t>(LOWORD(lParam)), static_cast<std::int16_t>(HIWORD(lParam))};
  ClientToScreen(Handle(), &place);
  m_pointerHasMoved = Pointer::HasMovedTo(place);
  const auto change = [this](std::int16_t button, bool down) {
    m_wasPressedHere = (m_pressedButtons & button) != 0;
    m_pressedButtons = static_cast<std::int16_t>(down ? m_pressedButtons | button : m_pressedButtons & ~button);
  };
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
      return change(kLeftButton, message == WM_LBUTTONDOWN);
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      return change(kRightButton, message == WM_RBUTTONDOWN);
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
      return change(kMiddleButton, message == WM_MBUTTONDOWN);
    default:
      // A button that came up somewhere else is no longer pressed here.
      m_pressedButtons = static_cast<std::int16_t>(m_pressedButtons & HeldButtons(wParam));
  }
}

LRESULT Control::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  NotePointer(message, wParam, lParam);
  // The system's control first: a list box selects, and so raises Click, before it tells of the button.
  const LRESULT result = Native(message, wParam, lParam);
  if (Handle() == nullptr) return result;
  // Quick start: not before, as nobody has asked for forty tooltips.
  if (message == WM_MOUSEMOVE && !m_hasToolTip) m_hasToolTip = m_form->m_toolTip.Watch(*this);
  const float twipsPerPixel = m_form->TwipsPerPixel();
  const float x = static_cast<float>(static_cast<std::int16_t>(LOWORD(lParam))) * twipsPerPixel;
  const float y = static_cast<float>(static_cast<std::int16_t>(HIWORD(lParam))) * twipsPerPixel;
  const std::int16_t shift = ShiftState();
  switch (message) {
    case WM_LBUTTONDOWN:
      OnMouseDown(kLeftButton, shift, x, y);
      break;
    case WM_RBUTTONDOWN:
      OnMouseDown(kRightButton, shift, x, y);
      break;
    case WM_MBUTTONDOWN:
      OnMouseDown(kMiddleButton, shift, x, y);
      break;
    case WM_LBUTTONUP:
      OnMouseUp(kLeftButton, shift, x, y);
      break;
    case WM_RBUTTONUP:
      OnMouseUp(kRightButton, shift, x, y);
      break;
    case WM_MBUTTONUP:
      OnMouseUp(kMiddleButton, shift, x, y);
      break;
    default:
      OnMouseMove(HeldButtons(wParam), shift, x, y);
      break;
  }
  return result;
}

bool Control::SetPointer(UINT hitTest) const {
  HCURSOR pointer = SystemPointer(Screen::MousePointer());
  if (pointer == nullptr && hitTest == HTCLIENT) {
    pointer = m_mousePointer == kPointerCustom ? m_customPointer : SystemPointer(m_mousePointer);
  }
  if (pointer == nullptr) return false;
  SetCursor(pointer);
  return true;
}

bool Control::OnKeyDown(std::int16_t&, std::int16_t) { return true; }
bool Control::OnKeyUp(std::int16_t&, std::int16_t) { return true; }
bool Control::OnKeyPress(std::int16_t&) { return true; }

bool EventControl::OnKeyDown(std::int16_t& keyCode, std::int16_t shift) {
  if (KeyDown) KeyDown(keyCode, shift);
  return true;
}

bool EventControl::OnKeyUp(std::int16_t& keyCode, std::int16_t shift) {
  if (KeyUp) KeyUp(keyCode, shift);
  return true;
}

bool EventControl::OnKeyPress(std::int16_t& keyAscii) {
  if (KeyPress) KeyPress(keyAscii);
  return true;
}

void EventControl::OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
  if (MouseDown) MouseDown(button, shift, x, y);
}

void EventControl::OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y) {
  if (MouseMove) MouseMove(button, shift, x, y);
}

void EventControl::OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
  if (MouseUp) MouseUp(button, shift, x, y);
}

void EventControl::OnGotFocus() {
  if (GotFocus) GotFocus();
}

void EventControl::OnLostFocus() {
  if (LostFocus) LostFocus();
}

}  // namespace kvez::forms
