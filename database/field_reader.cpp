#include "database/field_reader.h"

#include <algorithm>

namespace kvez {

std::uint32_t FieldReader::Unsigned(unsigned bytes) {
  std::uint32_t value = 0;
  for (unsigned i = 0; i < bytes && m_position + i < m_file.size(); ++i) {
    value |= static_cast<std::uint32_t>(m_file[static_cast<std::size_t>(m_position + i)]) << (8 * i);
  }
  m_position += bytes;
  return value;
}

std::string_view FieldReader::CountedText() {
  const std::uint32_t declared = Unsigned(2);
  const std::uint64_t begin = std::min<std::uint64_t>(m_position, m_file.size());
  const std::uint64_t present = std::min<std::uint64_t>(declared, m_file.size() - begin);
  m_position += declared;
  const auto bytes = m_file.subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(present));
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace kvez
