#pragma once

#include <cstdint>
#include <fstream>
#include <limits>
#include <map>
#include <span>
#include <string>

#include "platform/lz_library.h"

namespace kvez {

/// The expansion library for a machine without one, on files, with our own expander behind it.
///
/// A handle that is left open is closed with the library. A damaged file is copied to nothing: the target keeps what
/// it had.
class PortableLzLibrary : public LzLibrary {
 public:
  // The negative results, with the values that the platform's library gives them.
  static constexpr std::int32_t kBadSource = -1;  // no such handle, not open for reading, or no such file
  static constexpr std::int32_t kBadTarget = -2;  // no such handle, not open for writing, or the file cannot be made
  static constexpr std::int32_t kReadError = -3;  // the file cannot be read, or is damaged
  static constexpr std::int32_t kWriteError = -4;
  static constexpr std::int32_t kNoMemory = -5;
  static constexpr std::int32_t kBadValue = -7;          // more bytes than a result may tell
  static constexpr std::int32_t kUnknownAlgorithm = -8;  // another compression mode than 'A'

  /// Copies that would write more than `mostBytes` are refused; a result tells no more than these.
  explicit PortableLzLibrary(std::size_t mostBytes = std::numeric_limits<std::int32_t>::max());

  std::int32_t OpenFile(const std::wstring& path, LzMode mode) override;
  std::int32_t Copy(std::int32_t source, std::int32_t target) override;
  void Close(std::int32_t handle) override;

  /// How many handles are open now.
  std::size_t OpenHandles() const { return m_open.size(); }

 private:
  struct Entry {
    LzMode mode;
    std::fstream stream;
  };

  std::int32_t Expand(std::istream& source, std::ostream& target) const;
  std::int32_t Write(std::span<const std::uint8_t> bytes, std::ostream& target) const;

  std::size_t m_mostBytes;
  std::map<std::int32_t, Entry> m_open;
  std::int32_t m_lastHandle = 0;
};

}  // namespace kvez
