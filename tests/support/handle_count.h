#pragma once

#include <windows.h>

#include <cstdint>
#include <ostream>

namespace kvez::test {

/// The GDI and USER objects of this process. Compare two counts around many repetitions, after a first round that
/// lets the system fill its caches.
struct HandleCount {
  int gdi = 0;
  int windows = 0;
  int menus = 0;
  int icons = 0;

  friend bool operator==(const HandleCount&, const HandleCount&) = default;
};

inline void PrintTo(const HandleCount& count, std::ostream* out) {
  *out << count.gdi << " GDI objects, " << count.windows << " windows, " << count.menus << " menus, " << count.icons
       << " icons";
}

/// Entries of the table of GDI objects that every process has in view.
inline int CountGdiObjects() {
  constexpr bool is64Bit = sizeof(void*) == 8;
  constexpr std::size_t tableOffset = is64Bit ? 0xF8 : 0x94;
  constexpr std::size_t entrySize = is64Bit ? 24 : 16;
  constexpr std::size_t processOffset = is64Bit ? 8 : 4;
  constexpr std::size_t typeOffset = is64Bit ? 14 : 10;
  std::uintptr_t processBlock = 0;
#if defined(_M_X64) || defined(__x86_64__)
  asm("movq %%gs:0x60, %0" : "=r"(processBlock));
#else
  asm("movl %%fs:0x30, %0" : "=r"(processBlock));
#endif
  const auto* entry = *reinterpret_cast<const std::uint8_t* const*>(processBlock + tableOffset);
  MEMORY_BASIC_INFORMATION memory{};
  VirtualQuery(entry, &memory, sizeof memory);
  const auto* end = static_cast<const std::uint8_t*>(memory.BaseAddress) + memory.RegionSize;
  const DWORD process = GetCurrentProcessId();
  int count = 0;
  for (; entry + entrySize <= end; entry += entrySize) {
    const DWORD owner = *reinterpret_cast<const std::uint16_t*>(entry + processOffset);
    // Wine's table is this process's own and does not always name an owner.
    if (entry[typeOffset] != 0 && (owner == 0 || owner == (process & 0xFFFF))) ++count;
  }
  return count;
}

inline int CountWindows() {
  struct Counter {
    static BOOL CALLBACK Child(HWND, LPARAM parameter) {
      ++*reinterpret_cast<int*>(parameter);
      return TRUE;
    }
    static BOOL CALLBACK TopLevel(HWND window, LPARAM parameter) {
      DWORD process = 0;
      GetWindowThreadProcessId(window, &process);
      if (process != GetCurrentProcessId()) return TRUE;
      ++*reinterpret_cast<int*>(parameter);
      EnumChildWindows(window, &Child, parameter);
      return TRUE;
    }
  };
  int count = 0;
  EnumWindows(&Counter::TopLevel, reinterpret_cast<LPARAM>(&count));
  // Windows for messages only are not among the top-level ones.
  for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) ++count;
  }
  return count;
}

/// Counts what `isOne` accepts among all handle values that USER objects can have.
template <typename Handle, typename Predicate>
int CountUserHandles(Predicate isOne) {
  int count = 0;
  // A handle without its upper half means whichever object is at that place in the table.
  for (std::uintptr_t value = 0x20; value < 0xFFF0; value += 2) {
    if (isOne(reinterpret_cast<Handle>(value))) ++count;
  }
  return count;
}

inline HandleCount CountHandles() {
  const DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  const DWORD user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
  // Wine answers 0 to both; Windows counts all USER objects in one number.
  if (gdi != 0 || user != 0) return {static_cast<int>(gdi), static_cast<int>(user), 0, 0};

  HandleCount count;
  count.windows = CountWindows();
  count.menus = CountUserHandles<HMENU>([](HMENU menu) { return IsMenu(menu) != FALSE; });
  count.icons = CountUserHandles<HICON>([](HICON icon) {
    ICONINFO information{};
    if (!GetIconInfo(icon, &information)) return false;
    DeleteObject(information.hbmMask);
    DeleteObject(information.hbmColor);
    return true;
  });
  count.gdi = CountGdiObjects();
  return count;
}

}  // namespace kvez::test
