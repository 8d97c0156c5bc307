#include "platform/portable/szdd.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace kvez {
namespace {

constexpr std::size_t kWindow = 4096;
constexpr std::size_t kFirstWritePosition = 4080;
constexpr std::size_t kShortestMatch = 3;
constexpr std::size_t kLongestMatch = 18;
constexpr std::uint8_t kBlank = 0x20;

// One control byte and its eight items at their largest.
constexpr std::size_t kGroupItems = 8;
constexpr std::size_t kGroupBytes = 1 + kGroupItems * 2;
constexpr std::size_t kGroupExpanded = kGroupItems * kLongestMatch;

/// The most that a stream of `bytes` bytes can expand to.
std::uint64_t LargestExpansion(std::uint64_t bytes) {
  const std::uint64_t rest = bytes % kGroupBytes;
  const std::uint64_t items = rest == 0 ? 0 : rest - 1;
  // A match takes two bytes; an odd byte at the end can only be a literal.
  return bytes / kGroupBytes * kGroupExpanded + items / 2 * kLongestMatch + items % 2;
}

struct Match {
  std::size_t distance;  // 1 to 4096 bytes back
  std::size_t length;
};

Match DecodeMatch(const std::uint8_t* pair, std::size_t written) {
  const std::size_t position = pair[0] | (pair[1] & 0xF0U) << 4;
  const std::size_t back = (kFirstWritePosition + written - position) % kWindow;
  // The position about to be written holds the oldest byte of the window.
  return {back == 0 ? kWindow : back, (pair[1] & 0x0FU) + kShortestMatch};
}

class Expander {
 public:
  Expander(std::span<const std::uint8_t> file, std::size_t declared) : m_in(file), m_out(declared) {}

  SzddResult Run();

 private:
  void RunFast();
  void RunChecked();
  bool Literal();
  bool CopyChecked();
  bool Fail(std::size_t offset, std::string error);
  bool FailAtEnd();

  std::span<const std::uint8_t> m_in;
  std::vector<std::uint8_t> m_out;
  std::size_t m_read = kSzddHeaderSize;
  std::size_t m_written = 0;
  std::size_t m_errorOffset = 0;
  std::string m_error;
};

bool Expander::Fail(std::size_t offset, std::string error) {
  m_errorOffset = offset;
  m_error = std::move(error);
  return false;
}

bool Expander::FailAtEnd() {
  return Fail(m_in.size(), "the compressed stream ends after " + std::to_string(m_written) + " of " +
                               std::to_string(m_out.size()) + " declared bytes; more of it was expected");
}

bool Expander::Literal() {
  if (m_read == m_in.size()) return FailAtEnd();
  m_out[m_written++] = m_in[m_read++];
  return true;
}

bool Expander::CopyChecked() {
  if (m_in.size() - m_read < 2) return FailAtEnd();
  const Match match = DecodeMatch(&m_in[m_read], m_written);
  const std::size_t left = m_out.size() - m_written;
  if (match.length > left) {
    std::string expected = "a match of ";
    expected += std::to_string(match.length);
    expected += " bytes where at most ";
    expected += std::to_string(left);
    expected += " were expected before the declared length";
    return Fail(m_read, std::move(expected));
  }
  m_read += 2;
  for (std::size_t i = 0; i < match.length; ++i, ++m_written) {
    // The window begins full of blanks.
    m_out[m_written] = match.distance > m_written ? kBlank : m_out[m_written - match.distance];
  }
  return true;
}

/// Goes on with every bound checked, until the stream or its room is used up.
void Expander::RunChecked() {
  while (m_written < m_out.size()) {
    if (m_read == m_in.size()) {
      FailAtEnd();
      return;
    }
    unsigned control = m_in[m_read++];
    for (std::size_t item = 0; item < kGroupItems && m_written < m_out.size(); ++item, control >>= 1) {
      if (!((control & 1U) != 0 ? Literal() : CopyChecked())) return;
    }
    // Whole groups far from both ends need no check.
    if (m_written >= kWindow) RunFast();
  }
}

/// Expands whole groups while both buffers have room for the largest one and nothing reaches before the output.
void Expander::RunFast() {
  const std::uint8_t* in = m_in.data() + m_read;
  const std::uint8_t* const inEnd = m_in.data() + m_in.size();
  std::uint8_t* const begin = m_out.data();
  std::uint8_t* out = begin + m_written;
  const std::uint8_t* const outEnd = begin + m_out.size();
  while (static_cast<std::size_t>(inEnd - in) >= kGroupBytes &&
         static_cast<std::size_t>(outEnd - out) >= kGroupExpanded) {
    unsigned control = *in++;
    for (std::size_t item = 0; item < kGroupItems; ++item, control >>= 1) {
      if ((control & 1U) != 0) {
        *out++ = *in++;
        continue;
      }
      const Match match = DecodeMatch(in, static_cast<std::size_t>(out - begin));
      in += 2;
      const std::uint8_t* from = out - match.distance;
      if (match.distance >= kLongestMatch) {
        // A fixed size is one pair of moves; what it writes too much is written over, and the group has the room.
        std::memcpy(out, from, kLongestMatch);
      } else {
        for (std::size_t i = 0; i < match.length; ++i) out[i] = from[i];
      }
      out += match.length;
    }
  }
  m_read = static_cast<std::size_t>(in - m_in.data());
  m_written = static_cast<std::size_t>(out - begin);
}

SzddResult Expander::Run() {
  RunChecked();
  if (m_error.empty() && m_read != m_in.size()) {
    Fail(m_read, "the end of the file was expected after the declared " + std::to_string(m_out.size()) + " bytes");
  }
  if (!m_error.empty()) return {{}, m_errorOffset, std::move(m_error)};
  return {std::move(m_out), 0, {}};
}

/// For every position of the plain bytes, the longest match behind it.
class MatchFinder {
 public:
  explicit MatchFinder(std::span<const std::uint8_t> plain)
      : m_text(kWindow, kBlank), m_newest(kHashes, kNone), m_older(kWindow) {
    m_text.insert(m_text.end(), plain.begin(), plain.end());
    for (std::size_t i = 0; i < kWindow; ++i) Insert(i);
  }

