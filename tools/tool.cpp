#include "tools/tool.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "database/conversion_error.h"
#include "platform/portable/utf8.h"
#include "tools/commands.h"

namespace kvez {
namespace {

struct Command {
  std::wstring_view name;
  std::size_t fewestArguments;
  std::size_t mostArguments;
  std::string_view usage;
  void (*run)(const Arguments&, std::ostream&);
};

constexpr std::array<Command, 7> kCommands = {{
    {L"import", 2, 2, "import LIST.csv DATADIR", &ImportCommand},
    {L"build", 2, 2, "build DATADIR OUTDIR", &BuildCommand},
    {L"check", 1, 1, "check DIR", &CheckCommand},
    {L"list", 2, 2, "list DIR municipalities|offices|districts", &ListCommand},
    {L"search", 3, 4, "search DIR name TEXT | search DIR psc TEXT [--exact] | search DIR district NAME",
     &SearchCommand},
    {L"expand", 2, 2, "expand IN OUT", &ExpandCommand},
    {L"compress", 2, 2, "compress IN OUT", &CompressCommand},
}};

std::string Usage() {
  std::string text = "usage:\n";
  for (const Command& command : kCommands) text.append("  kvezdata ").append(command.usage).append("\n");
  return text;
}

void Run(const std::vector<std::wstring>& arguments, std::ostream& out) {
  if (arguments.empty()) throw ToolError("no command is given\n" + Usage());
  const std::wstring& name = arguments.front();
  if (name == L"help" || name == L"--help" || name == L"-h") {
    out << Usage();
    return;
  }
  const auto command =
      std::find_if(kCommands.begin(), kCommands.end(), [&](const Command& entry) { return entry.name == name; });
  if (command == kCommands.end()) throw ToolError("there is no command " + InApostrophes(name) + "\n" + Usage());
  const Arguments rest(arguments.begin() + 1, arguments.end());
  if (rest.size() < command->fewestArguments || rest.size() > command->mostArguments) {
    throw ToolError("usage: kvezdata " + std::string(command->usage));
  }
  command->run(rest, out);
}

}  // namespace

int RunTool(const std::vector<std::wstring>& arguments, std::ostream& out, std::ostream& error) {
  std::string message;
  try {
    Run(arguments, out);
    out.flush();
    if (!out) throw ToolError("the output cannot be written");
    return 0;
  } catch (const ConversionError& failure) {
    message = ToUtf8(failure.Text());
  } catch (const std::exception& failure) {
    message = failure.what();
  }
  while (message.ends_with('\n')) message.pop_back();
  error << "kvezdata: " << message << '\n';
  error.flush();
  return 1;
}

}  // namespace kvez
