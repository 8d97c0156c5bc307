// Any bytes survive being compressed and expanded.

#include "fuzz/require.h"
#include "platform/portable/szdd.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> plain(data, size);
  const std::vector<std::uint8_t> file = kvez::CompressSzdd(plain, 'n');
  const kvez::SzddResult back = kvez::ExpandSzdd(file);
  kvez::Require(back.Ok(), "a compressed file expands");
  kvez::Require(back.bytes == std::vector<std::uint8_t>(plain.begin(), plain.end()), "it expands to what went into it");
  return 0;
}
