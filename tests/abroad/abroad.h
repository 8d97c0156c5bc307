#pragma once

#include <string>
#include <string_view>

namespace kvez::test {

/// The locale of the system that tests/support/abroad has made, "de_DE"; empty outside of it.
std::string SystemLocale();

/// The bytes of a text in Windows-1250, a question mark for what that lacks.
std::string InWindows1250(std::wstring_view text);

/// The bytes of a text in the system's own code page, best fits and all: what a program sees that does not look.
std::string InSystemsOwn(std::wstring_view text);

}  // namespace kvez::test
