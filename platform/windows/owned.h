#pragma once

#include <windows.h>

#include <utility>

namespace kvez {

/// The one owner of a handle: `Owned<HFONT, &DeleteFont>`. Released when it goes, when it is given a new one, never
/// twice. `release` is called through a wrapper function because the system's own carry calling conventions and casts.
template <typename Handle, auto release>
class Owned {
 public:
  Owned() = default;
  explicit Owned(Handle handle) : m_handle(handle) {}
  Owned(Owned&& other) noexcept : m_handle(std::exchange(other.m_handle, Handle{})) {}
  Owned& operator=(Owned&& other) noexcept {
    Reset(std::exchange(other.m_handle, Handle{}));
    return *this;
  }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() { Reset(); }

  Handle Get() const { return m_handle; }
  explicit operator bool() const { return m_handle != Handle{}; }

  void Reset(Handle handle = Handle{}) {
    const Handle old = std::exchange(m_handle, handle);
    if (old != Handle{} && old != handle) release(old);
  }

  /// Gives the handle away; the caller releases it.
  Handle TakeOwnership() { return std::exchange(m_handle, Handle{}); }

 private:
  Handle m_handle{};
};

using OwnedFont = Owned<HFONT, [](HFONT font) { DeleteObject(font); }>;
using OwnedBrush = Owned<HBRUSH, [](HBRUSH brush) { DeleteObject(brush); }>;
using OwnedPen = Owned<HPEN, [](HPEN pen) { DeleteObject(pen); }>;
using OwnedBitmap = Owned<HBITMAP, [](HBITMAP bitmap) { DeleteObject(bitmap); }>;
using OwnedMemoryContext = Owned<HDC, [](HDC context) { DeleteDC(context); }>;
using OwnedIcon = Owned<HICON, [](HICON icon) { DestroyIcon(icon); }>;
using OwnedMenu = Owned<HMENU, [](HMENU menu) { DestroyMenu(menu); }>;
using OwnedFile = Owned<HANDLE, [](HANDLE file) { CloseHandle(file); }>;
using OwnedRegistryKey = Owned<HKEY, [](HKEY key) { RegCloseKey(key); }>;

/// Selects an object into a device context and puts the previous one back.
class ObjectSelection {
 public:
  ObjectSelection(HDC context, HGDIOBJ object) : m_context(context), m_previous(SelectObject(context, object)) {}
  ObjectSelection(const ObjectSelection&) = delete;
  ObjectSelection& operator=(const ObjectSelection&) = delete;
  ~ObjectSelection() { SelectObject(m_context, m_previous); }

 private:
  HDC m_context;
  HGDIOBJ m_previous;
};

}  // namespace kvez
