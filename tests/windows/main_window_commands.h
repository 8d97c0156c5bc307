#pragma once

#include "tests/windows/main_window_test.h"

namespace kvez {

/// The main window with what its commands open.
class MainWindowCommands : public MainWindowTest {
 protected:
  void Click(tlText& button) { SendMessageW(button.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5)); }
  /// Alt and a capital letter as a message: with Shift held, a real key would come with another state of the keyboard.
  void AccessKey(wchar_t letter) {
    MSG message{};
    message.hwnd = m_window->Handle();
    message.message = WM_SYSCHAR;
    message.wParam = letter;
    message.lParam = 1 << 29;
    m_window->TranslateKey(message);
  }
  HWND SettingsWindow() {
    const HWND found = FindWindowW(L"KvezNastaveni", L"Kvez - nastavení");
    return found != nullptr && GetWindow(found, GW_OWNER) == m_window->Handle() ? found : nullptr;
  }
  void RecordWish(const wchar_t* wish) { m_machine.settings.values[{L"VD", L"VDKVEZ", L"zástupce"}] = wish; }
};

}  // namespace kvez
