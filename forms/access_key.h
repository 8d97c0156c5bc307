#pragma once

#include <string>
#include <string_view>

namespace kvez::forms {

/// The character after the first single "&" of a caption; 0 when there is none. "&&" is a plain "&".
wchar_t AccessKeyOf(std::wstring_view caption);

/// True when both are the same letter, whatever their case. Never true for the character 0.
bool IsSameLetter(wchar_t first, wchar_t second);

/// A caption as it is read out: without the "&" that mark access keys, "&&" turned into "&".
std::wstring WithoutAccessKeys(std::wstring_view caption);

}  // namespace kvez::forms
