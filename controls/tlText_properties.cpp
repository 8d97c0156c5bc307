// The button's properties: setters with their side effects, defaults, loading and saving.
#include "controls/pointer_picture.h"
#include "controls/tlText.h"
#include "forms/mouse_pointer.h"
#include "platform/windows/system_code_page.h"
#include "text/error.h"

namespace kvez {
namespace {

constexpr COLORREF kDefaultFocusColor = 0xC0FFC0;
constexpr COLORREF kDefaultMoveColor = 0xFF0000;
constexpr COLORREF kDefaultDownColor = 0x00FF00;

std::int32_t ToStored(COLORREF color) { return static_cast<std::int32_t>(color); }
COLORREF ToColor(std::int32_t stored) { return static_cast<COLORREF>(stored); }

}  // namespace

void tlText::Notify(std::wstring_view key) { m_host->PropertyChanged(*this, key); }

void tlText::RepaintIfShown() {
  if (m_run.IsShown.IsTrue()) Repaint(m_run.ClientRect);
}

void tlText::SetFocusDraw(std::int32_t value) {
  m_focusDraw = value;
  Notify(L"FoD");
}

void tlText::SetFocusColor(COLORREF value) {
  m_focusColor = value;
  Notify(L"FoC");
}

void tlText::SetSEParameters(std::wstring_view value) {
  m_seParameters = value;
  Notify(L"SEP");
}

void tlText::SetSEFile(std::wstring_view value) {
  m_seFile = value;
  Notify(L"SEF");
}

void tlText::SetSEMode(std::int32_t value) {
  m_seMode = value;
  PerformAction(true);
  Notify(L"SEM");
}

void tlText::SetDEBorder(std::int32_t value) {
  m_deBorder = m_deMove.IsTrue() ? 0 : value;
  Notify(L"DEB");
  RepaintIfShown();
}

void tlText::SetDEMove(Boolean value) {
  m_deMove = value;
  if (value.IsTrue()) {
    SetFocusDraw(2);
    SetDEBorder(0);
    Notify(L"DEM");
    return;
  }
  Notify(L"DEM");
  RepaintIfShown();
}

void tlText::SetEnabled(Boolean value) {
  Control::SetEnabled(value);
  Notify(L"E");
  RepaintIfShown();
}

void tlText::SetBackColor(COLORREF value) {
  Control::SetBackColor(value);
  Notify(L"BC");
  RepaintIfShown();
}

void tlText::SetForeColor(COLORREF value) {
  Control::SetForeColor(value);
  Notify(L"FC");
  RepaintIfShown();
}

void tlText::SetMoveColor(COLORREF value) {
  m_moveColor = value;
  Notify(L"MC");
}

void tlText::SetDownColor(COLORREF value) {
  m_downColor = value;
  Notify(L"DC");
}

void tlText::SetCaption(std::wstring_view value) {
  // A change of letter case only is no change, on purpose.
  const int difference = CallWithTexts(
      value, m_caption,
      [](const std::string& wanted, const std::string& shown) { return lstrcmpiA(wanted.c_str(), shown.c_str()); },
      [](const std::wstring& wanted, const std::wstring& shown) { return lstrcmpiW(wanted.c_str(), shown.c_str()); });
  if (difference == 0) return;
  // The first "&" counts even when it is one of a pair: "&&A" has the access key "&".
  const std::size_t mark = value.find(L'&');
  m_accessKeys = mark == std::wstring_view::npos ? std::wstring_view() : value.substr(mark + 1, 1);
  m_caption = value;
  if (Handle() != nullptr) {
    // Nothing shows it; programs that read the screen out or drive it find the button by it.
    SetWindowTextW(Handle(), m_caption.c_str());
  }
  Notify(L"C");
  RepaintIfShown();
}

void tlText::SetMousePointer(std::int32_t value) {
  Control::SetMousePointer(value);
  // The notice carries the full name although the bag's key is "MP".
  Notify(L"MousePointer");
}

void tlText::SetMouseIcon(const Picture& value) {
  m_mouseIcon = value;
  m_customPointer = value ? value->Get() : nullptr;
  Notify(L"MI");
}

void tlText::InitProperties() {
  m_run.IsNew = true;
  SetFocusDraw(0);
  SetFocusColor(kDefaultFocusColor);
  SetSEParameters({});
  SetSEFile({});
  SetSEMode(0);
  SetDEMove(false);
  SetDEBorder(0);
  SetEnabled(true);
  SetBackColor(m_host->AmbientBackColor(*this));
  SetForeColor(m_host->AmbientForeColor(*this));
  SetMoveColor(kDefaultMoveColor);
  SetDownColor(kDefaultDownColor);
  SetCaption(m_host->DisplayName(*this));
  SetMousePointer(0);
}

void tlText::ReadProperties(const PropertyBag& bag) {
  SetFocusDraw(bag.ReadInteger(L"FoD", 0));
  SetFocusColor(ToColor(bag.ReadInteger(L"FoC", ToStored(kDefaultFocusColor))));
  SetSEParameters(bag.ReadString(L"SEP", L""));
  SetSEFile(bag.ReadString(L"SEF", L""));
  // The mode empties what does not belong to it of the two texts just read.
  SetSEMode(bag.ReadInteger(L"SEM", 0));
  SetDEMove(bag.ReadBoolean(L"DEM", false));
  SetDEBorder(bag.ReadInteger(L"DEB", 0));
  SetEnabled(bag.ReadBoolean(L"E", true));
  SetBackColor(ToColor(bag.ReadInteger(L"BC", ToStored(m_host->AmbientBackColor(*this)))));
  SetForeColor(ToColor(bag.ReadInteger(L"FC", ToStored(m_host->AmbientForeColor(*this)))));
  SetMoveColor(ToColor(bag.ReadInteger(L"MC", ToStored(kDefaultMoveColor))));
  SetDownColor(ToColor(bag.ReadInteger(L"DC", ToStored(kDefaultDownColor))));
  SetCaption(bag.ReadString(L"C", m_host->DisplayName(*this)));
  SetMousePointer(bag.ReadInteger(L"MP", 0));
  SetMouseIcon(bag.ReadPicture(L"MI", nullptr));
}

void tlText::WriteProperties(PropertyBag& bag) const {
  bag.WriteInteger(L"FoD", m_focusDraw);
  bag.WriteInteger(L"FoC", ToStored(m_focusColor));
  bag.WriteString(L"SEP", m_seParameters);
  bag.WriteString(L"SEF", m_seFile);
  bag.WriteInteger(L"SEM", m_seMode);
  bag.WriteBoolean(L"DEM", m_deMove);
  bag.WriteInteger(L"DEB", m_deBorder);
  bag.WriteBoolean(L"E", Enabled());
  bag.WriteInteger(L"BC", ToStored(BackColor()));
  bag.WriteInteger(L"FC", ToStored(ForeColor()));
  bag.WriteInteger(L"MC", ToStored(m_moveColor));
  bag.WriteInteger(L"DC", ToStored(m_downColor));
  bag.WriteString(L"C", m_caption);
  bag.WriteInteger(L"MP", MousePointer());
  bag.WritePicture(L"MI", m_mouseIcon);
}

}  // namespace kvez
