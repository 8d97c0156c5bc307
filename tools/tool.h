#pragma once

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "text/utf8.h"

namespace kvez {

/// What ends a command: a plain message in UTF-8. Also for a command line that no command understands.
class ToolError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// UTF-8 of a text between apostrophes, for messages.
std::string InApostrophes(std::wstring_view text);
/// A byte for messages: "0x09".
std::string HexByte(std::uint8_t byte);

/// A path that was given as an argument. Throws ToolError when it is empty: the library would take that for the working
/// directory here and for a mistake of the program there.
std::filesystem::path PathArgument(const std::wstring& argument);

/// What a failure comes to in words, in UTF-8. No text of a library is among them. To be called in a catch block.
std::string CurrentFailure();

/// Runs the data tool. `arguments` are those behind the program's name. Results go to `out` and messages to `error`,
/// both UTF-8; the result is the exit status, 0 or 1. Nothing is thrown.
int RunTool(const std::vector<std::wstring>& arguments, std::ostream& out, std::ostream& error);

}  // namespace kvez
