#include "database/name_pattern.h"

#include "text/quoted.h"

namespace kvez {
namespace {

// An asterisk anywhere goes before a question mark anywhere.
std::size_t FindWildcard(std::wstring_view text) {
  const std::size_t asterisk = text.find(L'*');
  return asterisk != std::wstring_view::npos ? asterisk : text.find(L'?');
}

std::wstring_view Prefix(NameMode mode) {
  switch (mode) {
    case NameMode::Contains:
      return L"Název obsahuje ";
    case NameMode::EndsWith:
      return L"Název končí ";
    case NameMode::BeginsWith:
    case NameMode::BeginsAndEndsWith:
      return L"Název začíná ";
    case NameMode::Whole:
      break;
  }
  return L"Název obce ";
}

}  // namespace

std::optional<NamePattern> ParseNamePattern(std::wstring_view text) {
  const std::size_t wildcard = FindWildcard(text);
  if (wildcard == std::wstring_view::npos) return NamePattern{NameMode::Whole, std::wstring(text), {}};

  const bool leading = IsWildcard(text.front());
  const bool trailing = IsWildcard(text.back());
  if (leading && trailing && text.size() < 3) return std::nullopt;

  // The place of the one wildcard that counts decides, even when another one begins or ends the text.
  if (wildcard > 0 && wildcard + 1 < text.size()) {
    return NamePattern{NameMode::BeginsAndEndsWith, std::wstring(text.substr(0, wildcard)),
                       std::wstring(text.substr(wildcard + 1))};
  }
  if (leading) text.remove_prefix(1);
  if (trailing) text.remove_suffix(1);
  const NameMode mode = leading && trailing ? NameMode::Contains : leading ? NameMode::EndsWith : NameMode::BeginsWith;
  return NamePattern{mode, std::wstring(text), {}};
}

std::wstring DescribeNamePattern(const NamePattern& pattern) {
  std::wstring description(Prefix(pattern.mode));
  description += Quoted(pattern.text);
  if (pattern.mode == NameMode::BeginsAndEndsWith) description += L" a končí " + Quoted(pattern.right);
  return description + L".";
}

}  // namespace kvez
