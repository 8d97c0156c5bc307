// kvezdata expand and compress: the SZDD form by itself.

#include "platform/portable/portable_path.h"
#include "platform/portable/szdd.h"
#include "tools/commands.h"
#include "tools/files.h"
#include "tools/tool.h"

namespace kvez {

void ExpandCommand(const Arguments& arguments, std::ostream&) {
  const std::filesystem::path path = PathArgument(arguments[0]);
  const std::filesystem::path target = PathArgument(arguments[1]);
  Bytes file = ReadWholeFile(path);
  // What is not compressed is passed through, as the platform's library does.
  if (IsSzdd(file)) {
    SzddResult result = ExpandSzdd(file);
    if (!result.Ok()) throw ToolError(Shown(path) + ": offset " + std::to_string(result.offset) + ": " + result.error);
    file = std::move(result.bytes);
  }
  ReplaceFiles({{target, std::move(file), {}}});
}

void CompressCommand(const Arguments& arguments, std::ostream&) {
  const std::filesystem::path path = PathArgument(arguments[0]);
  const std::filesystem::path target = PathArgument(arguments[1]);
  const std::wstring name = TextFromPath(path.filename());
  // The header has room for one byte of the name; a letter outside ASCII would depend on somebody's code page.
  const bool ascii = !name.empty() && name.back() > L' ' && name.back() < 0x7F;
  const Bytes plain = ReadWholeFile(path);
  ReplaceFiles({{target, CompressSzdd(plain, ascii ? static_cast<char>(name.back()) : '\0'), {}}});
}

}  // namespace kvez
