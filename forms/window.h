#pragma once

#include <windows.h>

namespace kvez::forms {

/// One window and its messages: a window of this program's own class or one of the system's controls.
class Window {
 public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();

  /// Null before the window is created and after it is destroyed, which the system does with the parent's window.
  HWND Handle() const { return m_handle; }

  /// The object behind a window of this program; null for a foreign window.
  static Window* FromHandle(HWND handle);

 protected:
  struct Parameters {
    const wchar_t* text = L"";
    DWORD style = 0;
    DWORD extendedStyle = 0;
    HWND parent = nullptr;  // the owner, for a top-level window
    int id = 0;
    UINT classStyle = 0;                 // of a class of this program
    const wchar_t* classIcon = nullptr;  // of a class of this program: the name of a resource
    RECT pixels{};                       // left, top, width, height (not right and bottom)
  };

  /// Creates a window of a class of this program, registered when it is first used. Throws Error when the system
  /// refuses.
  void CreateOwn(const wchar_t* className, const Parameters& parameters);
  /// Creates a control of the system class `className` and takes over its messages.
  void CreateNative(const wchar_t* className, const Parameters& parameters);
  void DestroyHandle();

  /// Handles a message. Overriders pass on what they do not handle.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  /// What the window's class does by itself with a message, past all handlers here: the quick way to fill a list.
  LRESULT Native(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam);
  void Attach(HWND handle);
  void Detach();

  HWND m_handle = nullptr;
  WNDPROC m_original = nullptr;
};

}  // namespace kvez::forms
