#include "platform/portable/memory_lz_library.h"

#include <new>
#include <utility>

namespace kvez {

std::int32_t MemoryLzLibrary::OpenFile(const std::wstring& path, LzMode mode) {
  Entry entry{mode, path, {}};
  switch (mode) {
    case LzMode::Delete:
      return m_expanded.erase(path) > 0 ? 0 : LzExpansion::kBadSource;
    case LzMode::Create:
      m_expanded[path].clear();
      break;
    case LzMode::Read: {
      auto file = m_disk.Read(path);
      if (!file) return LzExpansion::kBadSource;
      entry.file = std::move(*file);
      break;
    }
  }
  m_open.emplace(m_lastHandle + 1, std::move(entry));
  return ++m_lastHandle;
}

std::int32_t MemoryLzLibrary::Copy(std::int32_t source, std::int32_t target) {
  const auto from = m_open.find(source);
  if (from == m_open.end() || from->second.mode != LzMode::Read) return LzExpansion::kBadSource;
  const auto to = m_open.find(target);
  if (to == m_open.end() || to->second.mode != LzMode::Create) return LzExpansion::kBadTarget;
  try {
    LzExpansion expansion = ExpandAsLibrary(from->second.file);
    if (expansion.result >= 0) m_expanded[to->second.path] = std::move(expansion.bytes);
    return expansion.result;
  } catch (const std::bad_alloc&) {
    return LzExpansion::kNoMemory;
  }
}

void MemoryLzLibrary::Close(std::int32_t handle) { m_open.erase(handle); }

std::optional<std::vector<std::uint8_t>> MemoryLzLibrary::Read(const std::wstring& path) {
  const auto found = m_expanded.find(path);
  if (found == m_expanded.end()) return std::nullopt;
  return found->second;
}

std::optional<DateTime> MemoryLzLibrary::LastWriteTime(const std::wstring& path) { return m_disk.LastWriteTime(path); }

}  // namespace kvez
