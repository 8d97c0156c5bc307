#include "tools/tool.h"

#include <algorithm>
#include <array>
#include <new>
#include <string_view>

#include "platform/portable/portable_path.h"
#include "text/error.h"
#include "text/utf8.h"
#include "tools/commands.h"
#include "tools/files.h"

namespace kvez {
namespace {

struct Command {
  std::wstring_view name;
  std::size_t fewestArguments;
  std::size_t mostArguments;
  std::string_view usage;
  void (*run)(const Arguments&, std::ostream&);
  bool writesFiles;
};

constexpr std::array<Command, 8> kCommands = {{
    {L"import", 2, 2, "import LIST.csv DATADIR", &ImportCommand, true},
    {L"compare", 2, 3, "compare OLDDATADIR NEWDATADIR [--anyway]", &CompareCommand, false},
    {L"build", 2, 2, "build DATADIR OUTDIR", &BuildCommand, true},
    {L"check", 1, 2, "check DIR [--strict]", &CheckCommand, false},
    {L"list", 2, 2, "list DIR municipalities|offices|districts", &ListCommand, false},
    {L"search", 3, 4, "search DIR name TEXT | search DIR psc TEXT [--exact] | search DIR district NAME", &SearchCommand,
     false},
    {L"expand", 2, 2, "expand IN OUT", &ExpandCommand, true},
    {L"compress", 2, 2, "compress IN OUT", &CompressCommand, true},
}};

std::string Usage() {
  std::string text = "usage:\n";
  for (const Command& command : kCommands) text.append("  kvezdata ").append(command.usage).append("\n");
  return text;
}

/// The command that is asked for, or nothing for the help. Throws ToolError.
const Command* FindCommand(const std::vector<std::wstring>& arguments) {
  if (arguments.empty()) throw ToolError("no command is given\n" + Usage());
  const std::wstring& name = arguments.front();
  if (name == L"help" || name == L"--help" || name == L"-h") return nullptr;
  const auto command =
      std::find_if(kCommands.begin(), kCommands.end(), [&](const Command& entry) { return entry.name == name; });
  if (command == kCommands.end()) throw ToolError("there is no command " + InApostrophes(name) + "\n" + Usage());
  const std::size_t rest = arguments.size() - 1;
  if (rest < command->fewestArguments || rest > command->mostArguments) {
    throw ToolError("usage: kvezdata " + std::string(command->usage));
  }
  return &*command;
}

void Run(const std::vector<std::wstring>& arguments, std::ostream& out) {
  const Command* const command = FindCommand(arguments);
  if (command == nullptr) {
    out << Usage();
  } else {
    command->run(Arguments(arguments.begin() + 1, arguments.end()), out);
  }
  out.flush();
  if (out) return;
  // The work itself is done and stays done.
  const bool isDone = command != nullptr && command->writesFiles;
  throw ToolError(isDone ? "the output cannot be written; the files are written" : "the output cannot be written");
}

}  // namespace

std::filesystem::path PathArgument(const std::wstring& argument) {
  if (argument.empty()) throw ToolError("'' is no path");
  return PathFromText(argument);
}

std::string CurrentFailure() {
  try {
    throw;
  } catch (const ToolError& failure) {
    return failure.what();
  } catch (const Error& failure) {
    return ToUtf8(failure.Text());
  } catch (const std::bad_alloc&) {
    return "there is not enough memory";
  } catch (const std::length_error&) {
    return "there is not enough memory";
  } catch (const std::filesystem::filesystem_error& failure) {
    return Shown(failure.path1()) + " cannot be reached";
  } catch (...) {
    return "something failed that should not";
  }
}

int RunTool(const std::vector<std::wstring>& arguments, std::ostream& out, std::ostream& error) {
  try {
    Run(arguments, out);
    return 0;
  } catch (...) {
    try {
      std::string message = CurrentFailure();
      while (message.ends_with('\n')) message.pop_back();
      error << "kvezdata: " << message << '\n';
    } catch (const std::bad_alloc&) {
      error << "kvezdata: there is not enough memory\n";
    }
  }
  error.flush();
  return 1;
}

}  // namespace kvez
