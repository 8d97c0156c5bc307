#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/lz_library.h"
#include "platform/portable/lz_expansion.h"
#include "platform/portable/portable_files.h"

namespace kvez {

/// The expansion library for whoever only wants to look: compressed files are read from the disk, and what they expand
/// to is kept here, under the path that it would have, until it is deleted. Nothing is ever written to the disk, so any
/// number of processes can look into one folder, a read-only one included.
class MemoryLzLibrary : public LzLibrary, public Files {
 public:
  std::int32_t OpenFile(const std::wstring& path, LzMode mode) override;
  std::int32_t Copy(std::int32_t source, std::int32_t target) override;
  void Close(std::int32_t handle) override;

  /// An expanded file. There are no others here.
  std::optional<std::vector<std::uint8_t>> Read(const std::wstring& path) override;
  /// Of a file on the disk.
  std::optional<DateTime> LastWriteTime(const std::wstring& path) override;

  /// How many handles are open now.
  std::size_t OpenHandles() const { return m_open.size(); }

 private:
  struct Entry {
    LzMode mode;
    std::wstring path;
    std::vector<std::uint8_t> file;  // what was opened for reading
  };

  PortableFiles m_disk;
  std::map<std::wstring, std::vector<std::uint8_t>> m_expanded;
  std::map<std::int32_t, Entry> m_open;
  std::int32_t m_lastHandle = 0;
};

}  // namespace kvez
