// What the button does with the pointer, the keyboard and its action.
#include "controls/tlText.h"
#include "forms/access_key.h"
#include "forms/form.h"
#include "forms/input.h"
#include "forms/input_gate.h"
#include "forms/reach.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

// The system sends no movement to the button, capture or not, once the pointer is over another program's window: the
// button looks for itself, this often, as long as it believes the pointer to be over it.
constexpr UINT_PTR kWatchTimer = 1;
constexpr UINT kWatchMilliseconds = 100;

/// A flag for the time of an action, whatever way the action ends.
class Raised {
 public:
  explicit Raised(Boolean& flag) : m_flag(flag) { m_flag = true; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { m_flag = false; }

 private:
  Boolean& m_flag;
};

/// Whether a key's code is that of the letter, small or capital.
bool IsCodeOf(std::int16_t keyAscii, std::wstring_view letter) {
  return CallWithText(
      letter,
      [&](const std::string& bytes) {
        std::string lower = bytes;
        std::string upper = bytes;
        CharLowerA(lower.data());
        CharUpperA(upper.data());
        const auto code = [](const std::string& text) { return static_cast<unsigned char>(text.front()); };
        return keyAscii == code(lower) || keyAscii == code(upper);
      },
      [&](const std::wstring& whole) {
        std::wstring lower = whole;
        std::wstring upper = whole;
        CharLowerW(lower.data());
        CharUpperW(upper.data());
        // The code of what the code page lacks stands for all such letters; which one it was is known before.
        return keyAscii == forms::ToKeyAscii(lower.front()) || keyAscii == forms::ToKeyAscii(upper.front());
      });
}

}  // namespace

void tlText::OnGotFocus() {
  m_run.HasFocus = true;
  Repaint(m_run.ClientRect);
}

void tlText::OnLostFocus() {
  if (!m_run.HasFocus.IsTrue()) return;
  m_run.HasFocus = false;
  m_run.IsOver = false;
  SetDown(false);
  Repaint(m_run.ClientRect);
}

void tlText::SetDown(bool down) {
  if (m_run.IsDown.IsTrue() == down) return;
  m_run.IsDown = down;
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
}

// The pointer

bool tlText::PointerIsInside() const {
  // A button that was hidden under the pointer must not keep the pointer for itself.
  if (!IsWindowVisible(Handle())) return false;
  POINT pointer{};
  GetCursorPos(&pointer);
  // Another window may lie over this place.
  if (WindowFromPoint(pointer) != Handle()) return false;
  ScreenToClient(Handle(), &pointer);
  return PtInRect(&m_run.ClientRect, pointer) != FALSE;
}

/// A press or release has come here only because the button holds the pointer: a window has appeared over it since.
bool tlText::IsOverAnotherWindow() const {
  POINT pointer{};
  return GetCapture() == Handle() && GetCursorPos(&pointer) && WindowFromPoint(pointer) != Handle();
}

void tlText::GiveToTheWindowThere(UINT message, WPARAM wParam) {
  POINT place{};
  GetCursorPos(&place);
  const HWND there = WindowFromPoint(place);
  ReleaseOwnCapture();
  Leave();
  // A release alone is nobody's click, and another program gets its next press by itself.
  const bool isPress = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN;
  if (!isPress || GetWindowThreadProcessId(there, nullptr) != GetCurrentThreadId()) return;
  const HWND root = GetAncestor(there, GA_ROOT);
  if (root != GetActiveWindow()) SetForegroundWindow(root);
  const LRESULT area = SendMessageW(there, WM_NCHITTEST, 0, MAKELPARAM(place.x, place.y));
  if (area != HTCLIENT) {
    const UINT outside = message == WM_LBUTTONDOWN ? WM_NCLBUTTONDOWN : WM_NCRBUTTONDOWN;
    PostMessageW(there, outside, static_cast<WPARAM>(area), MAKELPARAM(place.x, place.y));
    return;
  }
  ScreenToClient(there, &place);
  PostMessageW(there, message, wParam, MAKELPARAM(place.x, place.y));
}

void tlText::OnFormDeactivated() {
  // What comes to the front may lie over the pointer. If it does not, the next movement enters anew.
  if (GetCapture() != Handle()) return;
  ReleaseOwnCapture();
  Leave();
}

void tlText::TakeCapture() {
  ReleaseCapture();
  SetCapture(Handle());
  SetTimer(Handle(), kWatchTimer, kWatchMilliseconds, nullptr);
}

void tlText::ReleaseOwnCapture() {
  KillTimer(Handle(), kWatchTimer);
  m_releasingCapture = true;
  ReleaseCapture();
  m_releasingCapture = false;
}

void tlText::RaiseMouseMoveEnabled(bool inside) {
  m_pointerAnnounced = inside;
  if (MouseMoveEnabled) MouseMoveEnabled(inside);
}

void tlText::TrackPointer() {
  if (!PointerIsInside()) {
    ReleaseOwnCapture();
    Leave();
    return;
  }
  if (GetCapture() != Handle()) TakeCapture();
  if (m_run.IsOver.IsTrue()) return;
  m_run.IsOver = true;
  RaiseMouseMoveEnabled(true);
  // The border comes and goes with the pointer only when it is not always there.
  Repaint(m_deMove.IsTrue() ? m_run.ClientRect : m_run.FocusRect);
}

