#include "forms/dpi.h"

#include <cstdlib>
#include <cwchar>

#include "platform/windows/owned.h"

namespace kvez::forms {
namespace {

// By way of void*: the compilers warn about a cast between unrelated function types.
template <typename Function>
Function UserFunction(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

using GetDpiForWindowFunction = UINT(WINAPI*)(HWND);
using GetDpiForSystemFunction = UINT(WINAPI*)();
using AdjustFunction = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
using ParametersFunction = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);
using MetricsFunction = int(WINAPI*)(int, UINT);

}  // namespace

unsigned SystemDpi() {
  static const auto getDpiForSystem = UserFunction<GetDpiForSystemFunction>("GetDpiForSystem");
  if (getDpiForSystem != nullptr) return getDpiForSystem();
  const int dpi = GetDeviceCaps(WindowContext(nullptr).Get(), LOGPIXELSX);
  return dpi > 0 ? static_cast<unsigned>(dpi) : 96;
}

unsigned WindowDpi(HWND window) {
  static const auto getDpiForWindow = UserFunction<GetDpiForWindowFunction>("GetDpiForWindow");
  const unsigned dpi = getDpiForWindow != nullptr ? getDpiForWindow(window) : 0;
  return dpi != 0 ? dpi : SystemDpi();
}

RECT OuterRectangle(const RECT& client, DWORD style, DWORD extendedStyle, unsigned dpi) {
  static const auto adjustForDpi = UserFunction<AdjustFunction>("AdjustWindowRectExForDpi");
  RECT outer = client;
  if (adjustForDpi == nullptr || !adjustForDpi(&outer, style, FALSE, extendedStyle, dpi)) {
    outer = client;
    AdjustWindowRectEx(&outer, style, FALSE, extendedStyle);
  }
  return outer;
}

namespace {

constexpr int kDesignPoints = 9;

int DesignHeight(unsigned dpi) { return MulDiv(kDesignPoints, static_cast<int>(dpi), 72); }

LOGFONTW UserMessageFont(unsigned dpi) {
  static const auto parametersForDpi = UserFunction<ParametersFunction>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  if (parametersForDpi != nullptr && parametersForDpi(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, dpi)) {
    return metrics.lfMessageFont;
  }
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) {
    LOGFONTW font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, static_cast<int>(dpi), static_cast<int>(SystemDpi()));
    return font;
  }
  LOGFONTW font{};
  font.lfHeight = -DesignHeight(dpi);
  font.lfCharSet = DEFAULT_CHARSET;
  std::wcscpy(font.lfFaceName, L"Segoe UI");
  return font;
}

}  // namespace

LOGFONTW MessageFont(unsigned dpi) {
  LOGFONTW font = UserMessageFont(dpi);
  if (std::abs(static_cast<int>(font.lfHeight)) > DesignHeight(dpi)) font.lfHeight = -DesignHeight(dpi);
  return font;
}

unsigned ScalingForMessageFont(unsigned dpi) {
  const int height = std::abs(static_cast<int>(UserMessageFont(dpi).lfHeight));
  if (height <= DesignHeight(dpi)) return dpi;
  return static_cast<unsigned>(MulDiv(static_cast<int>(dpi), height, DesignHeight(dpi)));
}

int SystemMetric(int index, unsigned dpi) {
  static const auto metricForDpi = UserFunction<MetricsFunction>("GetSystemMetricsForDpi");
  if (metricForDpi != nullptr) return metricForDpi(index, dpi);
  return MulDiv(GetSystemMetrics(index), static_cast<int>(dpi), static_cast<int>(SystemDpi()));
}

}  // namespace kvez::forms
