#include "platform/portable/portable_path.h"

namespace kvez {

std::filesystem::path PortablePath(std::wstring path) {
  if constexpr (std::filesystem::path::preferred_separator != L'\\') {
    const std::size_t last = path.find_last_of(L"\\/");
    if (last != std::wstring::npos && path[last] == L'\\') path[last] = L'/';
  }
  return std::filesystem::path(path);
}

}  // namespace kvez