void tlText::Leave() {
  m_run.IsOver = false;
  SetDown(false);
  // Whatever IsOver was: the host may still show what it was told on entering.
  RaiseMouseMoveEnabled(false);
  Repaint(m_deMove.IsTrue() ? m_run.ClientRect : m_run.FocusRect);
}

void tlText::OnCaptureLost(HWND taker) {
  if (m_releasingCapture || taker == Handle()) return;
  KillTimer(Handle(), kWatchTimer);
  // Somebody else has the pointer now, a message box or another program: there will be no movement out of here.
  if (!m_pointerAnnounced) return;
  Leave();
}

void tlText::OnWatch() {
  if (PointerIsInside()) return;
  ReleaseOwnCapture();
  if (m_pointerAnnounced) Leave();
}

void tlText::OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y) {
  TrackPointer();
  if (MouseMove) MouseMove(button, shift, x, y);
}

void tlText::OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
  if (button != forms::kLeftButton) return;
  // To the window that holds the pointer the system gives a press without bringing it to the front.
  const HWND form = OwnerForm().Handle();
  if (GetActiveWindow() != form || GetForegroundWindow() != form) SetForegroundWindow(form);
  if (!HasKeyboardFocus() && forms::CanBeReached(*this)) SetFocus();
  SetDown(true);
  Repaint(m_run.ClientRect);
  if (MouseDown) MouseDown(button, shift, x, y);
}

void tlText::OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
  if (button != forms::kLeftButton) return;
  // The action runs whether or not the press began here.
  SetDown(false);
  const Raised inAction(m_run.InAction);
  Repaint(m_run.ClientRect);
  if (MouseUp) MouseUp(button, shift, x, y);
  PerformAction(false);
}

// The keyboard

bool tlText::OnKeyDown(std::int16_t& keyCode, std::int16_t shift) {
  // With Alt, the space bar opens the window's menu.
  if (m_run.IsDown.IsTrue() || keyCode != VK_SPACE || (shift & forms::kAltMask) != 0) return true;
  SetDown(true);
  m_run.IsOver = true;
  Repaint(m_run.ClientRect);
  return true;
}

bool tlText::OnKeyUp(std::int16_t& keyCode, std::int16_t shift) {
  // Every release acts, even when the press was not seen.
  if (keyCode == VK_SPACE && (shift & forms::kAltMask) == 0) RunAction();
  return true;
}

bool tlText::OnKeyPress(std::int16_t& keyAscii) {
  if (KeyPress) KeyPress(keyAscii);
  return true;
}

bool tlText::HasAccessKey(wchar_t character) const {
  return !m_accessKeys.empty() && forms::IsSameLetter(m_accessKeys.front(), character);
}

bool tlText::AccessKeyPress(std::int16_t KeyAscii) {
  if (KeyAscii == VK_RETURN) {
    PerformAction(false);
    return true;
  }
  if (KeyAscii == VK_ESCAPE) {
    if (!m_host->IsCancelButton(*this)) return false;
    PerformAction(false);
    return true;
  }
  if (m_accessKeys.empty() || !IsCodeOf(KeyAscii, m_accessKeys)) return false;
  PerformAction(false);
  return true;
}

// The action

void tlText::RunAction() {
  SetDown(false);
  const Raised inAction(m_run.InAction);
  m_run.IsOver = false;
  Repaint(m_run.ClientRect);
  PerformAction(false);
}

void tlText::PerformAction(bool applyDefaults) {
  if (applyDefaults) {
    switch (m_seMode) {
      case 0:
        SetCaption(m_host->DisplayName(*this));
        SetSEParameters({});
        SetSEFile({});
        break;
      case 1:
        SetCaption(L"Internet");
        SetSEParameters({});
        break;
      case 2:
        SetCaption(L"E-mail");
        SetSEParameters({});
        break;
      case 3:
        SetCaption(L"Run-file");
        break;
      default:
        break;
    }
    return;
  }
  // Whatever way the button was pressed: its host may be in the middle of something.
  if (!forms::TakesInput(OwnerForm())) return;
  switch (m_seMode) {
    case 0:
      if (Click) Click();
      break;
    case 1:
      ShellOpen(L"http://" + m_seFile);
      break;
    case 2:
      ShellOpen(L"mailto:" + m_seFile);
      break;
    case 3:
      ShellOpen(m_seFile);
      break;
    default:
      break;
  }
}

void tlText::ShellOpen(const std::wstring& target) {
  const HINSTANCE result = CallWithTexts(
      target, m_seParameters,
      [&](const std::string& file, const std::string& parameters) {
        const ShellExecuteFunction execute =
            m_shellExecute ? m_shellExecute
                           : RequiredFunction<decltype(ShellExecuteA)>(L"shell32.dll", "ShellExecuteA");
        return execute(nullptr, nullptr, file.c_str(), parameters.c_str(), nullptr, SW_SHOWNORMAL);
      },
      [&](const std::wstring& file, const std::wstring& parameters) {
        const WideShellExecuteFunction execute =
            m_wideShellExecute ? m_wideShellExecute
                               : RequiredFunction<decltype(ShellExecuteW)>(L"shell32.dll", "ShellExecuteW");
        return execute(nullptr, nullptr, file.c_str(), parameters.c_str(), nullptr, SW_SHOWNORMAL);
      });
  // A failed opening shows no message.
  Keep(reinterpret_cast<std::intptr_t>(result));
}

}  // namespace kvez
