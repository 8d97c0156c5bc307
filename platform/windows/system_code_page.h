#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace kvez {

/// The bytes of a text in the 8-bit code page that calls named with an A at their end read it by. Nothing when that
/// would lose a letter or turn it into one that only looks like it.
std::optional<std::string> ToSystemCodePage(std::wstring_view text);

/// The same for a path. Nothing, too, from 260 bytes on, which is more than such calls take.
std::optional<std::string> PathToSystemCodePage(std::wstring_view path);

/// The same for a text that is drawn in the font of `context`. Nothing, too, when drawing would read the bytes by
/// another code page: it goes by the font, which may be of the system's language while the process is Czech.
std::optional<std::string> DrawnToSystemCodePage(HDC context, std::wstring_view text);

/// The bytes of a text for another program: in the system's 8-bit code page, and where that would lose a letter in
/// Windows-1250. What that one lacks, too, becomes a question mark.
std::string ToBytesForOthers(std::wstring_view text);

/// A text from the system's 8-bit code page.
std::wstring FromSystemCodePage(std::string_view bytes);

/// Gives the bytes to `narrow`, or the text to `wide` when there are none.
template <typename Narrow, typename Wide>
auto CallWithBytesOr(std::wstring_view text, std::optional<std::string> bytes, const Narrow& narrow, const Wide& wide) {
  if (bytes) return narrow(*bytes);
  std::wstring whole(text);
  return wide(whole);
}

/// Of a call that the system has twice, `narrow` gets the text's bytes where the system's 8-bit code page spells it
/// without loss, and `wide` gets the text where it would lose a letter. No other way leads to a call named with an A.
template <typename Narrow, typename Wide>
auto CallWithText(std::wstring_view text, const Narrow& narrow, const Wide& wide) {
  return CallWithBytesOr(text, ToSystemCodePage(text), narrow, wide);
}

/// The same for two texts, which go together.
template <typename Narrow, typename Wide>
auto CallWithTexts(std::wstring_view first, std::wstring_view second, const Narrow& narrow, const Wide& wide) {
  auto firstBytes = ToSystemCodePage(first);
  auto secondBytes = ToSystemCodePage(second);
  if (firstBytes && secondBytes) return narrow(*firstBytes, *secondBytes);
  std::wstring wholeFirst(first);
  std::wstring wholeSecond(second);
  return wide(wholeFirst, wholeSecond);
}

/// The same for a path.
template <typename Narrow, typename Wide>
auto CallWithPath(std::wstring_view path, const Narrow& narrow, const Wide& wide) {
  return CallWithBytesOr(path, PathToSystemCodePage(path), narrow, wide);
}

/// The same for a text that is drawn or measured in the font of `context`.
template <typename Narrow, typename Wide>
auto CallWithDrawnText(HDC context, std::wstring_view text, const Narrow& narrow, const Wide& wide) {
  return CallWithBytesOr(text, DrawnToSystemCodePage(context, text), narrow, wide);
}

}  // namespace kvez
