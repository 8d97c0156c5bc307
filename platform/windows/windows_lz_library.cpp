#include "platform/windows/windows_lz_library.h"

#include <windows.h>

#include <lzexpand.h>

#include <array>
#include <cstring>
#include <optional>

#include "platform/portable/szdd.h"
#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"

namespace kvez {
namespace {

// The handles of long paths are told from the system's by this offset, far above what either hands out.
constexpr std::int32_t kLongPathHandles = 0x40000000;

WORD Style(LzMode mode) {
  switch (mode) {
    case LzMode::Create:
      return OF_CREATE;
    case LzMode::Delete:
      return OF_DELETE;
    case LzMode::Read:
      break;
  }
  return OF_READ;
}

// The expanded size that a compressed file declares, or nothing for any other file.
std::optional<std::uint32_t> DeclaredSize(const std::wstring& path) {
  const HANDLE opened =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return std::nullopt;
  const OwnedFile file(opened);
  std::array<std::uint8_t, 14> header{};
  DWORD read = 0;
  if (!ReadFile(file.Get(), header.data(), static_cast<DWORD>(header.size()), &read, nullptr)) return std::nullopt;
  if (read != header.size() || !IsSzdd(header)) return std::nullopt;
  std::uint32_t size = 0;
  std::memcpy(&size, header.data() + 10, sizeof size);
  return size;
}

}  // namespace

std::int32_t WindowsLzLibrary::OpenFile(const std::wstring& path, LzMode mode) {
  auto bytes = ToSystemCodePageExactly(path);
  if (!bytes || bytes->size() >= OFS_MAXPATHNAME) {
    const std::int32_t handle = m_longPaths.OpenFile(path, mode);
    return handle < 0 || mode == LzMode::Delete ? handle : handle + kLongPathHandles;
  }
  OFSTRUCT opened{};
  opened.cBytes = sizeof opened;
  const INT handle = LZOpenFileA(bytes->data(), &opened, Style(mode));
  if (handle >= 0 && mode != LzMode::Delete) m_open[handle] = path;
  return handle;
}

std::int32_t WindowsLzLibrary::Copy(std::int32_t source, std::int32_t target) {
  if (source < 0) return LZERROR_BADINHANDLE;
  if (target < 0) return LZERROR_BADOUTHANDLE;
  if (source >= kLongPathHandles && target >= kLongPathHandles) {
    return m_longPaths.Copy(source - kLongPathHandles, target - kLongPathHandles);
  }
  const auto open = m_open.find(source);
  if (open == m_open.end()) return LZERROR_BADINHANDLE;
  const std::int32_t written = LZCopy(source, target);
  // The system's library may take a cut file for a good one and say how little came out of it.
  const auto declared = DeclaredSize(open->second);
  if (written >= 0 && declared && *declared != static_cast<std::uint32_t>(written)) return LZERROR_READ;
  return written;
}

void WindowsLzLibrary::Close(std::int32_t handle) {
  if (handle < 0) return;
  if (handle >= kLongPathHandles) {
    m_longPaths.Close(handle - kLongPathHandles);
    return;
  }
  m_open.erase(handle);
  LZClose(handle);
}

}  // namespace kvez
