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

void DoEvents() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // It belongs to the loop around.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Handle(message);
  }
}

}  // namespace kvez::forms
