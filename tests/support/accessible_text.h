#pragma once

#include <windows.h>
// After windows.h, whose types it needs.
#include <oleacc.h>

#include <array>
#include <string>
#include <utility>

namespace kvez::test {

/// What a screen reader is told about a window. The component libraries must be there.
class AccessibleWindow {
 public:
  explicit AccessibleWindow(HWND window) {
    void* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object);
    m_object = static_cast<IAccessible*>(object);
  }
  AccessibleWindow(const AccessibleWindow&) = delete;
  AccessibleWindow& operator=(const AccessibleWindow&) = delete;
  ~AccessibleWindow() {
    if (m_object != nullptr) m_object->Release();
  }

  std::wstring Name() const { return Text(&IAccessible::get_accName); }
  std::wstring Shortcut() const { return Text(&IAccessible::get_accKeyboardShortcut); }
  std::wstring Description() const { return Text(&IAccessible::get_accDescription); }
  LONG Role() const { return Number(&IAccessible::get_accRole); }
  LONG State() const { return Number(&IAccessible::get_accState); }

 private:
  static VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
  }
  template <typename Getter>
  std::wstring Text(Getter getter) const {
    BSTR text = nullptr;
    if (m_object == nullptr || FAILED((m_object->*getter)(Self(), &text)) || text == nullptr) return {};
    std::wstring result(text, SysStringLen(text));
    SysFreeString(text);
    return result;
  }
  template <typename Getter>
  LONG Number(Getter getter) const {
    VARIANT number{};
    if (m_object == nullptr || FAILED((m_object->*getter)(Self(), &number)) || number.vt != VT_I4) return 0;
    return number.lVal;
  }

  IAccessible* m_object = nullptr;
};

}  // namespace kvez::test
