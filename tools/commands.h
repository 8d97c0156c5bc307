#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kvez {

/// One command each. `arguments` are those behind the command's name, as many as its usage asks for.
/// They throw ToolError; a command that fails has replaced nothing.
using Arguments = std::vector<std::wstring>;

void ImportCommand(const Arguments& arguments, std::ostream& out);
void BuildCommand(const Arguments& arguments, std::ostream& out);
void CompareCommand(const Arguments& arguments, std::ostream& out);
void CheckCommand(const Arguments& arguments, std::ostream& out);
void ListCommand(const Arguments& arguments, std::ostream& out);
void SearchCommand(const Arguments& arguments, std::ostream& out);
void ExpandCommand(const Arguments& arguments, std::ostream& out);
void CompressCommand(const Arguments& arguments, std::ostream& out);

}  // namespace kvez
