#include "platform/windows/held_keys.h"

namespace kvez {

HeldKeysStayOutside::HeldKeysStayOutside()
    : m_outer(s_innermost), m_hook(SetWindowsHookExW(WH_MSGFILTER, &Filter, nullptr, GetCurrentThreadId())) {
  s_innermost = this;
}

HeldKeysStayOutside::~HeldKeysStayOutside() {
  s_innermost = m_outer;
  UnhookWindowsHookEx(m_hook);
}

LRESULT CALLBACK HeldKeysStayOutside::Filter(int code, WPARAM wParam, LPARAM lParam) {
  const auto& message = *reinterpret_cast<const MSG*>(lParam);
  if (code == MSGF_DIALOGBOX && s_innermost != nullptr && s_innermost->IsOfAKeyHeldBefore(message)) return TRUE;
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

bool HeldKeysStayOutside::IsOfAKeyHeldBefore(const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  const auto key = static_cast<std::size_t>(message.wParam & 0xFF);
  const bool isRepeated = (HIWORD(message.lParam) & KF_REPEAT) != 0;
  if (!isRepeated) m_pressedInside.set(key);
  return isRepeated && !m_pressedInside.test(key);
}

}  // namespace kvez
