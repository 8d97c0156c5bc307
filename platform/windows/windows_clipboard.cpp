#include "platform/windows/windows_clipboard.h"

#include <cstring>
#include <utility>

#include "platform/windows/owned.h"

namespace kvez {
namespace {

using OwnedGlobal = Owned<HGLOBAL, [](HGLOBAL memory) { GlobalFree(memory); }>;

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

WindowsClipboard::WindowsClipboard(std::function<HWND()> owner, Patience patience)
    : m_owner(std::move(owner)), m_patience(std::move(patience)) {}

bool WindowsClipboard::OpenPatiently() const {
  const HWND owner = m_owner();
  for (int paused = 0; !OpenClipboard(owner); ++paused) {
    if (paused == m_patience.pauses) return false;
    m_patience.pause();
  }
  return true;
}

void WindowsClipboard::Replace(std::wstring_view text) {
  const std::wstring terminated(text);
  if (!OpenPatiently()) return;
  EmptyClipboard();
  // The system makes the 8-bit text for older programs by this locale; left out, it takes the keyboard's, and Czech
  // letters get lost behind an English one.
  const LCID czech = MAKELCID(MAKELANGID(LANG_CZECH, SUBLANG_DEFAULT), SORT_DEFAULT);
  Put(CF_LOCALE, &czech, sizeof czech);
  Put(CF_UNICODETEXT, terminated.c_str(), (terminated.size() + 1) * sizeof(wchar_t));
  CloseClipboard();
}

}  // namespace kvez
