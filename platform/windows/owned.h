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

/// Named functions, not lambdas: the type of a class's member must be the same in every file.
namespace release {
inline void Object(HGDIOBJ object) { DeleteObject(object); }
inline void Context(HDC context) { DeleteDC(context); }
inline void Icon(HICON icon) { DestroyIcon(icon); }
inline void Menu(HMENU menu) { DestroyMenu(menu); }
inline void File(HANDLE file) { CloseHandle(file); }
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

/// Empty also with the value by which CreateFile says that it failed.
class OwnedFile : public Owned<HANDLE, &release::File> {
 public:
  OwnedFile() = default;
  explicit OwnedFile(HANDLE file) : Owned(file == INVALID_HANDLE_VALUE ? nullptr : file) {}
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
