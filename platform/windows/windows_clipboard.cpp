#include "platform/windows/windows_clipboard.h"

#include <cstring>
#include <utility>

#include "platform/windows/owned.h"

namespace kvez {
namespace {

using OwnedGlobal = Owned<HGLOBAL, [](HGLOBAL memory) { GlobalFree(memory); }>;

constexpr int kTries = 20;
constexpr DWORD kPause = 25;  // milliseconds

// Another program may be looking at the clipboard just now, which it does for a moment only.
bool OpenPatiently(HWND owner) {
  for (int tries = 0; tries < kTries; ++tries) {
    if (OpenClipboard(owner)) return true;
    Sleep(kPause);
  }
  return false;
}

void Put(UINT format, const void* bytes, std::size_t size) {
  OwnedGlobal memory(GlobalAlloc(GMEM_MOVEABLE, size));
  if (!memory) return;
  void* target = GlobalLock(memory.Get());
  if (target == nullptr) return;
  std::memcpy(target, bytes, size);
  GlobalUnlock(memory.Get());
  if (SetClipboardData(format, memory.Get()) != nullptr) memory.TakeOwnership();
}

}  // namespace

WindowsClipboard::WindowsClipboard(std::function<HWND()> owner) : m_owner(std::move(owner)) {}

void WindowsClipboard::Replace(std::wstring_view text) {
  const std::wstring terminated(text);
  if (!OpenPatiently(m_owner())) return;
  EmptyClipboard();
  // The system makes the 8-bit text for older programs by this locale; left out, it takes the keyboard's, and Czech
  // letters get lost behind an English one.
  const LCID czech = MAKELCID(MAKELANGID(LANG_CZECH, SUBLANG_DEFAULT), SORT_DEFAULT);
  Put(CF_LOCALE, &czech, sizeof czech);
  Put(CF_UNICODETEXT, terminated.c_str(), (terminated.size() + 1) * sizeof(wchar_t));
  CloseClipboard();
}

}  // namespace kvez
