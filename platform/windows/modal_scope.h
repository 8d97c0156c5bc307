#pragma once

#include <windows.h>

#include <vector>

namespace kvez {

/// Makes a dialog modal to the whole program: the system disables the dialog's owner, this the other windows of the
/// thread for as long as it lives.
class ModalScope {
 public:
  explicit ModalScope(HWND owner);
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;
  ~ModalScope();

 private:
  std::vector<HWND> m_disabled;
};

}  // namespace kvez
