#include "forms/list_box.h"

#include <oleacc.h>

#include <algorithm>
#include <new>
#include <utility>

#include "forms/client_area.h"
#include "forms/form.h"
#include "forms/input_gate.h"
#include "forms/private_messages.h"
#include "forms/reach.h"
#include "text/assertion.h"

namespace kvez::forms {
namespace {

constexpr wchar_t kSample[] = L"Brandýs nad Labem";

}  // namespace

void ListBox::Create(Container& container, int id, const Place& place) {
  CreateNative(L"LISTBOX",
               Prepare(container, id, place,
                       LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP,
                       WS_EX_CLIENTEDGE));
  SetTabStop(true);
  Finish();
}

int ListBox::ListCount() const { return static_cast<int>(std::max<LRESULT>(Native(LB_GETCOUNT), 0)); }

int ListBox::ListIndex() const { return Handle() == nullptr ? -1 : static_cast<int>(Native(LB_GETCURSEL)); }

void ListBox::SetListIndex(int index) {
  if (Handle() == nullptr) return;
  const int wanted = index >= 0 && index < ListCount() ? index : -1;
  if (wanted == ListIndex()) return;
  Native(LB_SETCURSEL, static_cast<WPARAM>(wanted));
  NotifyWinEvent(EVENT_OBJECT_SELECTION, Handle(), OBJID_CLIENT, wanted + 1);
  if (Click) Click();
}

std::wstring ListBox::List(int index) const {
  const LRESULT length = Handle() == nullptr ? LB_ERR : Native(LB_GETTEXTLEN, static_cast<WPARAM>(index));
  if (length <= 0) return {};
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  Native(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  return text;
}

std::int32_t ListBox::ItemData(int index) const {
  return index >= 0 && static_cast<std::size_t>(index) < m_data.size() ? m_data[static_cast<std::size_t>(index)] : 0;
}

void ListBox::Clear() {
  if (m_fillDepth == 0 && !m_drawsLater && !m_data.empty()) {
    // Mostly a filling follows: the scroll bars would go and come back in front of the user's eyes, which takes longer
    // than the filling itself.
    Native(WM_SETREDRAW, FALSE);
    m_drawsLater = PostMessageW(Handle(), kDrawNowMessage, 0, 0) != FALSE;
    if (!m_drawsLater) Native(WM_SETREDRAW, TRUE);
  }
  m_data.clear();
  Native(LB_RESETCONTENT);
}

void ListBox::AddRow(std::wstring_view text, std::int32_t data) {
  if (Handle() == nullptr) return;
  m_row.assign(text);
  m_data.push_back(data);
  const LRESULT row = Native(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(m_row.c_str()));
  if (row < 0) {
    // A row that the box has no room for: the others would look like all of them.
    m_data.pop_back();
    throw std::bad_alloc();
  }
  Assert(static_cast<std::size_t>(row) + 1 == m_data.size(), "a row's number has the row's place");
}

void ListBox::BeginFill(std::size_t rows, std::size_t characters) {
  // First of all: without memory no filling has begun.
  m_data.reserve(m_data.size() + rows);
  if (m_fillDepth++ == 0) {
    Native(WM_SETREDRAW, FALSE);
    // Quick start: the box itself holds back its rows only, not its scroll bars, which it draws at every change. For
    // the system a window without WM_SETREDRAW is a hidden one.
    DefWindowProcW(Handle(), WM_SETREDRAW, FALSE, 0);
  }
  m_drawsLater = false;
  const std::size_t bytes = (characters + rows) * sizeof(wchar_t);
  Native(LB_INITSTORAGE, rows, static_cast<LPARAM>(bytes));
}

void ListBox::EndFill() {
  Assert(m_fillDepth > 0, "EndFill comes after its BeginFill");
  if (m_fillDepth == 0 || --m_fillDepth > 0) return;
  DrawNow();
}

void ListBox::DrawNow() {
  if (Handle() == nullptr) return;
  // Still hidden for the system: the box now brings its scroll bars up to date one after the other.
  DefWindowProcW(Handle(), WM_SETREDRAW, FALSE, 0);
  Native(WM_SETREDRAW, TRUE);
  if (!Visible()) return;
  DefWindowProcW(Handle(), WM_SETREDRAW, TRUE, 0);
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

int ListBox::HorizontalExtent() const { return static_cast<int>(Native(LB_GETHORIZONTALEXTENT)); }

void ListBox::SetHorizontalExtent(int pixels) {
  Native(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(std::max(pixels, 0)));
  m_extentSample = TextWidth(kSample);
}

int ListBox::ItemFromPoint(int x, int y) const {
  // Reckoned here: the box's own answer has 16 bits for the row, and a list may have more rows than those can tell.
  RECT client{};
  if (Handle() == nullptr || !GetClientRect(Handle(), &client) || !PtInRect(&client, {x, y})) return -1;
  const auto rowHeight = static_cast<int>(Native(LB_GETITEMHEIGHT));
  if (rowHeight <= 0) return -1;
  const int row = static_cast<int>(Native(LB_GETTOPINDEX)) + y / rowHeight;
  return row < ListCount() ? row : -1;
}

RECT ListBox::RowRectangle(int row) const {
  Assert(row >= 0 && row < ListCount(), "the row is one of the list's");
  RECT rectangle{};
  Native(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rectangle));
  return rectangle;
}

int ListBox::RowThatThePointerCameTo(float xTwips, float yTwips) const {
  if (!PointerHasMoved() || !TakesPointer(OwnerForm()) || !CanBeReached(*this)) return -1;
  const float twipsPerPixel = OwnerForm().TwipsPerPixel();
  const int row = ItemFromPoint(static_cast<int>(xTwips / twipsPerPixel), static_cast<int>(yTwips / twipsPerPixel));
  if (row < 0) return -1;
  const RECT bounds = RowRectangle(row);
  return bounds.top >= 0 && bounds.bottom <= ClientOf(Handle()).bottom ? row : -1;
}

POINT ListBox::MenuPlace() const {
  const LONG under = ListIndex() >= 0 ? RowRectangle(ListIndex()).bottom : 0;
  POINT place = {0, under <= ClientOf(Handle()).bottom ? std::max(under, 0L) : 0};
  ClientToScreen(Handle(), &place);
  return place;
}

int ListBox::FindString(std::wstring_view text) const {
  if (Handle() == nullptr) return -1;
  return static_cast<int>(
      Native(LB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(std::wstring(text).c_str())));
}

AccessibleDescription ListBox::Describe() const {
  AccessibleDescription description = EventControl::Describe();
  description.role = ROLE_SYSTEM_LIST;
  description.state = AccessibleState();
  return description;
}

void ListBox::OnCommand(UINT notification) {
  if (notification == LBN_SELCHANGE && Click) Click();
}

LRESULT ListBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kDrawNowMessage) {
    if (std::exchange(m_drawsLater, false)) DrawNow();
    return 0;
  }
  constexpr LPARAM kFromKeyboard = -1;
  if (message == WM_CONTEXTMENU && lParam == kFromKeyboard && ContextMenuKey) {
    ContextMenuKey();
    return 0;
  }
  return EventControl::OnMessage(message, wParam, lParam);
}

int ListBox::TextWidth(std::wstring_view text) { return m_ruler.Width(text, Font()); }

void ListBox::OnFontChanged() {
  m_ruler.Forget();
  if (m_extentSample <= 0) return;
  // The rows have grown with the font, a little more or less than the sample.
  constexpr int kRounding = 4;
  SetHorizontalExtent(MulDiv(HorizontalExtent(), TextWidth(kSample), m_extentSample) + kRounding);
}

COLORREF ListBox::DefaultBackColor() const { return GetSysColor(COLOR_WINDOW); }
COLORREF ListBox::DefaultForeColor() const { return GetSysColor(COLOR_WINDOWTEXT); }

}  // namespace kvez::forms