  /// The match for position `at` of the plain bytes; positions are asked for in order. A length of 0 is no match.
  Match Longest(std::size_t at) {
    const std::size_t here = at + kWindow;
    Match best{0, 0};
    const std::size_t limit = std::min(kLongestMatch, m_text.size() - here);
    if (limit >= kShortestMatch) {
      std::size_t candidate = m_newest[Hash(here)];
      while (candidate != kNone && here - candidate <= kFurthest && best.length < limit) {
        const std::size_t length = CommonLength(candidate, here, limit);
        if (length > best.length) best = {here - candidate, length};
        candidate = m_older[candidate % kWindow];
      }
    }
    Insert(here);
    if (best.length < kShortestMatch) best.length = 0;
    return best;
  }

 private:
  static constexpr std::size_t kHashes = 1U << 15;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  // A match never reads what it overwrites in the window: some expanders fill the window ahead of their reading.
  static constexpr std::size_t kFurthest = kWindow - kLongestMatch;

  std::size_t Hash(std::size_t at) const {
    const std::uint32_t three =
        m_text[at] | static_cast<std::uint32_t>(m_text[at + 1]) << 8 | static_cast<std::uint32_t>(m_text[at + 2]) << 16;
    return (three * 0x9E3779B1U) >> 17;
  }

  std::size_t CommonLength(std::size_t a, std::size_t b, std::size_t limit) const {
    std::size_t length = 0;
    while (length < limit && m_text[a + length] == m_text[b + length]) ++length;
    return length;
  }

  void Insert(std::size_t at) {
    if (m_text.size() - at < kShortestMatch) return;
    std::size_t& newest = m_newest[Hash(at)];
    m_older[at % kWindow] = newest;
    newest = at;
  }

