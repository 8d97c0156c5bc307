#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kvez {

/// Reads the fields of an expanded data file one after the other, little-endian.
///
/// Nothing outside the file is touched: what lies behind its end reads as zero bytes, and the position goes on
/// counting as the fields declare, so that a record which ran past the end shows in Overrun().
class FieldReader {
 public:
  explicit FieldReader(std::span<const std::uint8_t> file) : m_file(file) {}

  std::int32_t Int32() { return static_cast<std::int32_t>(Unsigned(4)); }
  std::int16_t Int16() { return static_cast<std::int16_t>(Unsigned(2)); }

  /// A 16-bit length and as many bytes of Windows-1250. Only the bytes inside the file are given back; they stay
  /// valid as long as the file does.
  std::string_view CountedText();

  /// Bytes from the beginning of the file to the end of the last field, whether the file has them or not.
  std::uint64_t Position() const { return m_position; }
  std::uint64_t Length() const { return m_file.size(); }
  bool AtEnd() const { return m_position == m_file.size(); }
  bool Overrun() const { return m_position > m_file.size(); }

 private:
  std::uint32_t Unsigned(unsigned bytes);

  std::span<const std::uint8_t> m_file;
  std::uint64_t m_position = 0;
};

}  // namespace kvez
