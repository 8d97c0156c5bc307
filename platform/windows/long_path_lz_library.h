#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "platform/lz_library.h"
#include "platform/windows/owned.h"
#include "platform/windows/patience.h"

namespace kvez {

/// The expansion library for paths that the system's own cannot take, with the portable expander behind it and the
/// same answers. It differs from the one that keeps everything in memory in what it opens: the expanded file lies
/// beside the program, where another program may hold it. A damaged file is copied to nothing.
class LongPathLzLibrary : public LzLibrary {
 public:
  explicit LongPathLzLibrary(Patience patience = {}) : m_patience(std::move(patience)) {}

  std::int32_t OpenFile(const std::wstring& path, LzMode mode) override;
  std::int32_t Copy(std::int32_t source, std::int32_t target) override;
  void Close(std::int32_t handle) override;

 private:
  Patience m_patience;
  std::map<std::int32_t, OwnedFile> m_open;
  std::int32_t m_lastHandle = 0;
};

}  // namespace kvez
