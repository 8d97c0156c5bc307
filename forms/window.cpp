#include "forms/window.h"

#include <string>
#include <unordered_map>

#include "forms/guard.h"
#include "text/assertion.h"
#include "text/error.h"

namespace kvez::forms {
namespace {

// Kept here and not as a property of each window, which costs a call of the system for every message that a control
// reflects. Never destroyed: windows may outlive the static objects.
std::unordered_map<HWND, Window*>& Windows() {
  static auto* const windows = new std::unordered_map<HWND, Window*>;
  static const DWORD thread = GetCurrentThreadId();
  Assert(GetCurrentThreadId() == thread, "all windows are of one thread");
  return *windows;
}

HINSTANCE ThisModule() { return GetModuleHandleW(nullptr); }

void RegisterOnce(const wchar_t* className, UINT style, const wchar_t* icon, WNDPROC procedure) {
  WNDCLASSEXW window{};
  window.cbSize = sizeof(window);
  if (GetClassInfoExW(ThisModule(), className, &window)) return;
  window = {};
  window.cbSize = sizeof(window);
  window.style = style;
  window.lpfnWndProc = procedure;
  window.hInstance = ThisModule();
  window.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  // The system takes the small icon from the same resource.
  if (icon != nullptr) window.hIcon = LoadIconW(ThisModule(), icon);
  window.lpszClassName = className;
  RegisterClassExW(&window);
}

}  // namespace

Window::~Window() { DestroyHandle(); }

Window* Window::FromHandle(HWND handle) {
  const auto& windows = Windows();
  const auto found = windows.find(handle);
  return found != windows.end() ? found->second : nullptr;
}

void Window::CreateOwn(const wchar_t* className, const Parameters& parameters) {
  RegisterOnce(className, parameters.classStyle, parameters.classIcon, &Procedure);
  const RECT& place = parameters.pixels;
  // The window's first message has brought the handle.
  // cppcheck-suppress ignoredReturnValue
  CreateWindowExW(parameters.extendedStyle, className, parameters.text, parameters.style, place.left, place.top,
                  place.right, place.bottom, parameters.parent,
                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(parameters.id)), ThisModule(), this);
  if (m_handle == nullptr) throw Error(L"Systém nevytvořil okno.", "CreateWindowExW", GetLastError());
}

void Window::CreateNative(const wchar_t* className, const Parameters& parameters) {
  const RECT& place = parameters.pixels;
  const HWND handle =
      CreateWindowExW(parameters.extendedStyle, className, parameters.text, parameters.style, place.left, place.top,
                      place.right, place.bottom, parameters.parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(parameters.id)), ThisModule(), nullptr);
  if (handle == nullptr) throw Error(L"Systém nevytvořil okno.", "CreateWindowExW", GetLastError());
  Attach(handle);
  m_original =
      reinterpret_cast<WNDPROC>(SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
}

void Window::DestroyHandle() {
  if (m_handle != nullptr) DestroyWindow(m_handle);
}

LRESULT Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) { return Native(message, wParam, lParam); }

LRESULT Window::Native(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (m_handle == nullptr) return 0;
  return m_original != nullptr ? CallWindowProcW(m_original, m_handle, message, wParam, lParam)
                               : DefWindowProcW(m_handle, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  Window* window = FromHandle(handle);
  if (window == nullptr && message == WM_NCCREATE) {
    window = static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    if (window != nullptr) window->Attach(handle);
  }
  return window != nullptr ? window->Dispatch(message, wParam, lParam)
                           : DefWindowProcW(handle, message, wParam, lParam);
}

LRESULT Window::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND handle = m_handle;
  LRESULT result = 0;
  if (!Guarded([&] { result = OnMessage(message, wParam, lParam); }) && message == WM_PAINT) {
    // What could not be painted must not ask to be painted for ever.
    ValidateRect(handle, nullptr);
  }
  if (message == WM_NCDESTROY) Detach();
  return result;
}

void Window::Attach(HWND handle) {
  Assert(m_handle == nullptr, "an object has one window at a time");
  m_handle = handle;
  Windows()[handle] = this;
}

void Window::Detach() {
  Windows().erase(m_handle);
  m_handle = nullptr;
  m_original = nullptr;
}

}  // namespace kvez::forms
