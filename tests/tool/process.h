#pragma once

#include <cstdio>
#include <string>

#include "platform/portable/portable_path.h"
#include "text/utf8.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace kvez {

struct ProcessRun {
  int status = -1;
  std::string output;
};

/// Runs a command line in the system's shell and gives what it wrote to its standard output.
inline ProcessRun RunProcess(const std::wstring& commandLine) {
  ProcessRun run;
#ifdef _WIN32
  // The shell takes the outermost quotation marks away.
  FILE* const pipe = _wpopen((L"\"" + commandLine + L"\"").c_str(), L"rb");
#else
  FILE* const pipe = popen(ToUtf8(commandLine).c_str(), "r");
#endif
  if (pipe == nullptr) return run;
  for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe)) run.output.push_back(static_cast<char>(byte));
#ifdef _WIN32
  run.status = _pclose(pipe);
#else
  const int status = pclose(pipe);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
  return run;
}

/// A path as one argument of such a command line.
inline std::wstring Argument(const std::filesystem::path& path) {
  return L"\"" + TextFromPath(std::filesystem::absolute(path).make_preferred()) + L"\"";
}

}  // namespace kvez
