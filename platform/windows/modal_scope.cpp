#include "platform/windows/modal_scope.h"

namespace kvez {
namespace {

struct Search {
  HWND owner;
  std::vector<HWND> found;
};

BOOL CALLBACK Collect(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  // What nobody sees, the helpers of the system among them, takes no input anyway.
  if (window != search.owner && IsWindowVisible(window) && IsWindowEnabled(window)) search.found.push_back(window);
  return TRUE;
}

}  // namespace

ModalScope::ModalScope(HWND owner) {
  Search search{owner, {}};
  EnumThreadWindows(GetCurrentThreadId(), &Collect, reinterpret_cast<LPARAM>(&search));
  for (const HWND window : search.found) EnableWindow(window, FALSE);
  m_disabled = std::move(search.found);
}

ModalScope::~ModalScope() {
  for (const HWND window : m_disabled) {
    if (IsWindow(window)) EnableWindow(window, TRUE);
  }
}

}  // namespace kvez
