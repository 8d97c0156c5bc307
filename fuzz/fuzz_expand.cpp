// Any bytes expand to an error or to exactly what a plain byte-by-byte expander makes of them.

#include <array>

#include "fuzz/require.h"
#include "platform/portable/szdd.h"

namespace kvez {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The format as it is told: a ring of 4096 bytes full of blanks, written from 4080 on. Goes on until the stream ends.
Bytes ExpandPlainly(std::span<const std::uint8_t> stream) {
  std::array<std::uint8_t, 4096> ring;
  ring.fill(0x20);
  std::size_t position = 4080;
  Bytes out;
  const auto put = [&](std::uint8_t byte) {
    out.push_back(byte);
    ring[position++ % ring.size()] = byte;
  };
  for (std::size_t in = 0; in < stream.size();) {
    const unsigned control = stream[in++];
    for (unsigned bit = 0; bit < 8 && in < stream.size(); ++bit) {
      if ((control >> bit & 1U) != 0) {
        put(stream[in++]);
        continue;
      }
      if (in + 1 == stream.size()) return {};
      std::size_t from = stream[in] | (stream[in + 1] & 0xF0U) << 4;
      for (unsigned length = (stream[in + 1] & 0x0FU) + 3; length > 0; --length) put(ring[from++ % ring.size()]);
      in += 2;
    }
  }
  return out;
}

void Check(std::span<const std::uint8_t> input) {
  const SzddResult expanded = ExpandSzdd(input);
  Require(expanded.offset <= input.size(), "an error lies in the file");
  if (expanded.Ok()) {
    Require(IsSzdd(input), "what expands has the signature");
    Require(expanded.bytes == ExpandPlainly(input.subspan(14)), "it expands to what the plain expander makes of it");
  } else {
    Require(expanded.bytes.empty(), "nothing comes out with an error");
  }
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvez::Check({data, size});
  return 0;
}
