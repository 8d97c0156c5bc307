// Durable files by the calls of the system.

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/durable_files.h"
#include "platform/windows/file_names.h"
#include "platform/windows/owned.h"

namespace kvez::durable {
namespace {

// More than one call of the system takes at once on every file system.
constexpr std::size_t kBlock = 1U << 20;

OVERLAPPED At(std::uint64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

bool WriteAll(HANDLE file, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto block = static_cast<DWORD>(std::min(bytes.size(), kBlock));
    OVERLAPPED place = At(offset);
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), block, &written, &place) || written == 0) return false;
    bytes = bytes.subspan(written);
    offset += written;
  }
  return FlushFileBuffers(file) != FALSE;
}

HANDLE Hold(const FilePath& file, DWORD disposition) {
  return OwnedFile(CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, disposition,
                               FILE_ATTRIBUTE_NORMAL, nullptr))
      .TakeOwnership();
}

}  // namespace

Answer MakeFile(const FilePath& file, std::span<const std::uint8_t> bytes) {
  OwnedFile made(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!made) return GetLastError() == ERROR_FILE_EXISTS ? Answer::NameIsTaken : Answer::No;
  const bool written = WriteAll(made.Get(), 0, bytes);
  if (CloseHandle(made.TakeOwnership()) && written) return Answer::Yes;
  DeleteFileW(file.c_str());
  return Answer::No;
}

bool Link(const FilePath& file, const FilePath& secondName) {
  return CreateHardLinkW(secondName.c_str(), file.c_str(), nullptr) != FALSE;
}

bool Rename(const FilePath& from, const FilePath& to) { return kvez::Rename(from.native(), to.native()); }

bool Remove(const FilePath& file) { return kvez::Remove(file.native()); }

Answer Look(const FilePath& file) {
  if (GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES) return Answer::Yes;
  return IsMissing(GetLastError()) ? Answer::Missing : Answer::No;
}

void FlushNames(const FilePath&) {
  // A move that is written through has done it.
}

Answer HeldFile::Make(const FilePath& file) {
  m_file = Hold(file, CREATE_NEW);
  if (m_file != nullptr) return Answer::Yes;
  return GetLastError() == ERROR_FILE_EXISTS ? Answer::NameIsTaken : Answer::No;
}

Answer HeldFile::Open(const FilePath& file) {
  m_file = Hold(file, OPEN_EXISTING);
  if (m_file != nullptr) return Answer::Yes;
  const DWORD error = GetLastError();
  if (IsMissing(error)) return Answer::Missing;
  return error == ERROR_SHARING_VIOLATION ? Answer::InUse : Answer::No;
}

std::optional<std::vector<std::uint8_t>> HeldFile::Read() {
  std::vector<std::uint8_t> bytes;
  std::array<std::uint8_t, 4096> block{};
  for (;;) {
    OVERLAPPED place = At(bytes.size());
    DWORD count = 0;
    if (!ReadFile(m_file, block.data(), static_cast<DWORD>(block.size()), &count, &place) &&
        GetLastError() != ERROR_HANDLE_EOF) {
      return std::nullopt;
    }
    if (count == 0) return bytes;
    bytes.insert(bytes.end(), block.begin(), block.begin() + count);
  }
}

bool HeldFile::Write(std::size_t offset, std::span<const std::uint8_t> bytes) {
  return WriteAll(m_file, offset, bytes);
}

bool HeldFile::Remove() {
  // Through the handle: by its name it could be somebody else's file by then.
  FILE_DISPOSITION_INFO disposition{};
  disposition.DeleteFile = TRUE;
  const bool removed =
      SetFileInformationByHandle(m_file, FileDispositionInfo, &disposition, sizeof disposition) != FALSE;
  LetGo();
  return removed;
}

void HeldFile::LetGo() {
  if (m_file != nullptr) CloseHandle(std::exchange(m_file, nullptr));
}

}  // namespace kvez::durable
