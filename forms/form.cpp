#include "forms/form.h"

#include <algorithm>

#include "forms/client_area.h"
#include "forms/dpi.h"
#include "forms/guard.h"
#include "forms/input.h"
#include "forms/menu_letter.h"
#include "forms/mouse_pointer.h"
#include "forms/pointer.h"
#include "text/assertion.h"

namespace kvez::forms {
namespace {

DWORD StyleOf(BorderStyle border) {
  constexpr DWORD common = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
  switch (border) {
    case BorderStyle::FixedSingle:
      return common | WS_MINIMIZEBOX;
    case BorderStyle::FixedDialog:
      return common | WS_POPUP;
    case BorderStyle::Sizable:
      return common | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_THICKFRAME;
  }
  return common;
}

DWORD ExtendedStyleOf(BorderStyle border) {
  return WS_EX_CONTROLPARENT | (border == BorderStyle::FixedDialog ? WS_EX_DLGMODALFRAME : 0UL);
}

}  // namespace

Form::Form(const FormDesign& design)
    : m_iconName(design.icon), m_clientWidth(design.clientWidth), m_clientHeight(design.clientHeight) {
  Parameters parameters;
  parameters.style = StyleOf(design.border);
  parameters.extendedStyle = ExtendedStyleOf(design.border);
  parameters.parent = design.owner != nullptr ? design.owner->Handle() : nullptr;
  parameters.classIcon = design.icon;
  // The scaling of its screen is known only when the window is there, but most often it is this one. A window is slow
  // to resize and slow to be given other icons than those of its class.
  const unsigned expectedDpi = SystemDpi();
  m_dpi = expectedDpi;
  m_scaling = FittingScaling(parameters.style, parameters.extendedStyle, parameters.parent);
  const SIZE outer = OuterSize(parameters.style, parameters.extendedStyle);
  parameters.pixels = {CW_USEDEFAULT, CW_USEDEFAULT, outer.cx, outer.cy};
  CreateOwn(design.className, parameters);
  m_dpi = WindowDpi(Handle());
  m_scaling = FittingScaling(parameters.style, parameters.extendedStyle, ScreenMate());
  ApplyClientSize();
  // The frame of a dialog is sure to show only an icon of its own.
  if (m_dpi != expectedDpi || design.border == BorderStyle::FixedDialog) ApplyIcons();
  Center();
  CreateFont();
  // Underlined access keys and focus marks are always shown: the drawn buttons always show theirs.
  SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

Form::~Form() {
  Assert(!m_loading && !m_asking && !m_unloading, "a form is not deleted in one of its own events");
  Assert(m_pauses == 0, "a form outlives its pauses");
  for (Timer* timer : m_timers) timer->m_form = nullptr;
  for (Control* control : m_controls) control->m_form = nullptr;
  DestroyHandle();
}

void Form::Load() {
  if (m_loaded || !IsOpen()) return;
  m_loaded = true;
  m_loading = true;
  try {
    Form_Load();
  } catch (...) {
    m_loading = false;
    throw;
  }
  m_loading = false;
}

void Form::Show() {
  Load();
  if (!IsOpen()) return;
  if (IsIconic(Handle())) ShowWindow(Handle(), SW_RESTORE);
  if (!m_shown) {
    m_shown = true;
    // The controls must know their place in the order of the Tab key before the focus looks for its first one.
    NotifyShown(nullptr);
  }
  ShowWindow(Handle(), SW_SHOW);
  SetForegroundWindow(Handle());
}

void Form::Hide() {
  if (IsOpen()) ShowWindow(Handle(), SW_HIDE);
}

bool Form::Unload(UnloadMode mode) {
  if (!IsOpen()) return true;
  // A second request while the first one still asks its question changes nothing.
  if (m_asking || m_unloading) return false;
  if (m_closingPauses > 0) {
    m_closingWaits = true;
    return false;
  }
  const bool agreed = AsksToUnload(mode);
  // The end of the session may have come while the question was open.
  if (!IsOpen()) return true;
  if (!agreed) return false;
  m_unloading = true;
  std::int16_t cancel = 0;
  const bool done = Guarded([&] { Form_Unload(cancel); });
  m_unloading = false;
  if (!done || cancel != 0) return false;
  return DestroyAndTerminate();
}

bool Form::AsksToUnload(UnloadMode mode) {
  std::int16_t cancel = 0;
  m_asking = true;
  const bool asked = Guarded([&] { Form_QueryUnload(cancel, mode); });
  m_asking = false;
  return asked && cancel == 0;
}

bool Form::DestroyAndTerminate() {
  for (Timer* timer : m_timers) timer->SetEnabled(false);
  DestroyHandle();
  Guarded([this] { Form_Terminate(); });
  return true;
}

std::wstring Form::Caption() const {
  std::wstring text(static_cast<std::size_t>(std::max(GetWindowTextLengthW(Handle()), 0)), L'\0');
  if (!text.empty()) GetWindowTextW(Handle(), text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

void Form::SetCaption(std::wstring_view caption) {
  if (IsOpen()) SetWindowTextW(Handle(), std::wstring(caption).c_str());
}

void Form::ApplyIcons() {
  if (m_iconName == nullptr) return;
  const auto load = [this](int widthMetric, int heightMetric) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), m_iconName, IMAGE_ICON,
                                         SystemMetric(widthMetric, m_dpi), SystemMetric(heightMetric, m_dpi),
                                         LR_DEFAULTCOLOR));
  };
  OwnedIcon smallIcon(load(SM_CXSMICON, SM_CYSMICON));
  OwnedIcon largeIcon(load(SM_CXICON, SM_CYICON));
  // The large one first: for the small one alone, the system would load a large one of its own.
  SendMessageW(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon.Get()));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon.Get()));
  m_smallIcon = std::move(smallIcon);
  m_largeIcon = std::move(largeIcon);
}

