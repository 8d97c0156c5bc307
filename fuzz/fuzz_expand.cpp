// Any bytes expand to an error or to exactly what a plain byte-by-byte expander makes of them, and any bytes survive
// being compressed and expanded.

#include <array>
#include <cstdlib>

#include "platform/portable/szdd.h"

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

void Expect(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> input(data, size);
  const kvez::SzddResult expanded = kvez::ExpandSzdd(input);
  Expect(expanded.offset <= size);
  if (expanded.Ok()) {
    Expect(expanded.bytes == ExpandPlainly(input.subspan(14)));
  } else {
    Expect(expanded.bytes.empty());
  }
  const Bytes file = kvez::CompressSzdd(input, 'n');
  const kvez::SzddResult back = kvez::ExpandSzdd(file);
  Expect(back.Ok() && back.bytes == Bytes(input.begin(), input.end()));
  return 0;
}
