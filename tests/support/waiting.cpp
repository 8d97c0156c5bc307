#include "tests/support/waiting.h"

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include "platform/windows/owned.h"

namespace kvez::test {
namespace {

// The statement that begins at a line: what was waited for, in the words of the test.
std::string Statement(const CallPlace& where) {
  std::ifstream file(where.file);
  std::string text;
  std::string line;
  constexpr unsigned kMostLines = 12;
  for (unsigned number = 1; std::getline(file, line) && number < where.line + kMostLines; ++number) {
    if (number < where.line) continue;
    text += "    " + line + "\n";
    if (line.ends_with(";")) break;
  }
  return text;
}

}  // namespace

bool HoldsWithin(double seconds, const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return condition();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

bool WaitUntil(const std::function<bool()>& condition, double seconds, CallPlace where) {
  if (HoldsWithin(seconds, condition)) return true;
  SayWaitedInVain(seconds, where);
  return false;
}

void SayWaitedInVain(double seconds, const CallPlace& where) {
  static int count = 0;
  const std::filesystem::path folder = KVEZ_FAILED_FOLDER;
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  const std::string name = std::filesystem::path(where.file).stem().string() + "-" + std::to_string(where.line) + "-" +
                           std::to_string(++count) + ".bmp";
  const bool saved = SaveScreen((folder / name).wstring());
  std::fprintf(stderr, "%s:%u: waited %.1f s in vain; picture: %s\n%s", where.file, where.line, seconds,
               saved ? ("build/failed/" + name).c_str() : "none", Statement(where).c_str());
  std::fflush(stderr);
}

bool SaveScreen(const std::wstring& path) {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  const HDC screen = GetDC(nullptr);
  const OwnedMemoryContext memory(CreateCompatibleDC(screen));
  const OwnedBitmap bitmap(CreateCompatibleBitmap(screen, width, height));
  {
    const ObjectSelection selection(memory.Get(), bitmap.Get());
    BitBlt(memory.Get(), 0, 0, width, height, screen, 0, 0, SRCCOPY);
  }
  BITMAPFILEHEADER file{};
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  const std::size_t rowBytes = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
  std::vector<char> pixels(rowBytes * static_cast<std::size_t>(height));
  GetDIBits(memory.Get(), bitmap.Get(), 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof(file) + sizeof(info.bmiHeader);
  file.bfSize = static_cast<DWORD>(file.bfOffBits + pixels.size());
  std::ofstream stream(std::filesystem::path(path), std::ios::binary);
  stream.write(reinterpret_cast<const char*>(&file), sizeof(file));
  stream.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof(info.bmiHeader));
  stream.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
  return stream.good();
}

}  // namespace kvez::test