LRESULT Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto reflected = Reflect(message, wParam, lParam)) return *reflected;
  switch (message) {
    case WM_CLOSE:
      Unload(UnloadMode::User);
      return 0;
    case WM_DESTROY:
      // A sent message may be what destroys the form; it wakes none of the loops around, a dialog's among them.
      PostMessageW(nullptr, WM_NULL, 0, 0);
      return Native(message, wParam, lParam);
    case WM_SIZE:
      OnSize(wParam);
      return 0;
    case WM_EXITMENULOOP:
      Pointer::RememberWhereItIs();
      m_handedFrom = nullptr;  // the menu may have seen the release
      return Native(message, wParam, lParam);
    case WM_MENUCHAR:
      if ((HIWORD(wParam) & MF_SYSMENU) != 0) return Native(message, wParam, lParam);
      return AnswerMenuLetter(reinterpret_cast<HMENU>(lParam), static_cast<wchar_t>(LOWORD(wParam)));
    case WM_ACTIVATE:
      OnActivate(LOWORD(wParam) != WA_INACTIVE);
      return 0;
    case WM_SETFOCUS:
      OnSetFocus();
      return 0;
    case WM_ERASEBKGND:
      return OnEraseBackground(reinterpret_cast<HDC>(wParam));
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_DPICHANGED:
      OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_DISPLAYCHANGE:
      OnDisplayChange();
      return Native(message, wParam, lParam);
    case WM_QUERYENDSESSION:
      return OnQueryEndSession((static_cast<DWORD>(lParam) & ENDSESSION_CRITICAL) != 0);
    case WM_ENDSESSION:
      OnEndSession(wParam != 0);
      return 0;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      OnSystemLook(message, wParam, lParam);
      return Native(message, wParam, lParam);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: {
      // No control has the focus.
      auto keyCode = static_cast<std::int16_t>(wParam);
      m_keyIsRepeated = IsRepeated(lParam);
      PreviewKey(keyCode, ShiftState());
      return keyCode == 0 ? 0 : Native(message, wParam, lParam);
    }
    case WM_SETCURSOR:
      if (const HCURSOR pointer = SystemPointer(Screen::MousePointer())) {
        SetCursor(pointer);
        return TRUE;
      }
      return Native(message, wParam, lParam);
    default:
      return Native(message, wParam, lParam);
  }
}

LRESULT Form::OnEraseBackground(HDC context) {
  const RECT client = ClientOf(Handle());
  FillRect(context, &client, GetSysColorBrush(COLOR_BTNFACE));
  return 1;
}

void Form::OnTimer(UINT_PTR id) {
  // A tick may still wait in the queue after its timer is stopped or gone.
  const auto found = std::find_if(m_timers.begin(), m_timers.end(),
                                  [id](const Timer* timer) { return reinterpret_cast<UINT_PTR>(timer) == id; });
  if (found != m_timers.end() && (*found)->m_enabled && (*found)->Elapsed) (*found)->Elapsed();
}

LRESULT Form::OnQueryEndSession(bool critical) {
  // The question is open already, and nobody knows the answer.
  if (m_asking && !critical) return FALSE;
  // A critical end comes whatever the answer is.
  m_sessionEnds = critical || m_unloading || AsksToUnload(UnloadMode::SessionEnd);
  return m_sessionEnds ? TRUE : FALSE;
}

void Form::OnEndSession(bool ending) {
  if (!ending) m_sessionEnds = false;
  if (!ending || !IsOpen() || m_unloading) return;
  // Once this returns, the process may be gone: whatever is open, a question included, everything ends now.
  m_unloading = true;
  std::int16_t ignored = 0;
  Guarded([&] { Form_Unload(ignored); });
  m_unloading = false;
  DestroyAndTerminate();
}

}  // namespace kvez::forms
