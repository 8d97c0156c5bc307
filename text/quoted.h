#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// The text between double-quote characters.
inline std::wstring Quoted(std::wstring_view text) {
  std::wstring quoted;
  quoted.reserve(text.size() + 2);
  quoted += L'"';
  quoted += text;
  quoted += L'"';
  return quoted;
}

}  // namespace kvez
