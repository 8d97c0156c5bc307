#include "database/name_normalisation.h"

namespace kvez {
namespace {

constexpr auto kNone = std::string_view::npos;

// "Praha IX" becomes "Praha". Only the last character is looked at; from there on anything goes up to the space.
// Without a space there is no number but a name in capitals: it stays.
std::string_view WithoutRomanNumber(std::string_view name) {
  if (name.empty() || std::string_view("IVX").find(name.back()) == kNone) return name;
  const std::size_t space = name.rfind(' ');
  return space == kNone ? name : name.substr(0, space);
}

std::string_view WithoutHyphen(std::string_view name) {
  const std::size_t hyphen = name.find('-');
  if (hyphen == kNone) return name;
  return WithoutRomanNumber(name.substr(0, hyphen));
}

// The least digit decides, at its first place, not the digit that stands first: "Lhota 2/1" is cut at the 1. There is
// no part number that begins with 0.
std::string_view WithoutDigit(std::string_view name) {
  std::size_t position = kNone;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool isDigit = name[i] >= '1' && name[i] <= '9';
    if (isDigit && (position == kNone || name[i] < name[position])) position = i;
  }
  if (position == kNone) return name;
  const bool afterSpace = position > 0 && name[position - 1] == ' ';
  return name.substr(0, afterSpace ? position - 1 : position);
}

std::string_view WithoutParenthesis(std::string_view name) {
  const std::size_t parenthesis = name.find('(');
  if (parenthesis == kNone) return name;
  // The character before it, normally a space, goes with it.
  return name.substr(0, parenthesis == 0 ? 0 : parenthesis - 1);
}

}  // namespace

std::string_view NormalisedName(std::string_view name) {
  // The first step that changes the name gives the result.
  for (const auto step : {WithoutRomanNumber, WithoutHyphen, WithoutDigit, WithoutParenthesis}) {
    const std::string_view shorter = step(name);
    if (shorter.size() != name.size()) return shorter;
  }
  return name;
}

}  // namespace kvez
