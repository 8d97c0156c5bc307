#include "platform/windows/windows_lz_library.h"

#include <windows.h>

#include <lzexpand.h>

#include <new>
#include <string_view>
#include <utility>

#include "platform/portable/lz_expansion.h"
#include "platform/windows/owned.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"
#include "platform/windows/whole_file.h"

namespace kvez {
namespace {

// The handles of long paths are told from the system's by this offset, far above what either hands out.
constexpr std::int32_t kLongPathHandles = 0x40000000;

static_assert(LzExpansion::kBadSource == LZERROR_BADINHANDLE && LzExpansion::kBadTarget == LZERROR_BADOUTHANDLE &&
              LzExpansion::kReadError == LZERROR_READ && LzExpansion::kWriteError == LZERROR_WRITE &&
              LzExpansion::kNoMemory == LZERROR_GLOBALLOC && LzExpansion::kBadValue == LZERROR_BADVALUE &&
              LzExpansion::kUnknownAlgorithm == LZERROR_UNKNOWNALG);

/// The system's library, from the first call on.
struct SystemLz {
  HMODULE library = LoadSystemLibrary(L"lz32.dll");
  // a-call: OpenFile decides what is called
  decltype(LZOpenFileA)* open = SystemFunction<decltype(LZOpenFileA)>(library, "LZOpenFileA");
  decltype(LZCopy)* copy = SystemFunction<decltype(LZCopy)>(library, "LZCopy");
  decltype(LZClose)* close = SystemFunction<decltype(LZClose)>(library, "LZClose");

  bool IsThere() const { return open != nullptr && copy != nullptr && close != nullptr; }
};

const SystemLz& Lz() {
  static const SystemLz lz;
  return lz;
}

// Refused a name because somebody holds that file, the system's library makes one with "_" at its end instead. It is
// asked only for a name that can be had, and what it has made nevertheless goes again.
INT Make(const std::wstring& path, std::string& bytes) {
  if (!OwnedFile(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr))) return HFILE_ERROR;
  OFSTRUCT opened{};
  opened.cBytes = sizeof opened;
  const INT handle = Lz().open(bytes.data(), &opened, OF_CREATE | OF_SHARE_EXCLUSIVE);
  const std::string_view made(opened.szPathName);
  if (handle < 0 || !made.ends_with('_') || path.ends_with(L'_')) return handle;
  Lz().close(handle);
  DeleteFileW(FromSystemCodePage(made).c_str());
  SetLastError(ERROR_SHARING_VIOLATION);
  return HFILE_ERROR;
}

INT Open(std::string& bytes, WORD style) {
  OFSTRUCT opened{};
  opened.cBytes = sizeof opened;
  return Lz().open(bytes.data(), &opened, style);
}

// Refused a file, the system's library looks for one with "_" at its end, and says what was wrong with that one.
INT OpenForReading(const std::wstring& path, std::string& bytes) {
  const INT handle = Open(bytes, OF_READ | OF_SHARE_DENY_WRITE);
  if (handle != HFILE_ERROR) return handle;
  if (!OwnedFile(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr))) {
    return HFILE_ERROR;
  }
  SetLastError(ERROR_SHARING_VIOLATION);  // it was held until just now
  return HFILE_ERROR;
}

// What the copy of a file must come to: its bytes, or what is wrong with it.
std::int32_t ExpectedResult(const std::wstring& path) {
  const OwnedFile compressed(
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!compressed) return LzExpansion::kReadError;
  try {
    auto file = ReadWholeFile(compressed.Get());
    return file ? ExpandAsLibrary(std::move(*file)).result : LzExpansion::kReadError;
  } catch (const std::bad_alloc&) {
    return LzExpansion::kNoMemory;
  }
}

}  // namespace

std::int32_t WindowsLzLibrary::OpenFile(const std::wstring& path, LzMode mode) {
  return CallWithPath(
      path,
      [&](std::string& bytes) {
        const bool isTaken = bytes.size() < OFS_MAXPATHNAME && Lz().IsThere();
        return isTaken ? OpenThroughSystem(path, bytes, mode) : OpenLongPath(path, mode);
      },
      [&](const std::wstring&) { return OpenLongPath(path, mode); });
}

std::int32_t WindowsLzLibrary::OpenLongPath(const std::wstring& path, LzMode mode) {
  const std::int32_t handle = m_longPaths.OpenFile(path, mode);
  return handle < 0 || mode == LzMode::Delete ? handle : handle + kLongPathHandles;
}

std::int32_t WindowsLzLibrary::OpenThroughSystem(const std::wstring& path, std::string& bytes, LzMode mode) {
  // What cannot be deleted now is deleted by the program that holds it.
  if (mode == LzMode::Delete) return Open(bytes, OF_DELETE);
  const auto open = [&] { return mode == LzMode::Create ? Make(path, bytes) : OpenForReading(path, bytes); };
  const INT handle = m_patience.OpenPatiently(open, INT{HFILE_ERROR});
  if (handle < 0) return handle;
  try {
    m_open[handle] = path;
  } catch (...) {
    Lz().close(handle);
    throw;
  }
  return handle;
}

std::int32_t WindowsLzLibrary::Copy(std::int32_t source, std::int32_t target) {
  if (source < 0) return LzExpansion::kBadSource;
  if (target < 0) return LzExpansion::kBadTarget;
  if (source >= kLongPathHandles && target >= kLongPathHandles) {
    return m_longPaths.Copy(source - kLongPathHandles, target - kLongPathHandles);
  }
  const auto open = m_open.find(source);
  if (open == m_open.end()) return LzExpansion::kBadSource;
  // The system's library takes some damaged files for good ones: cut ones, and such with a byte too many.
  const std::int32_t expected = ExpectedResult(open->second);
  if (expected <= 0) return expected;
  const std::int32_t written = Lz().copy(source, target);
  return written < 0 || written == expected ? written : LzExpansion::kReadError;
}

void WindowsLzLibrary::Close(std::int32_t handle) {
  if (handle < 0) return;
  if (handle >= kLongPathHandles) {
    m_longPaths.Close(handle - kLongPathHandles);
    return;
  }
  m_open.erase(handle);
  Lz().close(handle);
}

}  // namespace kvez
