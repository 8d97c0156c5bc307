#pragma once

#include <windows.h>

#include "platform/windows/owned.h"

namespace kvez::test {

/// A picture in memory to draw windows on, to be looked at by people.
class BitmapSheet {
 public:
  BitmapSheet(int width, int height) : m_width(width), m_height(height) {
    BITMAPINFO format{};
    format.bmiHeader = Header();
    m_bitmap.Reset(CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &m_bits, nullptr, 0));
    m_context.Reset(CreateCompatibleDC(nullptr));
    m_previous = SelectObject(m_context.Get(), m_bitmap.Get());
    const RECT all{0, 0, width, height};
    FillRect(m_context.Get(), &all, GetSysColorBrush(COLOR_BTNFACE));
  }
  BitmapSheet(const BitmapSheet&) = delete;
  BitmapSheet& operator=(const BitmapSheet&) = delete;
  ~BitmapSheet() { SelectObject(m_context.Get(), m_previous); }

  /// Draws the window's client area with its upper left corner at a point.
  void Draw(HWND window, int left, int top) {
    RECT client{};
    GetClientRect(window, &client);
    const int saved = SaveDC(m_context.Get());
    SetViewportOrgEx(m_context.Get(), left, top, nullptr);
    IntersectClipRect(m_context.Get(), 0, 0, client.right, client.bottom);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(m_context.Get()), PRF_CLIENT | PRF_ERASEBKGND);
    RestoreDC(m_context.Get(), saved);
  }

  void Write(const wchar_t* text, HFONT font, const RECT& place) {
    const ObjectSelection selection(m_context.Get(), font);
    SetBkMode(m_context.Get(), TRANSPARENT);
    RECT area = place;
    DrawTextW(m_context.Get(), text, -1, &area, DT_WORDBREAK | DT_NOPREFIX);
  }

  /// False when the file cannot be written.
  bool Save(const wchar_t* path) {
    GdiFlush();
    // Some drawing calls set the fourth byte and some clear it; it would be read as transparency.
    auto* pixels = static_cast<DWORD*>(m_bits);
    for (int i = 0; i < m_width * m_height; ++i) pixels[i] |= 0xFF000000;
    const BITMAPINFOHEADER header = Header();
    const auto bytes = static_cast<DWORD>(m_width * m_height * 4);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + bytes;
    DWORD written = 0;
    const OwnedFile handle(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return WriteFile(handle.Get(), &file, sizeof file, &written, nullptr) &&
           WriteFile(handle.Get(), &header, sizeof header, &written, nullptr) &&
           WriteFile(handle.Get(), m_bits, bytes, &written, nullptr);
  }

 private:
  BITMAPINFOHEADER Header() const {
    return {sizeof(BITMAPINFOHEADER), m_width, -m_height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  }

  int m_width;
  int m_height;
  void* m_bits = nullptr;
  OwnedBitmap m_bitmap;
  OwnedMemoryContext m_context;
  HGDIOBJ m_previous = nullptr;
};

}  // namespace kvez::test
