#include "tests/soak/console_text.h"

#include <windows.h>

namespace kvez::soak {

std::string Utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string bytes(static_cast<std::size_t>(length) * 3, '\0');
  bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                                            static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

}  // namespace kvez::soak
