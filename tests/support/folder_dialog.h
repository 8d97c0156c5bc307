#pragma once

#include <windows.h>

#include <string>

namespace kvez::test {

/// The system's folder dialog that a process shows, waiting for it to come; null when it does not.
HWND WaitFolderDialog(DWORD processId);

/// The text above the tree.
std::wstring FolderPrompt(HWND dialog);

/// Selects a folder in the tree as a click on it would; false when it is not there.
bool SelectFolder(HWND dialog, const std::wstring& path);

/// Presses the button (IDOK, IDCANCEL) and waits until the dialog is gone.
bool CloseFolderDialog(HWND dialog, int button);

}  // namespace kvez::test
