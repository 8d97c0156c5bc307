#include "forms/message_loop.h"

#include "forms/pointer.h"

namespace kvez::forms {
namespace {

void Handle(MSG message) {
  const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  if (isKey) {
    auto* form = dynamic_cast<Form*>(Window::FromHandle(GetAncestor(message.hwnd, GA_ROOT)));
    if (form != nullptr && form->TranslateKey(message)) return;
  }
  const bool isPointer = (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) ||
                         (message.message >= WM_NCMOUSEMOVE && message.message <= WM_NCXBUTTONDBLCLK);
  // Controls look for themselves.
  if (isPointer && dynamic_cast<Control*>(Window::FromHandle(message.hwnd)) == nullptr) Pointer::Remember(message.pt);
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace

void RunMessageLoop(const Form& form) {
  MSG message{};
  while (form.IsOpen()) {
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      // Not GetMessage: it works off sent messages without returning, and one of them may be what destroys the form, or
      // has destroyed it just now.
      // cppcheck-suppress nullPointer
      if (form.IsOpen()) MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
      continue;
    }
    if (message.message == WM_QUIT) return;
    Handle(message);
  }
}

namespace {

/// Handles the messages that wait now, but for those of which `used` says that they are used up.
template <class Used>
void HandleWaiting(const Used& used) {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // It belongs to the loop around.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (!used(message)) Handle(message);
  }
}

// Keys with Alt stay, they lead to the window's own menu and close it, but for the letters of the buttons. So do the
// movements of the pointer: a button must learn that it was left, or it holds the pointer that is to move the window.
bool IsInputOfControls(const MSG& message) {
  switch (message.message) {
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
    case WM_MOUSEMOVE:
      return false;
    case WM_SYSCHAR:
      return message.wParam != L' ';
    default:
      return (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ||
             (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST);
  }
}

}  // namespace

void DoEvents() {
  HandleWaiting([](const MSG&) { return false; });
}

bool CatchUp(const Form& form) {
  bool escape = false;
  HandleWaiting([&](const MSG& message) {
    const HWND window = form.Handle();
    if (window == nullptr || (message.hwnd != window && !IsChild(window, message.hwnd))) return false;
    if (!IsInputOfControls(message)) return false;
    // One that is held has ended something else.
    const bool isRepeated = (message.lParam & (1 << 30)) != 0;
    escape = escape || (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE && !isRepeated);
    return true;
  });
  return escape;
}

}  // namespace kvez::forms
