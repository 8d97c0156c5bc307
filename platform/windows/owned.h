#pragma once

#include <windows.h>

#include <type_traits>
#include <utility>

namespace kvez {

/// The one owner of a handle: `Owned<HFONT, &DeleteFont>`. Released when it goes, when it is given a new one, never
/// twice. `release` is called through a wrapper function because the system's own carry calling conventions and casts.
/// Null is no handle, and of the system's general ones neither is the value by which CreateFile and its like say that
/// they have failed.
template <typename Handle, auto release>
class Owned {
 public:
  Owned() = default;
  explicit Owned(Handle handle) : m_handle(OrNone(handle)) {}
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
    const Handle old = std::exchange(m_handle, OrNone(handle));
    if (old != Handle{} && old != handle) release(old);
  }

  /// Gives the handle away; the caller releases it.
  Handle TakeOwnership() { return std::exchange(m_handle, Handle{}); }

 private:
  static Handle OrNone(Handle handle) {
    if constexpr (std::is_same_v<Handle, HANDLE>) {
      if (handle == INVALID_HANDLE_VALUE) return nullptr;
    }
    return handle;
  }

  Handle m_handle{};
};

/// Named functions, not lambdas: the type of a class's member must be the same in every file.
namespace release {
inline void Object(HGDIOBJ object) { DeleteObject(object); }
inline void Context(HDC context) { DeleteDC(context); }
inline void Icon(HICON icon) { DestroyIcon(icon); }
inline void Menu(HMENU menu) { DestroyMenu(menu); }
inline void Any(HANDLE handle) { CloseHandle(handle); }
inline void FileSearch(HANDLE search) { FindClose(search); }
inline void RegistryKey(HKEY key) { RegCloseKey(key); }
}  // namespace release

using OwnedFont = Owned<HFONT, &release::Object>;
using OwnedBrush = Owned<HBRUSH, &release::Object>;
using OwnedPen = Owned<HPEN, &release::Object>;
using OwnedBitmap = Owned<HBITMAP, &release::Object>;
using OwnedMemoryContext = Owned<HDC, &release::Context>;
using OwnedIcon = Owned<HICON, &release::Icon>;
using OwnedMenu = Owned<HMENU, &release::Menu>;
using OwnedRegistryKey = Owned<HKEY, &release::RegistryKey>;
using OwnedFile = Owned<HANDLE, &release::Any>;
using OwnedThread = Owned<HANDLE, &release::Any>;
using OwnedFileSearch = Owned<HANDLE, &release::FileSearch>;

/// The device context of a window, or of the screen for a null one, given back at the end. Null when the system has
/// none.
class WindowContext {
 public:
  explicit WindowContext(HWND window) : m_window(window), m_context(GetDC(window)) {}
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;
  ~WindowContext() {
    if (m_context != nullptr) ReleaseDC(m_window, m_context);
  }

  HDC Get() const { return m_context; }

 private:
  HWND m_window;
  HDC m_context;
};

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
