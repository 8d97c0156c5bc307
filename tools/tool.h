#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/utf8.h"

namespace kvez {

/// What ends a command: a plain message in UTF-8. Also for a command line that no command understands.
class ToolError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// UTF-8 of a text between apostrophes, for messages.
inline std::string InApostrophes(std::wstring_view text) {
  // Piece by piece: of a sum of temporary texts GCC 12 says, wrongly, that it copies too much.
  std::string quoted(1, '\'');
  quoted += ToUtf8(text);
  quoted += '\'';
  return quoted;
}

/// Runs the data tool. `arguments` are those behind the program's name. Results go to `out` and messages to `error`,
/// both UTF-8; the result is the exit status, 0 or 1.
int RunTool(const std::vector<std::wstring>& arguments, std::ostream& out, std::ostream& error);

}  // namespace kvez
