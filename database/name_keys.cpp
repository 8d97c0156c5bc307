#include "database/name_keys.h"

#include <algorithm>
#include <optional>

#include "database/name_normalisation.h"
#include "text/fold.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

// The digraph "ch" is one letter. The rules below keep a pattern from ending or beginning in the middle of it. The
// pattern "ch" itself needs no exception: it neither ends in "c" nor begins with "h".

// Names of any length and letter follow each other, so a branch on one letter is mispredicted again and again once the
// list outgrows what the processor remembers. Two letters judged at once seldom agree by chance, and a branch on them
// is cheap.
bool EndsDiffer(const char* name, std::string_view pattern) {
  return ((name[0] ^ pattern.front()) | (name[pattern.size() - 1] ^ pattern.back())) != 0;
}

bool Equals(std::string_view name, std::string_view pattern) {
  // An empty name has a readable character too: the text's terminator at the least.
  const std::size_t last = name.size() - (name.empty() ? 0 : 1);
  const std::size_t differences = (name.size() ^ pattern.size()) |
                                  static_cast<unsigned char>(name.data()[0] ^ pattern.front()) |
                                  static_cast<unsigned char>(name.data()[last] ^ pattern.back());
  return differences == 0 && name == pattern;
}

bool BeginsWith(std::string_view name, std::string_view pattern) {
  if (name.size() < pattern.size() || EndsDiffer(name.data(), pattern) || !name.starts_with(pattern)) return false;
  return name.size() == pattern.size() || pattern.back() != 'c' || name[pattern.size()] != 'h';
}

bool EndsWith(std::string_view name, std::string_view pattern) {
  if (name.size() < pattern.size()) return false;
  const std::size_t start = name.size() - pattern.size();
  if (EndsDiffer(name.data() + start, pattern) || !name.ends_with(pattern)) return false;
  return start == 0 || pattern.front() != 'h' || name[start - 1] != 'c';
}

// Whether the first occurrence of a shorter pattern, `position` characters into the name, counts. A later occurrence
// is not asked about when it does not.
bool OccurrenceCounts(std::string_view name, std::string_view pattern, std::size_t position) {
  if (position == 0) return pattern.back() != 'c' || name[pattern.size()] != 'h';
  // The character looked at is the one before the pattern if the pattern stood at the end of the name, wherever it
  // was found. It is the rule of EndsWith, taken over as it is on purpose.
  return pattern.front() != 'h' || name[name.size() - pattern.size() - 1] != 'c';
}

// The place of `needle` in `text` from `from` on. Most places fail on the first or the last character, so whole
// blocks are judged by these two: a loop without an early way out lets the compiler compare many bytes at once.
std::size_t FindFrom(std::string_view text, std::string_view needle, std::size_t from) {
  // What stands in most names is found at once; a whole block would cost each of them more than that.
  constexpr std::size_t kNear = 16;
  const std::size_t near = text.substr(from, kNear).find(needle);
  if (near != std::string_view::npos) return from + near;
  constexpr std::size_t kBlock = 128;
  const std::size_t last = needle.size() - 1;
  const char* const begin = text.data();
  std::size_t i = from;
  for (; i + kBlock + last <= text.size(); i += kBlock) {
    unsigned char candidates = 0;
    for (std::size_t k = 0; k < kBlock; ++k) {
      const int differences = (begin[i + k] ^ needle.front()) | (begin[i + k + last] ^ needle.back());
      candidates = static_cast<unsigned char>(candidates | (differences == 0 ? 1 : 0));
    }
    if (candidates == 0) continue;
    const std::size_t found = text.substr(i, kBlock + last).find(needle);
    if (found != std::string_view::npos) return i + found;
  }
  return text.find(needle, i);
}

// Nothing when the text has a character that no name can have.
std::optional<std::string> Folded(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t character : text) {
    const auto byte = ToWindows1250(character);
    if (!byte) return std::nullopt;
    bytes.push_back(static_cast<char>(FoldTable1250()[*byte]));
  }
  return bytes;
}

tpclspsc PositionOf(std::size_t index) {
  tpclspsc position;
  position.tpPozice(static_cast<std::int32_t>(index + 1));
  return position;
}

}  // namespace

void NameKeys::Append(std::string_view name) {
  const auto& fold = FoldTable1250();
  const std::string_view normalised = NormalisedName(name);
  const std::size_t begin = m_text.size();
  m_ends.push_back(static_cast<std::uint32_t>(begin + normalised.size()));
  try {
    m_text.append(normalised);
  } catch (...) {
    m_ends.pop_back();
    throw;
  }
  std::transform(m_text.begin() + static_cast<std::ptrdiff_t>(begin), m_text.end(),
                 m_text.begin() + static_cast<std::ptrdiff_t>(begin),
                 [&fold](char byte) { return static_cast<char>(fold[static_cast<std::uint8_t>(byte)]); });
}

void NameKeys::RemoveLast() {
  m_ends.pop_back();
  m_text.resize(m_ends.empty() ? 0 : m_ends.back());
}

std::string_view NameKeys::Key(std::size_t index) const {
  const std::size_t begin = index == 0 ? 0 : m_ends[index - 1];
  return std::string_view(m_text).substr(begin, m_ends[index] - begin);
}

std::vector<tpclspsc> NameKeys::Find(const NamePattern& pattern) const {
  std::vector<tpclspsc> found;
  const auto text = Folded(pattern.text);
  const auto right = Folded(pattern.right);
  if (!text || !right || text->empty()) return found;
  switch (pattern.mode) {
    case NameMode::Whole:
      FindEach(found, [&](std::string_view name) { return Equals(name, *text); });
      break;
    case NameMode::BeginsWith:
      FindEach(found, [&](std::string_view name) { return BeginsWith(name, *text); });
      break;
    case NameMode::EndsWith:
      FindEach(found, [&](std::string_view name) { return EndsWith(name, *text); });
      break;
    case NameMode::BeginsAndEndsWith:
      // When the two parts are together as long as the name, their tests make it their concatenation by themselves.
      FindEach(found, [&](std::string_view name) { return BeginsWith(name, *text) && EndsWith(name, *right); });
      break;
    case NameMode::Contains:
      FindContaining(found, *text);
      break;
  }
  return found;
}

template <class Matches>
void NameKeys::FindEach(std::vector<tpclspsc>& found, Matches matches) const {
  const std::string_view text(m_text);
  std::size_t begin = 0;
  for (std::size_t i = 0; i < m_ends.size(); ++i) {
    const std::size_t end = m_ends[i];
    if (matches(text.substr(begin, end - begin))) found.push_back(PositionOf(i));
    begin = end;
  }
}

void NameKeys::FindContaining(std::vector<tpclspsc>& found, std::string_view pattern) const {
  const std::string_view text(m_text);
  std::size_t index = 0;  // of the name that the place is in
  std::size_t place = FindFrom(text, pattern, 0);
  while (place != std::string_view::npos) {
    while (m_ends[index] <= place) ++index;
    const std::string_view name = Key(index);
    const std::size_t position = place - (m_ends[index] - name.size());
    // An occurrence may begin in this name and end in the next ones; then no later one fits into this name either.
    if (position + pattern.size() <= name.size()) {
      const bool whole = name.size() == pattern.size();
      if (whole || OccurrenceCounts(name, pattern, position)) found.push_back(PositionOf(index));
    }
    place = FindFrom(text, pattern, m_ends[index]);
  }
}

}  // namespace kvez
