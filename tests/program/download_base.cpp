#include "tests/program/download_base.h"

#include <fstream>
#include <iterator>

namespace kvez::test {
namespace {

/// The characters as they lie in the program file.
std::string InMemory(const std::wstring& text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

}  // namespace

std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

bool ReplaceProgramText(const std::filesystem::path& exe, std::wstring builtIn, std::wstring wanted) {
  if (wanted.size() > builtIn.size()) return false;
  wanted.resize(builtIn.size() + 1);
  builtIn.resize(builtIn.size() + 1);

  std::string program = ReadBytes(exe);
  const std::string old = InMemory(builtIn);
  const auto place = program.find(old);
  if (place == std::string::npos || program.find(old, place + 1) != std::string::npos) return false;
  program.replace(place, old.size(), InMemory(wanted));
  WriteBytes(exe, program);
  return true;
}

bool ReplaceDownloadBase(const std::filesystem::path& exe, const std::wstring& base) {
  return ReplaceProgramText(exe, KVEZ_DOWNLOAD_BASE, base);
}

}  // namespace kvez::test
