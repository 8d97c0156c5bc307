#include "platform/windows/system_code_page.h"

#include <windows.h>

namespace kvez {
namespace {

std::string Convert(std::wstring_view text, DWORD flags, BOOL* replaced) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, replaced);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, flags, text.data(), length, bytes.data(), size, nullptr, replaced);
  return bytes;
}

}  // namespace

std::string ToSystemCodePage(std::wstring_view text) { return Convert(text, 0, nullptr); }

std::optional<std::string> ToSystemCodePageExactly(std::wstring_view text) {
  // UTF-8 as the system code page loses nothing and refuses to be asked whether it did.
  if (GetACP() == CP_UTF8) return Convert(text, 0, nullptr);
  BOOL replaced = FALSE;
  // Without the flag a letter may turn into one that only looks like it.
  std::string bytes = Convert(text, WC_NO_BEST_FIT_CHARS, &replaced);
  if (replaced) return std::nullopt;
  return bytes;
}

std::wstring FromSystemCodePage(std::string_view bytes) {
  if (bytes.empty()) return {};
  const int length = static_cast<int>(bytes.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), size);
  return text;
}

}  // namespace kvez
