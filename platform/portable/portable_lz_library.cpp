#include "platform/portable/portable_lz_library.h"

#include <filesystem>
#include <new>

#include "platform/portable/portable_path.h"
#include "platform/portable/read_stream.h"
#include "platform/portable/szdd.h"

namespace kvez {
namespace {

constexpr std::size_t kModeOffset = 8;

}  // namespace

PortableLzLibrary::PortableLzLibrary(std::size_t mostBytes) : m_mostBytes(mostBytes) {}

std::int32_t PortableLzLibrary::OpenFile(const std::wstring& path, LzMode mode) {
  const std::int32_t refused = mode == LzMode::Create ? kBadTarget : kBadSource;
  try {
    const std::filesystem::path file = PortablePath(path);
    // A folder opens like a file on some systems, and is removed like one.
    if (std::filesystem::is_directory(file)) return refused;
    if (mode == LzMode::Delete) return std::filesystem::remove(file) ? 0 : refused;
    std::fstream stream(file, mode == LzMode::Read ? std::ios::in | std::ios::binary
                                                   : std::ios::out | std::ios::trunc | std::ios::binary);
    if (!stream) return refused;
    m_open.emplace(++m_lastHandle, Entry{mode, std::move(stream)});
    return m_lastHandle;
  } catch (const std::filesystem::filesystem_error&) {
    return refused;
  }
}

std::int32_t PortableLzLibrary::Copy(std::int32_t source, std::int32_t target) {
  const auto from = m_open.find(source);
  if (from == m_open.end() || from->second.mode != LzMode::Read) return kBadSource;
  const auto to = m_open.find(target);
  if (to == m_open.end() || to->second.mode != LzMode::Create) return kBadTarget;
  try {
    return Expand(from->second.stream, to->second.stream);
  } catch (const std::bad_alloc&) {
    return kNoMemory;
  }
}

std::int32_t PortableLzLibrary::Expand(std::istream& source, std::ostream& target) const {
  const auto file = ReadStream(source);
  if (!file) return kReadError;
  if (!IsSzdd(*file)) return Write(*file, target);
  const SzddResult expanded = ExpandSzdd(*file);
  if (expanded.Ok()) return Write(expanded.bytes, target);
  const bool otherMode = file->size() > kModeOffset && (*file)[kModeOffset] != 'A';
  return otherMode ? kUnknownAlgorithm : kReadError;
}

std::int32_t PortableLzLibrary::Write(std::span<const std::uint8_t> bytes, std::ostream& target) const {
  if (bytes.size() > m_mostBytes) return kBadValue;
  target.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  target.flush();
  return target ? static_cast<std::int32_t>(bytes.size()) : kWriteError;
}

void PortableLzLibrary::Close(std::int32_t handle) { m_open.erase(handle); }

}  // namespace kvez
