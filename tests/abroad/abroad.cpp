#include "tests/abroad/abroad.h"

#include <windows.h>

#include <cstdlib>

namespace kvez::test {
namespace {

std::string Convert(std::wstring_view text, UINT codePage, DWORD flags) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, flags, text.data(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

}  // namespace

std::string SystemLocale() {
  const char* locale = std::getenv("KVEZ_LOCALE");
  return locale == nullptr ? "" : locale;
}

std::string InWindows1250(std::wstring_view text) { return Convert(text, 1250, WC_NO_BEST_FIT_CHARS); }

std::string InSystemsOwn(std::wstring_view text) { return Convert(text, CP_ACP, 0); }

}  // namespace kvez::test
