#include "platform/windows/long_path_lz_library.h"

#include <windows.h>

#include <new>
#include <utility>
#include <vector>

#include "platform/portable/lz_expansion.h"
#include "platform/windows/whole_file.h"

namespace kvez {
namespace {

std::int32_t Write(const std::vector<std::uint8_t>& bytes, HANDLE target) {
  DWORD written = 0;
  if (!WriteFile(target, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
    return LzExpansion::kWriteError;
  return written == bytes.size() ? static_cast<std::int32_t>(written) : LzExpansion::kWriteError;
}

}  // namespace

std::int32_t LongPathLzLibrary::OpenFile(const std::wstring& path, LzMode mode) {
  if (mode == LzMode::Delete) return DeleteFileW(path.c_str()) ? 0 : LzExpansion::kBadSource;
  const bool create = mode == LzMode::Create;
  const auto open = [&] {
    return CreateFileW(path.c_str(), create ? GENERIC_WRITE : GENERIC_READ, create ? 0 : FILE_SHARE_READ, nullptr,
                       create ? CREATE_ALWAYS : OPEN_EXISTING, 0, nullptr);
  };
  OwnedFile file(m_patience.OpenPatiently(open, INVALID_HANDLE_VALUE));
  if (!file) return create ? LzExpansion::kBadTarget : LzExpansion::kBadSource;
  m_open.emplace(++m_lastHandle, std::move(file));
  return m_lastHandle;
}

std::int32_t LongPathLzLibrary::Copy(std::int32_t source, std::int32_t target) {
  const auto from = m_open.find(source);
  if (from == m_open.end()) return LzExpansion::kBadSource;
  const auto to = m_open.find(target);
  if (to == m_open.end()) return LzExpansion::kBadTarget;
  try {
    auto file = ReadWholeFile(from->second.Get());
    if (!file) return LzExpansion::kReadError;
    const LzExpansion expansion = ExpandAsLibrary(std::move(*file));
    return expansion.result < 0 ? expansion.result : Write(expansion.bytes, to->second.Get());
  } catch (const std::bad_alloc&) {
    return LzExpansion::kNoMemory;
  }
}

void LongPathLzLibrary::Close(std::int32_t handle) { m_open.erase(handle); }

}  // namespace kvez
