#include "tools/program.h"

#include <iostream>
#include <string>
#include <vector>

#include "text/utf8.h"
#include "tools/tool.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

#include "platform/windows/utf8_console.h"
#else
#include <csignal>
#endif

namespace kvez {
namespace {

#ifdef _WIN32

/// The outputs are UTF-8 with plain line ends everywhere, and a console shows them so.
class Outputs {
 public:
  Outputs() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
  }

 private:
  Utf8Console m_console;
};

std::vector<std::wstring> Texts(int count, const ProgramArgument* values) { return {values, values + count}; }

#else

class Outputs {
 public:
  Outputs() {
    // A reader that has gone is a failure to write, which is told, and not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
  }
};

std::vector<std::wstring> Texts(int count, const ProgramArgument* values) {
  std::vector<std::wstring> texts;
  for (int i = 0; i < count; ++i) {
    auto text = FromUtf8(values[i]);
    if (!text) throw ToolError("argument " + std::to_string(i + 1) + " is not UTF-8");
    texts.push_back(std::move(*text));
  }
  return texts;
}

#endif

}  // namespace

int RunProgram(int count, const ProgramArgument* values) {
  const Outputs outputs;
  std::vector<std::wstring> arguments;
  try {
    if (count > 1) arguments = Texts(count - 1, values + 1);
  } catch (const ToolError& failure) {
    std::cerr << "kvezdata: " << failure.what() << '\n';
    return 1;
  } catch (...) {
    std::cerr << "kvezdata: there is not enough memory\n";
    return 1;
  }
  return RunTool(arguments, std::cout, std::cerr);
}

}  // namespace kvez
