#pragma once

#include <windows.h>
// After windows.h, whose types it needs.
#include <commctrl.h>

#include <string>

#include "forms/form.h"

namespace kvez::test {

/// The text that the form's tooltip has for `control` when the pointer has come to it; "(none)" without one.
inline std::wstring ToolTipOf(const forms::Control& control) {
  SendMessageW(control.Handle(), WM_MOUSEMOVE, 0, 0);
  for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
    if (GetWindow(tip, GW_OWNER) != control.OwnerForm().Handle()) continue;
    wchar_t text[1000]{};
    TTTOOLINFOW info{};
    info.cbSize = TTTOOLINFOW_V2_SIZE;
    info.uFlags = TTF_IDISHWND;
    info.hwnd = control.OwnerForm().Handle();
    info.uId = reinterpret_cast<UINT_PTR>(control.Handle());
    info.lpszText = text;
    TTTOOLINFOW present = info;
    if (!SendMessageW(tip, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&present))) return L"(none)";
    SendMessageW(tip, TTM_GETTEXTW, 1000, reinterpret_cast<LPARAM>(&info));
    return text;
  }
  return L"(none)";
}

}  // namespace kvez::test
