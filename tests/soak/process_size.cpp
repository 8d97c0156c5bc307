#include "tests/soak/process_size.h"

#include <windows.h>
// Stay below windows.h.
#include <psapi.h>
#include <winternl.h>

#include <cstring>
#include <cwctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace kvez::soak {
namespace {

constexpr double kMebibyte = 1024 * 1024;

// Wine answers the question for one process with 0, and tells the number in the list of all.
int HandlesInTheListOfProcesses(DWORD processId) {
  std::vector<char> list(1 << 20);
  if (NtQuerySystemInformation(SystemProcessInformation, list.data(), static_cast<ULONG>(list.size()), nullptr) != 0) {
    return -1;
  }
  for (std::size_t at = 0;;) {
    SYSTEM_PROCESS_INFORMATION process{};
    std::memcpy(&process, list.data() + at, sizeof process);
    if (reinterpret_cast<std::uintptr_t>(process.UniqueProcessId) == processId) {
      return static_cast<int>(process.HandleCount);
    }
    if (process.NextEntryOffset == 0) return -1;
    at += process.NextEntryOffset;
  }
}

// The machine below shows its processes as folders. The one that is meant has the program's path in its command line.
int Descriptors(const std::wstring& exe) {
  const std::string wanted = std::filesystem::path(exe).string();
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(L"Z:\\proc", error)) {
    const std::wstring name = entry.path().filename().wstring();
    if (name.empty() || std::iswdigit(name[0]) == 0) continue;
    std::ifstream stream(entry.path() / "cmdline", std::ios::binary);
    const std::string line{std::istreambuf_iterator<char>(stream), {}};
    if (!line.starts_with(wanted)) continue;
    const std::filesystem::directory_iterator open(entry.path() / "fd", error);
    return static_cast<int>(std::distance(begin(open), end(open)));
  }
  return -1;
}

std::wstring PathOf(HANDLE process) {
  wchar_t path[1024] = {};
  DWORD length = 1024;
  return QueryFullProcessImageNameW(process, 0, path, &length) ? path : L"";
}

}  // namespace

ProcessSize SizeOf(const test::Program& program) {
  ProcessSize size;
  size.gdiObjects = program.GdiObjects().others;
  size.windows = program.Windows();
  const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, program.ProcessId());
  if (process == nullptr) return size;
  DWORD handles = 0;
  GetProcessHandleCount(process, &handles);
  size.handles = handles != 0 ? static_cast<int>(handles) : HandlesInTheListOfProcesses(program.ProcessId());
  size.descriptors = Descriptors(PathOf(process));
  PROCESS_MEMORY_COUNTERS memory{};
  if (GetProcessMemoryInfo(process, &memory, sizeof memory)) {
    size.mebibytes = static_cast<double>(memory.WorkingSetSize) / kMebibyte;
  }
  CloseHandle(process);
  return size;
}

void Print(const char* when, const ProcessSize& size) {
  std::printf("%s: %d GDI objects, %d windows, %d handles, %d descriptors, %.1f MiB\n", when, size.gdiObjects,
              size.windows, size.handles, size.descriptors, size.mebibytes);
  std::fflush(stdout);
}

void LimitGrowth(const std::string& what, const ProcessSize& before, const ProcessSize& after, bench::Limits& limits) {
  limits.AtMost(what + ", GDI objects more", after.gdiObjects - before.gdiObjects, 20, "");
  limits.AtMost(what + ", windows more", after.windows - before.windows, 5, "");
  limits.AtMost(what + ", handles more", after.handles - before.handles, 10, "");
  limits.AtMost(what + ", descriptors more", after.descriptors - before.descriptors, 10, "");
  limits.AtMost(what + ", memory more", after.mebibytes - before.mebibytes, 4, "MiB");
}

}  // namespace kvez::soak
