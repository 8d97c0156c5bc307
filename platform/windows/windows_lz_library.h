#pragma once

#include <string>
#include <unordered_map>
#include <utility>

#include "platform/lz_library.h"
#include "platform/windows/long_path_lz_library.h"

namespace kvez {

/// Expansion through the system's LZ library. That library knows paths of fewer than 128 bytes in the 8-bit code page
/// only; other paths go past it, with the same results, and all of them where the system has no such library. What that
/// library lets pass of a damaged file, it never sees.
class WindowsLzLibrary : public LzLibrary {
 public:
  explicit WindowsLzLibrary(Patience patience = {}) : m_patience(std::move(patience)), m_longPaths(m_patience) {}

  std::int32_t OpenFile(const std::wstring& path, LzMode mode) override;
  std::int32_t Copy(std::int32_t source, std::int32_t target) override;
  void Close(std::int32_t handle) override;

 private:
  std::int32_t OpenLongPath(const std::wstring& path, LzMode mode);
  std::int32_t OpenThroughSystem(const std::wstring& path, std::string& bytes, LzMode mode);

  Patience m_patience;
  LongPathLzLibrary m_longPaths;
  std::unordered_map<std::int32_t, std::wstring> m_open;  // the system's handles and the paths behind them
};

}  // namespace kvez
