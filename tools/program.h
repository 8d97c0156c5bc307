#pragma once

namespace kvez {

#ifdef _WIN32
using ProgramArgument = wchar_t*;
#else
using ProgramArgument = char*;
#endif

/// The data tool as a process: its arguments as the system gives them, its results on the standard output and its
/// messages on the error output, both UTF-8. Returns the exit status.
int RunProgram(int count, const ProgramArgument* values);

}  // namespace kvez
