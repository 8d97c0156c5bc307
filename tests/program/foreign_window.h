#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>

#include "tests/support/waiting.h"

namespace kvez::test {

/// A window of another program, as far as the program can tell, in front of everything in a corner of the screen. It
/// has a thread of its own: who does not handle messages cannot lose the keyboard either.
class ForeignWindow {
 public:
  ForeignWindow() {
    m_thread = CreateThread(nullptr, 0, &Run, this, 0, &m_threadId);
    EXPECT_TRUE(WaitUntil([this] { return m_window != nullptr && GetForegroundWindow() == m_window; }));
  }
  ForeignWindow(const ForeignWindow&) = delete;
  ForeignWindow& operator=(const ForeignWindow&) = delete;
  ~ForeignWindow() {
    PostThreadMessageW(m_threadId, WM_QUIT, 0, 0);
    WaitForSingleObject(m_thread, INFINITE);
    CloseHandle(m_thread);
  }

 private:
  static DWORD WINAPI Run(void* self) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"Jiný program", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 100,
                                        nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(window);
    static_cast<ForeignWindow*>(self)->m_window = window;
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    DestroyWindow(window);
    return 0;
  }

  HANDLE m_thread = nullptr;
  DWORD m_threadId = 0;
  std::atomic<HWND> m_window = nullptr;
};

}  // namespace kvez::test
