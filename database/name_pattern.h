#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvez {

enum class NameMode : std::uint8_t { Whole, BeginsWith, EndsWith, BeginsAndEndsWith, Contains };

constexpr bool IsWildcard(wchar_t character) { return character == L'*' || character == L'?'; }

/// What a typed text with the wildcards "*" and "?" asks for. Both wildcards stand for any run of characters, and
/// only one counts; any other is an ordinary character, which no name has.
struct NamePattern {
  NameMode mode = NameMode::Whole;
  std::wstring text;   // without the wildcards; of BeginsAndEndsWith the left part
  std::wstring right;  // of BeginsAndEndsWith the right part, else empty
};

/// Nothing when the text is wildcards only. `text` is not empty.
std::optional<NamePattern> ParseNamePattern(std::wstring_view text);

/// The line that says what was searched for.
std::wstring DescribeNamePattern(const NamePattern& pattern);

}  // namespace kvez
