#include "forms/label.h"

#include <oleacc.h>

#include <algorithm>
#include <utility>

#include "forms/accessible.h"
#include "forms/form.h"
#include "forms/text_ruler.h"

namespace kvez::forms {
namespace {

DWORD StyleOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::Left:
      return SS_LEFT;
    case Alignment::Right:
      return SS_RIGHT;
    case Alignment::Center:
      return SS_CENTER;
  }
  return SS_LEFT;
}

}  // namespace

void Label::Create(Container& container, int id, const Place& place, std::wstring_view caption, Alignment alignment,
                   bool accessKey) {
  m_accessKey = accessKey;
  Parameters parameters = Prepare(
      container, id, place, StyleOf(alignment) | SS_ENDELLIPSIS | SS_NOTIFY | (accessKey ? 0UL : DWORD{SS_NOPREFIX}));
  const std::wstring text(caption);
  parameters.text = text.c_str();
  if (text.empty()) parameters.style &= ~DWORD{WS_VISIBLE};
  CreateNative(L"STATIC", parameters);
  Finish();
}

std::wstring Label::Caption() const {
  std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(Native(WM_GETTEXTLENGTH), 0)), L'\0');
  const LRESULT copied = Native(WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

void Label::SetCaption(std::wstring_view caption) {
  // The same text again would only flicker.
  const std::wstring before = Caption();
  m_announced.clear();
  if (Handle() == nullptr || before == caption) return;
  Native(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(std::wstring(caption).c_str()));
  if (Visible() && before.empty() && !caption.empty()) ShowWindow(Handle(), SW_SHOWNA);
  RenewToolTip();
}

void Label::Announce(std::wstring_view more) {
  if (Handle() == nullptr || !m_isLiveRegion) return;
  m_announced = more.empty() ? std::wstring() : Caption() + L", " + std::wstring(more);
  NotifyLiveRegionChanged(Handle());
}

AccessibleDescription Label::Describe() const {
  AccessibleDescription description = EventControl::Describe();
  if (!m_announced.empty()) description.name = m_announced;
  description.role = ROLE_SYSTEM_STATICTEXT;
  description.state = AccessibleState() | STATE_SYSTEM_READONLY;
  return description;
}

LRESULT Label::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // Only when somebody looks: whoever has no screen reader does not wait for it.
  if (message == WM_GETOBJECT && m_isLiveRegion && !std::exchange(m_isKnownAsLive, true)) MakeLiveRegion(Handle());
  return EventControl::OnMessage(message, wParam, lParam);
}

std::wstring Label::ShownToolTip() const {
  std::wstring caption = Caption();
  return TextRuler().Width(caption, Font()) > OwnerForm().ToPixels(GetPlace().width) ? caption : ToolTipText();
}

bool Label::HasAccessKey(wchar_t character) const { return m_accessKey && EventControl::HasAccessKey(character); }

bool Label::AccessKeyPress(std::int16_t) { return OwnerForm().FocusAfter(*this); }

}  // namespace kvez::forms
