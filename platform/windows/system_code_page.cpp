#include "platform/windows/system_code_page.h"

namespace kvez {
namespace {

constexpr UINT kCzech = 1250;

struct Bytes {
  std::string bytes;
  bool isExact;
};

// Never a best fit: a letter that only looks like the one that was meant is another name and another file.
Bytes Convert(std::wstring_view text, UINT codePage) {
  if (text.empty()) return {{}, true};
  // UTF-8 has all letters, and refuses to be asked whether it lacked one.
  const bool isUtf8 = codePage == CP_UTF8;
  const DWORD flags = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
  BOOL replaced = FALSE;
  BOOL* const asked = isUtf8 ? nullptr : &replaced;
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr, asked);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, flags, text.data(), length, bytes.data(), size, nullptr, asked);
  return {std::move(bytes), size > 0 && !replaced};
}

std::wstring Read(std::string_view bytes, UINT codePage) {
  if (bytes.empty()) return {};
  const int length = static_cast<int>(bytes.size());
  const int size = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), size);
  return text;
}

UINT CodePageOf(HDC context) {
  const auto charset = static_cast<UINT_PTR>(GetTextCharset(context));
  CHARSETINFO description{};
  const BOOL known = TranslateCharsetInfo(reinterpret_cast<DWORD*>(charset), &description, TCI_SRCCHARSET);
  return known ? description.ciACP : CP_ACP;
}

}  // namespace

std::optional<std::string> ToSystemCodePage(std::wstring_view text) {
  Bytes converted = Convert(text, GetACP());
  if (!converted.isExact) return std::nullopt;
  return std::move(converted.bytes);
}

std::optional<std::string> PathToSystemCodePage(std::wstring_view path) {
  auto bytes = ToSystemCodePage(path);
  if (bytes && bytes->size() >= MAX_PATH) return std::nullopt;
  return bytes;
}

std::optional<std::string> DrawnToSystemCodePage(HDC context, std::wstring_view text) {
  auto bytes = ToSystemCodePage(text);
  const UINT reader = CodePageOf(context);
  if (bytes && reader != GetACP() && Read(*bytes, reader) != text) return std::nullopt;
  return bytes;
}

std::string ToBytesForOthers(std::wstring_view text) {
  if (auto bytes = ToSystemCodePage(text)) return *std::move(bytes);
  return Convert(text, kCzech).bytes;
}

std::wstring FromSystemCodePage(std::string_view bytes) { return Read(bytes, CP_ACP); }

}  // namespace kvez
