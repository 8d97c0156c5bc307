#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kvez {

// The header of a compressed file: the signature, the compression mode, the last character of the file's name, the
// length of what it expands to in 32 bits.
inline constexpr std::array<std::uint8_t, 8> kSzddSignature = {'S', 'Z', 'D', 'D', 0x88, 0xF0, 0x27, 0x33};
inline constexpr std::size_t kSzddModeOffset = 8;
inline constexpr std::uint8_t kSzddMode = 'A';
inline constexpr std::size_t kSzddLengthOffset = 10;
inline constexpr std::size_t kSzddHeaderSize = 14;

/// What an expansion came to. On an error `bytes` is empty, `offset` is the 0-based position in the compressed file
/// where it shows, and `error` says in plain English what was expected there.
struct SzddResult {
  std::vector<std::uint8_t> bytes;
  std::size_t offset = 0;
  std::string error;

  bool Ok() const { return error.empty(); }
};

/// True when the file begins with the eight bytes of the SZDD signature.
bool IsSzdd(std::span<const std::uint8_t> file);

/// Expands an SZDD file (LZSS, window of 4096 bytes, compression mode 'A'). The declared length is enforced: a stream
/// that ends before it, goes on after it, or declares more than 17 bytes can expand to (144) is an error.
/// Reads and writes nothing outside its buffers, whatever the bytes are.
SzddResult ExpandSzdd(std::span<const std::uint8_t> file);

/// Compresses into an SZDD file. `lastCharacter` goes into the header: the last character of the uncompressed
/// file's name, which the format replaces by "_". No stream of the format is shorter than the one made here (but for
/// matches that begin in the last 18 bytes of the window, which are left out for expanders that fill it ahead).
/// Throws std::length_error from 4 GiB on.
std::vector<std::uint8_t> CompressSzdd(std::span<const std::uint8_t> plain, char lastCharacter);

}  // namespace kvez
