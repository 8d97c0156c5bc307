// The button's life: its creation, what its host and screen readers learn, its messages.
#include "controls/tlText.h"

#include <oleacc.h>

#include "forms/access_key.h"
#include "forms/form.h"

namespace kvez {

tlTextHost& tlTextHost::RunningForm() {
  static tlTextHost runningForm;
  return runningForm;
}

COLORREF tlTextHost::AmbientBackColor(const tlText&) const { return forms::Form::BackColor(); }
COLORREF tlTextHost::AmbientForeColor(const tlText&) const { return forms::Form::ForeColor(); }
std::wstring tlTextHost::DisplayName(const tlText& button) const { return button.DisplayName(); }
bool tlTextHost::IsCancelButton(const tlText& button) const { return button.OwnerForm().CancelButton() == &button; }
void tlTextHost::PropertyChanged(tlText&, std::wstring_view) {}
void tlTextHost::SetTabStop(tlText& button, bool tabStop) { button.forms::Control::SetTabStop(tabStop); }

tlText::~tlText() = default;

void tlText::Create(forms::Container& container, int id, const forms::Place& place, std::wstring_view displayName,
                    tlTextHost* host) {
  if (host != nullptr) m_host = host;
  m_displayName = displayName;
  Parameters parameters = Prepare(container, id, place, 0);
  // One device context for all buttons: making one for each takes longer than drawing it.
  parameters.classStyle = CS_CLASSDC;
  parameters.text = m_caption.c_str();
  CreateOwn(L"KvezTlText", parameters);
  m_run.Hwnd = Handle();
  m_run.HasFocus = m_run.IsShown = m_run.IsDown = m_run.IsOver = m_run.InAction = false;
  Finish();
}

void tlText::OnShown() {
  m_run.IsShown = true;
  m_host->SetTabStop(*this, m_focusDraw != 2);
}

void tlText::OnResize() {
  if (m_run.IsNew.IsTrue()) {
    m_run.IsNew = false;
    // The size of a newly placed button. Setting it comes back here, unless it happens to be the present one.
    Move({GetPlace().left, GetPlace().top, 1215, 345});
  }
  MeasureRectangles();
}

void tlText::MeasureRectangles() {
  GetClientRect(Handle(), &m_run.ClientRect);
  m_run.FocusRect = m_run.ClientRect;
  InflateRect(&m_run.FocusRect, -3, -3);
  // The caption moves with the size, not only the newly seen part changes.
  Invalidate();
}

void tlText::OnFontChanged() { Invalidate(); }

LRESULT tlText::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_PRINTCLIENT:
      Paint(reinterpret_cast<HDC>(wParam));
      return 0;
    case WM_ERASEBKGND:
      return 1;  // painting fills the background, in one step with the rest
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      if (!IsOverAnotherWindow()) return Control::OnMessage(message, wParam, lParam);
      GiveToTheWindowThere(message, wParam);
      return 0;
    case WM_CAPTURECHANGED:
      OnCaptureLost(reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_TIMER:
      OnWatch();
      return 0;
    case WM_NCDESTROY:
      m_run.Hwnd = nullptr;
      return Control::OnMessage(message, wParam, lParam);
    default:
      return Control::OnMessage(message, wParam, lParam);
  }
}

forms::AccessibleDescription tlText::Describe() const {
  forms::AccessibleDescription description = Control::Describe();
  if (!description.name) description.name = forms::WithoutAccessKeys(m_caption);
  description.role = ROLE_SYSTEM_PUSHBUTTON;
  LONG state = AccessibleState();
  if (m_run.IsDown.IsTrue()) state |= STATE_SYSTEM_PRESSED;
  if (m_run.IsOver.IsTrue()) state |= STATE_SYSTEM_HOTTRACKED;
  if (OwnerForm().DefaultButton() == this) state |= STATE_SYSTEM_DEFAULT;
  description.state = state;
  if (!m_accessKeys.empty()) description.keyboardShortcut = L"Alt+" + m_accessKeys;
  description.defaultAction = L"Stisknout";
  return description;
}

void tlText::DoDefaultAction() { RunAction(); }

}  // namespace kvez
