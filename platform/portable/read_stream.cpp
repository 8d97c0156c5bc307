#include "platform/portable/read_stream.h"

namespace kvez {

std::optional<std::vector<std::uint8_t>> ReadStream(std::istream& stream) {
  stream.clear();
  stream.seekg(0, std::ios::end);
  const std::streamoff size = stream.tellg();
  if (size < 0) return std::nullopt;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  stream.seekg(0);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (stream.gcount() != static_cast<std::streamsize>(bytes.size())) return std::nullopt;
  return bytes;
}

}  // namespace kvez
