#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// What is wrong with a name that the program could load but nobody could find or read, as the end of a sentence:
/// "is empty", "is blank", "has the control character 0x09", "has the wildcard '*'". Empty when nothing is.
std::string NameFault(std::wstring_view name);

/// A name in the form in which the program compares it.
std::wstring ComparedName(std::wstring_view name);

/// What the name search leaves of a name: it compares nothing behind a hyphen, a number or a parenthesis.
std::wstring SearchedName(std::wstring_view name);

/// Whether the program's search finds a row of this name for a typed text without wildcards. The name has letters of
/// Windows-1250 only.
bool Finds(std::wstring_view typed, std::wstring_view name);

}  // namespace kvez
