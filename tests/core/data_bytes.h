#pragma once

#include <string_view>

#include "tests/core/fakes.h"
#include "text/windows1250.h"

/// Expanded data files, put together field by field.
namespace kvez::fakes {

inline void AppendInteger(Bytes& bytes, std::uint32_t value, unsigned width) {
  for (unsigned i = 0; i < width; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

inline void AppendText(Bytes& bytes, std::wstring_view text) {
  const std::string encoded = ToWindows1250(text);
  AppendInteger(bytes, static_cast<std::uint32_t>(encoded.size()), 2);
  bytes.insert(bytes.end(), encoded.begin(), encoded.end());
}

inline void AppendMunicipality(Bytes& bytes, std::int32_t code, std::wstring_view name, std::wstring_view district) {
  AppendInteger(bytes, static_cast<std::uint32_t>(code), 4);
  AppendText(bytes, name);
  AppendText(bytes, district);
}

inline void AppendPostOffice(Bytes& bytes, std::int32_t code, std::wstring_view name) {
  AppendInteger(bytes, static_cast<std::uint32_t>(code), 4);
  AppendText(bytes, name);
}

inline void AppendDistrict(Bytes& bytes, std::int32_t code, std::wstring_view name) {
  AppendInteger(bytes, static_cast<std::uint32_t>(code), 2);
  AppendText(bytes, name);
}

}  // namespace kvez::fakes
