#include "text/utf8.h"

#include <cstdint>

namespace kvez {
namespace {

constexpr bool kPairs = sizeof(wchar_t) == 2;

bool IsHigh(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void Append(std::string& bytes, std::uint32_t point) {
  const auto continuation = [&](unsigned shift) {
    bytes.push_back(static_cast<char>(0x80U | (point >> shift & 0x3FU)));
  };
  if (point < 0x80) {
    bytes.push_back(static_cast<char>(point));
  } else if (point < 0x800) {
    bytes.push_back(static_cast<char>(0xC0U | point >> 6));
    continuation(0);
  } else if (point < 0x10000) {
    bytes.push_back(static_cast<char>(0xE0U | point >> 12));
    continuation(6);
    continuation(0);
  } else {
    bytes.push_back(static_cast<char>(0xF0U | point >> 18));
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 4);
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto point = static_cast<std::uint32_t>(text[i]);
    if (kPairs && IsHigh(point) && i + 1 < text.size() && IsLow(static_cast<std::uint32_t>(text[i + 1]))) {
      point = 0x10000 + ((point - 0xD800) << 10) + (static_cast<std::uint32_t>(text[++i]) - 0xDC00);
    } else if (IsHigh(point) || IsLow(point) || point > 0x10FFFF) {
      point = 0xFFFD;
    }
    Append(bytes, point);
  }
  return bytes;
}

std::optional<std::wstring> FromUtf8(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<std::uint8_t>(bytes[i++]);
    const unsigned more = lead < 0x80 ? 0 : lead < 0xC2 ? 4 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : 4;
    if (more == 4 || bytes.size() - i < more) return std::nullopt;
    std::uint32_t point = more == 0 ? lead : lead & (0x3FU >> more);
    for (unsigned k = 0; k < more; ++k) {
      const auto next = static_cast<std::uint8_t>(bytes[i++]);
      if ((next & 0xC0U) != 0x80U) return std::nullopt;
      point = point << 6 | (next & 0x3FU);
    }
    const bool overlong = (more == 2 && point < 0x800) || (more == 3 && point < 0x10000);
    if (overlong || IsHigh(point) || IsLow(point) || point > 0x10FFFF) return std::nullopt;
    if (kPairs && point >= 0x10000) {
      text.push_back(static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10)));
      text.push_back(static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FFU)));
    } else {
      text.push_back(static_cast<wchar_t>(point));
    }
  }
  return text;
}

}  // namespace kvez
