#pragma once

#include <cstdint>
#include <string>

namespace kvez {

/// A shortcut: the file that holds it, and what it says. The icon is the target's.
struct ShellLink {
  std::wstring path;
  std::wstring target;
  std::wstring folder;           // the working folder
  std::int16_t windowState = 0;  // by the system's numbers
};

/// The shell's folders and file operations, by the numbers that the shell itself gives them.
class Shell {
 public:
  virtual ~Shell() = default;

  /// The path of a special folder (0 is the desktop), without a trailing separator; empty when the shell refuses.
  virtual std::wstring SpecialFolder(std::int32_t folder) = 0;

  /// Starts a file search for a path and returns its handle, or -1 when nothing is found. Nobody closes the handle.
  virtual std::intptr_t FindFile(const std::wstring& path) = 0;

  /// Runs a file operation (1 move, 2 copy, 3 delete, 4 rename) on one file over the foreground window.
  /// Returns the shell's own result, 0 for success.
  virtual std::int32_t FileOperation(std::int32_t operation, const std::wstring& from, const std::wstring& to,
                                     std::uint16_t flags) = 0;

  /// Whether 8-bit programs can be told a path: the system's 8-bit code page spells it without loss.
  virtual bool IsSpelt(const std::wstring& path) = 0;

  /// Saves a shortcut, over one that is there. False when the shell refuses.
  virtual bool SaveLink(const ShellLink& link) = 0;
};

}  // namespace kvez