  std::vector<std::uint8_t> m_text;  // the blanks that the window begins with, then the plain bytes
  std::vector<std::size_t> m_newest;
  std::vector<std::size_t> m_older;
};

struct Item {
  std::uint16_t distance = 0;
  std::uint8_t length = 1;  // 1 is a literal
};

/// The cheapest way through the plain bytes: every match costs the same whatever its distance, so the longest match
/// of each position (and all shorter ones within it) is all there is to choose from.
std::vector<Item> CheapestItems(std::span<const std::uint8_t> plain) {
  constexpr std::uint64_t literalBits = 9;
  constexpr std::uint64_t matchBits = 17;
  std::vector<Item> items(plain.size());
  MatchFinder finder(plain);
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const Match match = finder.Longest(i);
    items[i] = {static_cast<std::uint16_t>(match.distance), static_cast<std::uint8_t>(match.length)};
  }
  std::vector<std::uint64_t> bitsFrom(plain.size() + 1);
  for (std::size_t i = plain.size(); i-- > 0;) {
    const std::size_t longest = items[i].length;
    bitsFrom[i] = literalBits + bitsFrom[i + 1];
    items[i].length = 1;
    for (std::size_t length = kShortestMatch; length <= longest; ++length) {
      const std::uint64_t bits = matchBits + bitsFrom[i + length];
      if (bits >= bitsFrom[i]) continue;
      bitsFrom[i] = bits;
      items[i].length = static_cast<std::uint8_t>(length);
    }
  }
  return items;
}

}  // namespace

bool IsSzdd(std::span<const std::uint8_t> file) {
  return file.size() >= kSzddSignature.size() && std::equal(kSzddSignature.begin(), kSzddSignature.end(), file.begin());
}

SzddResult ExpandSzdd(std::span<const std::uint8_t> file) {
  const auto fail = [](std::size_t offset, std::string error) { return SzddResult{{}, offset, std::move(error)}; };
  const std::size_t comparable = std::min(file.size(), kSzddSignature.size());
  for (std::size_t i = 0; i < comparable; ++i) {
    if (file[i] != kSzddSignature[i]) return fail(i, "the SZDD signature was expected");
  }
  if (file.size() < kSzddHeaderSize) return fail(file.size(), "a header of 14 bytes was expected");
  if (file[kSzddModeOffset] != kSzddMode) return fail(kSzddModeOffset, "the compression mode 'A' was expected");
  std::uint32_t declared = 0;
  for (std::size_t i = 4; i-- > 0;) declared = declared << 8 | file[kSzddLengthOffset + i];
  const std::uint64_t largest = LargestExpansion(file.size() - kSzddHeaderSize);
  // Before anything is allocated: a few bytes must not ask for gigabytes.
  if (declared > largest) {
    return fail(kSzddLengthOffset, "a length of " + std::to_string(declared) + " is declared where at most " +
                                       std::to_string(largest) + " was expected of a stream of " +
                                       std::to_string(file.size() - kSzddHeaderSize) + " bytes");
  }
  return Expander(file, declared).Run();
}

std::vector<std::uint8_t> CompressSzdd(std::span<const std::uint8_t> plain, char lastCharacter) {
  if (std::uint64_t{plain.size()} > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("An SZDD file declares its length in 32 bits.");
  }
  std::vector<std::uint8_t> file(kSzddSignature.begin(), kSzddSignature.end());
  file.push_back(kSzddMode);
  file.push_back(static_cast<std::uint8_t>(lastCharacter));
  for (unsigned shift = 0; shift < 32; shift += 8) file.push_back(static_cast<std::uint8_t>(plain.size() >> shift));

  const std::vector<Item> items = CheapestItems(plain);
  std::size_t control = 0;
  std::size_t itemOfGroup = kGroupItems;
  for (std::size_t i = 0; i < plain.size(); i += items[i].length, ++itemOfGroup) {
    if (itemOfGroup == kGroupItems) {
      itemOfGroup = 0;
      control = file.size();
      file.push_back(0);
    }
    if (items[i].length == 1) {
      file[control] = static_cast<std::uint8_t>(file[control] | 1U << itemOfGroup);
      file.push_back(plain[i]);
      continue;
    }
    const std::size_t position = (kFirstWritePosition + i - items[i].distance) % kWindow;
    file.push_back(static_cast<std::uint8_t>(position));
    file.push_back(static_cast<std::uint8_t>((position >> 4 & 0xF0U) | (items[i].length - kShortestMatch)));
  }
  return file;
}

}  // namespace kvez
