#pragma once

#include <string>

namespace kvez::soak {

/// A text as the console takes it.
std::string Utf8(const std::wstring& text);

}  // namespace kvez::soak
