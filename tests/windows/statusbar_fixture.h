#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "mainwindow/statusbar.h"
#include "platform/portable/portable_formats.h"
#include "tests/core/output_fakes.h"
#include "tests/support/window_test.h"

namespace kvez::test {

class FailingClock : public fakes::ClockFake {
 public:
  FailingClock() { now = {2026, 11, 16, 9, 5, 0}; }

  DateTime Now() override {
    if (!fails) return ClockFake::Now();
    ++failures;
    throw std::runtime_error("The clock has stopped.");
  }

  bool fails = false;
  int failures = 0;
};

/// A window that remembers its messages.
class RecordingWindow {
 public:
  RecordingWindow() {
    static const ATOM windowClass = [] {
      WNDCLASSW description{};
      description.lpfnWndProc = &RecordingWindow::Procedure;
      description.hInstance = GetModuleHandleW(nullptr);
      description.lpszClassName = L"KvezRecordingWindow";
      description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
      return RegisterClassW(&description);
    }();
    m_handle = CreateWindowExW(0, MAKEINTATOM(windowClass), L"Kvez", WS_OVERLAPPEDWINDOW, 0, 0, 600, 400, nullptr,
                               nullptr, GetModuleHandleW(nullptr), this);
  }
  ~RecordingWindow() { Destroy(); }
  RecordingWindow(const RecordingWindow&) = delete;
  RecordingWindow& operator=(const RecordingWindow&) = delete;

  HWND Handle() const { return m_handle; }
  void Destroy() {
    if (m_handle != nullptr) DestroyWindow(m_handle);
    m_handle = nullptr;
  }

  std::vector<UINT> messages;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
      SetWindowLongPtrW(window, GWLP_USERDATA,
                        reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
    }
    auto* recorder = reinterpret_cast<RecordingWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (recorder != nullptr) recorder->messages.push_back(message);
    if (message == WM_APP) return 4711;
    return DefWindowProcW(window, message, wParam, lParam);
  }

  HWND m_handle = nullptr;
};

using test::PumpUntil;

class StatusBarTest : public ::testing::Test {
 protected:
  std::wstring Text(StatusPanel panel) const {
    const auto index = static_cast<WPARAM>(panel);
    const auto length = LOWORD(SendMessageW(bar.Handle(), SB_GETTEXTLENGTHW, index, 0));
    std::wstring text(length, L'\0');
    SendMessageW(bar.Handle(), SB_GETTEXTW, index, reinterpret_cast<LPARAM>(text.data()));
    return text;
  }
  int Flags(StatusPanel panel) const {
    return HIWORD(SendMessageW(bar.Handle(), SB_GETTEXTLENGTHW, static_cast<WPARAM>(panel), 0));
  }
  HICON Icon(StatusPanel panel) const {
    return reinterpret_cast<HICON>(SendMessageW(bar.Handle(), SB_GETICON, static_cast<WPARAM>(panel), 0));
  }
  std::vector<int> RightEdges() const {
    std::vector<int> edges(8);
    const LRESULT count = SendMessageW(bar.Handle(), SB_GETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
    edges.resize(static_cast<std::size_t>(count));
    return edges;
  }
  void HighlightEntry(unsigned command, unsigned flags = MF_MOUSESELECT) {
    SendMessageW(window.Handle(), WM_MENUSELECT, MAKEWPARAM(command, flags), reinterpret_cast<LPARAM>(menu));
  }
  void CloseMenu() { SendMessageW(window.Handle(), WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0); }

  PortableFormats formats;
  FailingClock clock;
  RecordingWindow window;
  StatusBar bar{formats, clock, MainWindowMenuExplanations()};
  const HMENU menu = reinterpret_cast<HMENU>(1);
};

/// Width and height of an icon.
inline SIZE IconSize(HICON icon) {
  ICONINFO information{};
  if (!GetIconInfo(icon, &information)) return {};
  BITMAP bitmap{};
  GetObjectW(information.hbmColor, sizeof bitmap, &bitmap);
  DeleteObject(information.hbmColor);
  DeleteObject(information.hbmMask);
  return {bitmap.bmWidth, bitmap.bmHeight};
}

/// The colours of an icon, row by row from the bottom, 0xAARRGGBB.
inline std::vector<std::uint32_t> IconPixels(HICON icon) {
  ICONINFO information{};
  if (!GetIconInfo(icon, &information)) return {};
  BITMAP bitmap{};
  GetObjectW(information.hbmColor, sizeof bitmap, &bitmap);
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(bitmap.bmWidth) *
                                    static_cast<std::size_t>(bitmap.bmHeight));
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, bitmap.bmWidth, bitmap.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = GetDC(nullptr);
  GetDIBits(screen, information.hbmColor, 0, static_cast<UINT>(bitmap.bmHeight), pixels.data(), &format,
            DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  DeleteObject(information.hbmColor);
  DeleteObject(information.hbmMask);
  return pixels;
}

}  // namespace kvez::test
