#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "mainwindow/statusbar.h"

namespace kvez::test {

/// What the message panel of a window's status bar shows, in this process.
class StatusBarView {
 public:
  explicit StatusBarView(HWND parent) : m_bar(FindWindowExW(parent, nullptr, L"msctls_statusbar32", nullptr)) {}

  std::wstring Text() const {
    std::wstring text(LOWORD(SendMessageW(m_bar, SB_GETTEXTLENGTHW, kMessagePanel, 0)), L'\0');
    SendMessageW(m_bar, SB_GETTEXTW, kMessagePanel, reinterpret_cast<LPARAM>(text.data()));
    return text;
  }
  int Flags() const { return HIWORD(SendMessageW(m_bar, SB_GETTEXTLENGTHW, kMessagePanel, 0)); }
  bool HasIcon() const { return Icon() != nullptr; }
  /// True when it shows the icon resource of that name: pixel by pixel, since the bar shows a copy.
  bool ShowsIcon(const wchar_t* name) const {
    const HICON expected =
        static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), name, IMAGE_ICON, kSize, kSize, LR_DEFAULTCOLOR));
    const bool same = expected != nullptr && HasIcon() && Picture(Icon()) == Picture(expected);
    DestroyIcon(expected);
    return same;
  }

 private:
  static constexpr int kSize = 16;

  HICON Icon() const { return reinterpret_cast<HICON>(SendMessageW(m_bar, SB_GETICON, kMessagePanel, 0)); }

  static std::vector<unsigned> Picture(HICON icon) {
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = kSize;
    description.bmiHeader.biHeight = -kSize;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    const HDC context = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(context, &description, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ previous = SelectObject(context, bitmap);
    PatBlt(context, 0, 0, kSize, kSize, WHITENESS);
    DrawIconEx(context, 0, 0, icon, kSize, kSize, 0, nullptr, DI_NORMAL);
    GdiFlush();
    const auto* pixels = static_cast<const unsigned*>(bits);
    std::vector<unsigned> picture(pixels, pixels + kSize * kSize);
    SelectObject(context, previous);
    DeleteObject(bitmap);
    DeleteDC(context);
    return picture;
  }

  HWND m_bar;
};

}  // namespace kvez::test
