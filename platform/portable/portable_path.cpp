#include "platform/portable/portable_path.h"

#include <type_traits>

#include "text/utf8.h"

namespace kvez {
namespace {

constexpr bool kWidePaths = std::is_same_v<std::filesystem::path::value_type, wchar_t>;

template <class Text>
std::filesystem::path FromText(const Text& text) {
  if constexpr (kWidePaths) {
    return std::filesystem::path(text);
  } else {
    return std::filesystem::path(ToUtf8(text));
  }
}

template <class Path>
std::wstring FromPath(const Path& path) {
  if constexpr (kWidePaths) {
    return path.native();
  } else {
    // A name that is no UTF-8 is only shown; letters of ASCII stay readable.
    if (auto text = FromUtf8(path.native())) return *text;
    std::wstring text;
    for (const char byte : path.native()) text.push_back(byte >= 0 ? static_cast<wchar_t>(byte) : wchar_t{0xFFFD});
    return text;
  }
}

}  // namespace

std::filesystem::path PathFromText(const std::wstring& text) { return FromText(text); }

std::wstring TextFromPath(const std::filesystem::path& path) { return FromPath(path); }

std::filesystem::path PortablePath(std::wstring path) {
  if constexpr (!kWidePaths) {
    const std::size_t last = path.find_last_of(L"\\/");
    if (last != std::wstring::npos && path[last] == L'\\') path[last] = L'/';
  }
  return PathFromText(path);
}

}  // namespace kvez
