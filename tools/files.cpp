#include "tools/files.h"

#include <algorithm>
#include <fstream>

#include "platform/portable/portable_path.h"
#include "platform/portable/utf8.h"
#include "tools/tool.h"

namespace kvez {
namespace {

std::filesystem::path TemporaryPath(const std::filesystem::path& path) {
  std::filesystem::path temporary = path;
  temporary += ".new";
  return temporary;
}

/// Removes what is left under temporary names, however the replacing ends.
class TemporaryFiles {
 public:
  explicit TemporaryFiles(const std::vector<NewFile>& files) : m_files(files) {}
  ~TemporaryFiles() {
    std::error_code ignored;
    for (const NewFile& file : m_files) std::filesystem::remove(TemporaryPath(file.path), ignored);
  }
  TemporaryFiles(const TemporaryFiles&) = delete;
  TemporaryFiles& operator=(const TemporaryFiles&) = delete;

 private:
  const std::vector<NewFile>& m_files;
};

void WriteWholeFile(const std::filesystem::path& path, const Bytes& bytes) {
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream) throw ToolError(Shown(path) + " cannot be written");
}

}  // namespace

std::string Shown(const std::filesystem::path& path) { return ToUtf8(TextFromPath(path)); }

Bytes ReadWholeFile(const std::filesystem::path& path) {
  const ToolError unreadable(Shown(path) + " cannot be read");
  std::error_code error;
  // A folder opens like a file on some systems.
  if (!std::filesystem::is_regular_file(path, error)) throw unreadable;
  std::ifstream stream(path, std::ios::binary);
  Bytes bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  if (!stream.is_open() || stream.bad()) throw unreadable;
  return bytes;
}

void ReplaceFiles(const std::vector<NewFile>& files) {
  const TemporaryFiles cleaning(files);
  for (const NewFile& file : files) {
    std::error_code error;
    if (std::filesystem::exists(file.path, error) && !std::filesystem::is_regular_file(file.path, error)) {
      throw ToolError(Shown(file.path) + " is there already and is no file");
    }
    WriteWholeFile(TemporaryPath(file.path), file.bytes);
  }
  for (const NewFile& file : files) {
    const Bytes back = ReadWholeFile(TemporaryPath(file.path));
    if (back != file.bytes) throw ToolError(Shown(TemporaryPath(file.path)) + " reads back other than it was written");
    if (file.check) file.check(back);
  }
  for (const NewFile& file : files) {
    std::error_code error;
    std::filesystem::rename(TemporaryPath(file.path), file.path, error);
    if (error) throw ToolError(Shown(file.path) + " cannot be replaced; perhaps another program uses it");
  }
}

void MakeFolder(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (!std::filesystem::is_directory(path, error)) throw ToolError("the folder " + Shown(path) + " cannot be made");
}

}  // namespace kvez
