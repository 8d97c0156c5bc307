#include "tools/files.h"

#include <fstream>

#include "platform/portable/portable_path.h"
#include "text/utf8.h"
#include "tools/tool.h"

namespace kvez {

std::string Shown(const std::filesystem::path& path) { return ToUtf8(TextFromPath(path)); }

Bytes ReadWholeFile(const std::filesystem::path& path) {
  const ToolError unreadable(Shown(path) + " cannot be read");
  std::error_code error;
  // A folder opens like a file on some systems.
  if (!std::filesystem::is_regular_file(path, error)) throw unreadable;
  std::ifstream stream(path, std::ios::binary);
  Bytes bytes;
  Bytes block(1U << 16);
  // Not by an iterator: there, a failing disk shows in an exception of the library's.
  while (stream) {
    stream.read(reinterpret_cast<char*>(block.data()), static_cast<std::streamsize>(block.size()));
    bytes.insert(bytes.end(), block.begin(), block.begin() + stream.gcount());
  }
  if (!stream.is_open() || stream.bad()) throw unreadable;
  return bytes;
}

void MakeFolder(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (!std::filesystem::is_directory(path, error)) throw ToolError("the folder " + Shown(path) + " cannot be made");
}

}  // namespace kvez
