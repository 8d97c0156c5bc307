#pragma once

#include "platform/folder_dialog.h"

namespace kvez {

/// The shell's folder dialog. The calling thread has initialised COM.
class WindowsFolderDialog : public FolderDialog {
 public:
  std::optional<std::wstring> Browse(std::wstring_view prompt) override;
  bool IsDirectory(const std::wstring& path) override;
};

}  // namespace kvez
