// kvezdata: the official postal list into the project's tables, the tables into the program's data files, and back.

#include <iostream>

#include "platform/portable/utf8.h"
#include "tools/tool.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

// The wide arguments: the narrow ones lose what the system's code page lacks.
int wmain(int count, wchar_t** values) {
  // The output is UTF-8 with plain line ends everywhere.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  return kvez::RunTool(std::vector<std::wstring>(values + (count > 0 ? 1 : 0), values + count), std::cout, std::cerr);
}
#else
int main(int count, char** values) {
  std::vector<std::wstring> arguments;
  for (int i = 1; i < count; ++i) {
    auto argument = kvez::FromUtf8(values[i]);
    if (!argument) {
      std::cerr << "kvezdata: argument " << i << " is not UTF-8\n";
      return 1;
    }
    arguments.push_back(std::move(*argument));
  }
  return kvez::RunTool(arguments, std::cout, std::cerr);
}
#endif
