#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvez {

/// The lines of a text, with CR LF or LF at their ends. A line end at the very end opens no further line.
std::vector<std::string_view> SplitLines(std::string_view text);

/// What stands between the semicolons; n semicolons make n + 1 fields.
std::vector<std::wstring> SplitFields(std::wstring_view line);

/// "file: line n: " in front of a message about that line, counted from 1.
std::string AtLine(const std::string& file, std::size_t line);

}  // namespace kvez
