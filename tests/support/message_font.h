#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace kvez::test {

/// The user has another font for messages as long as the object lives, and the windows of this thread are told of
/// the change both times.
class UserMessageFont {
 public:
  UserMessageFont(const wchar_t* face, int points) : m_before(Metrics()) {
    NONCLIENTMETRICSW metrics = m_before;
    LOGFONTW& font = metrics.lfMessageFont;
    const HDC screen = GetDC(nullptr);
    font.lfHeight = -MulDiv(points, GetDeviceCaps(screen, LOGPIXELSY), 72);
    ReleaseDC(nullptr, screen);
    font.lfWidth = 0;
    lstrcpynW(font.lfFaceName, face, LF_FACESIZE);
    Set(metrics);
  }
  UserMessageFont(const UserMessageFont&) = delete;
  UserMessageFont& operator=(const UserMessageFont&) = delete;
  ~UserMessageFont() { Set(m_before); }

 private:
  static NONCLIENTMETRICSW Metrics() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics;
  }
  static void Set(NONCLIENTMETRICSW metrics) {
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    // The system would tell all programs, or none while the change is not to last.
    const auto tell = [](HWND window, LPARAM) -> BOOL {
      SendMessageW(window, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, reinterpret_cast<LPARAM>(L"WindowMetrics"));
      return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), tell, 0);
  }

  NONCLIENTMETRICSW m_before;
};

/// A font with the measures of the usual message font of Windows: to 2048 units 2210 above the base line and 514 below
/// it, where most other fonts are lower. It is a free one of like width, with its measures and its name changed, and
/// known in this process only.
class UsualMessageFont {
 public:
  UsualMessageFont() {
    for (const char* file : {"OpenSans-Regular.ttf", "OpenSans-Bold.ttf"}) {
      std::vector<char> bytes = Read(std::string("Z:\\usr\\share\\fonts\\truetype\\open-sans\\") + file);
      if (bytes.empty()) {
        ADD_FAILURE() << file << " is not installed: see ./kvez for the package";
        continue;
      }
      ChangeMeasures(bytes);
      Rename(bytes);
      DWORD count = 0;
      m_fonts.push_back(AddFontMemResourceEx(bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &count));
      EXPECT_EQ(count, 1U) << file;
    }
  }
  UsualMessageFont(const UsualMessageFont&) = delete;
  UsualMessageFont& operator=(const UsualMessageFont&) = delete;
  ~UsualMessageFont() {
    for (const HANDLE font : m_fonts) RemoveFontMemResourceEx(font);
  }

  static constexpr const wchar_t* kFace = L"Kvez Sans";

 private:
  static constexpr int kAscent = 2210;
  static constexpr int kDescent = 514;

  static std::vector<char> Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::size_t Number(const std::vector<char>& bytes, std::size_t at, int length) {
    std::size_t number = 0;
    for (int i = 0; i < length; ++i)
      number = number << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
    return number;
  }
  static void PutNumber(std::vector<char>& bytes, std::size_t at, int number) {
    bytes.at(at) = static_cast<char>(number >> 8);
    bytes.at(at + 1) = static_cast<char>(number);
  }
  /// Where a table of the file begins.
  static std::size_t Table(const std::vector<char>& bytes, const std::string& tag) {
    const std::size_t tables = Number(bytes, 4, 2);
    for (std::size_t i = 0; i < tables; ++i) {
      const std::size_t row = 12 + 16 * i;
      if (std::string(&bytes.at(row), 4) == tag) return Number(bytes, row + 8, 4);
    }
    ADD_FAILURE() << "the font has no table " << tag;
    return 0;
  }
  static void ChangeMeasures(std::vector<char>& bytes) {
    const std::size_t forAll = Table(bytes, "hhea");
    PutNumber(bytes, forAll + 4, kAscent);
    PutNumber(bytes, forAll + 6, -kDescent);
    const std::size_t forWindows = Table(bytes, "OS/2");
    PutNumber(bytes, forWindows + 74, kAscent);
    PutNumber(bytes, forWindows + 76, kDescent);
  }
  /// Both names have nine letters; the file keeps its length.
  static void Rename(std::vector<char>& bytes) {
    const std::string old = "Open Sans";
    const std::string fresh = "Kvez Sans";
    for (const std::size_t step : {std::size_t{1}, std::size_t{2}}) {
      std::string pattern;
      for (const char letter : old) pattern.append(step - 1, '\0').append(1, letter);
      for (auto at = bytes.begin(); (at = std::search(at, bytes.end(), pattern.begin(), pattern.end())) != bytes.end();
           ++at) {
        for (std::size_t i = 0; i < fresh.size(); ++i)
          *(at + static_cast<std::ptrdiff_t>(i * step + step - 1)) = fresh[i];
      }
    }
  }

  std::vector<HANDLE> m_fonts;
};

}  // namespace kvez::test
