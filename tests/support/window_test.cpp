#include "tests/support/window_test.h"

#include <gtest/gtest.h>

#include <chrono>

#include "forms/message_loop.h"
#include "tests/support/waiting.h"
#include "text/assertion.h"

namespace kvez::test {
namespace {

const AssertionHandler kNobody = SetAssertionHandler([](const char* what) { ADD_FAILURE() << "not so: " << what; });

// Marks the end of the input sent so far. Keys that no keyboard has are nobody's access keys.
constexpr WORD kMarkerKey = VK_F24;
bool markerSeen = false;

INPUT KeyInput(WORD virtualKey, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

void SendOne(INPUT input) {
  SendInput(1, &input, sizeof(input));
  PumpInput();
}

void SendMouse(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  SendOne(input);
}

LRESULT CALLBACK WatchMarker(int code, WPARAM wParam, LPARAM lParam) {
  const auto& message = *reinterpret_cast<const MSG*>(lParam);
  const bool released = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
  if (code == HC_ACTION && released && message.wParam == kMarkerKey) markerSeen = true;
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

bool PumpWithin(double seconds, const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (true) {
    forms::DoEvents();
    if (condition()) return true;
    if (std::chrono::steady_clock::now() > end) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
  }
}

bool PumpUntil(const std::function<bool()>& condition, double seconds, CallPlace where) {
  if (PumpWithin(seconds, condition)) return true;
  SayWaitedInVain(seconds, where);
  return false;
}

void PumpInput() {
  // Input arrives in order: behind a key that nobody else types, everything before has arrived. The key goes to
  // whoever has the keyboard; while that is no window of this process, there is nothing to wait for.
  if (GetFocus() == nullptr) return forms::DoEvents();
  const HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, &WatchMarker, nullptr, GetCurrentThreadId());
  markerSeen = false;
  INPUT inputs[2] = {KeyInput(kMarkerKey, 0), KeyInput(kMarkerKey, KEYEVENTF_KEYUP)};
  SendInput(2, inputs, sizeof(INPUT));
  PumpUntil([] { return markerSeen; });
  UnhookWindowsHookEx(hook);
}

bool ShowActive(forms::Form& form) {
  form.Show();
  const bool active = PumpUntil([&form] {
    return GetForegroundWindow() == form.Handle() && GetActiveWindow() == form.Handle() && GetFocus() != nullptr;
  });
  // What came with the window has been handled, too.
  PumpInput();
  return active;
}

void Press(WORD virtualKey) { SendOne(KeyInput(virtualKey, 0)); }
void Release(WORD virtualKey) { SendOne(KeyInput(virtualKey, KEYEVENTF_KEYUP)); }

void Type(WORD virtualKey) {
  Press(virtualKey);
  Release(virtualKey);
}

void TypeWith(WORD modifier, WORD virtualKey) {
  // In one go: the marker between the keys would come with the modifier held.
  INPUT inputs[4] = {KeyInput(modifier, 0), KeyInput(virtualKey, 0), KeyInput(virtualKey, KEYEVENTF_KEYUP),
                     KeyInput(modifier, KEYEVENTF_KEYUP)};
  SendInput(4, inputs, sizeof(INPUT));
  PumpInput();
}

void TypeCharacter(wchar_t character) {
  INPUT inputs[2]{};
  for (INPUT& input : inputs) {
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE;
  }
  inputs[1].ki.dwFlags |= KEYEVENTF_KEYUP;
  SendInput(2, inputs, sizeof(INPUT));
  PumpInput();
}

void PointAt(POINT screen) {
  // The display's pointer moves along, which input alone leaves behind: who asks for the place a tenth of a second
  // later is told that one's. Only a change reaches the display.
  const auto isThere = [screen] {
    POINT pointer{};
    return !GetCursorPos(&pointer) || (pointer.x == screen.x && pointer.y == screen.y);
  };
  if (!isThere() && SetCursorPos(screen.x, screen.y)) {
    PumpInput();
    // What the display had still to say of the place before comes a moment later, and leads back.
    constexpr int kQuietLooks = 3;
    constexpr int kMostLooks = 100;
    for (int quiet = 0, looks = 0; quiet < kQuietLooks && looks < kMostLooks; ++looks) {
      Sleep(2);
      PumpInput();
      quiet = isThere() ? quiet + 1 : 0;
      if (quiet == 0) SetCursorPos(screen.x, screen.y);
    }
    return;
  }
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  INPUT input{};
  input.type = INPUT_MOUSE;
  // The middle of the pixel, or rounding may land on the one before.
  input.mi.dx = (2 * screen.x + 1) * 65536 / (2 * width);
  input.mi.dy = (2 * screen.y + 1) * 65536 / (2 * height);
  input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
  SendOne(input);
}

void PressButton(MouseButton button) {
  SendMouse(button == MouseButton::Left    ? MOUSEEVENTF_LEFTDOWN
            : button == MouseButton::Right ? MOUSEEVENTF_RIGHTDOWN
                                           : MOUSEEVENTF_MIDDLEDOWN);
}

void ReleaseButton(MouseButton button) {
  SendMouse(button == MouseButton::Left    ? MOUSEEVENTF_LEFTUP
            : button == MouseButton::Right ? MOUSEEVENTF_RIGHTUP
                                           : MOUSEEVENTF_MIDDLEUP);
}

POINT OnScreen(HWND window, int x, int y) {
  POINT point{x, y};
  ClientToScreen(window, &point);
  return point;
}

POINT CenterOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return OnScreen(window, client.right / 2, client.bottom / 2);
}

POINT FarAway() { return {GetSystemMetrics(SM_CXSCREEN) - 3, GetSystemMetrics(SM_CYSCREEN) - 3}; }

Pixels::Pixels(int width, int height)
    : m_width(width), m_height(height), m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void Pixels::Read(HDC context, HBITMAP bitmap) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = m_width;
  info.bmiHeader.biHeight = -m_height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  GetDIBits(context, bitmap, 0, static_cast<UINT>(m_height), m_pixels.data(), &info, DIB_RGB_COLORS);
  for (std::uint32_t& pixel : m_pixels) pixel &= 0xFFFFFF;
}

namespace {

SIZE ClientSize(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

}  // namespace

template <typename Draw>
Pixels Pixels::Of(HWND window, Draw draw) {
  const SIZE size = ClientSize(window);
  Pixels pixels(size.cx, size.cy);
  const HDC screen = GetDC(window);
  const OwnedMemoryContext memory(CreateCompatibleDC(screen));
  const OwnedBitmap bitmap(CreateCompatibleBitmap(screen, size.cx, size.cy));
  {
    const ObjectSelection selection(memory.Get(), bitmap.Get());
    draw(memory.Get(), screen, size);
  }
  pixels.Read(memory.Get(), bitmap.Get());
  ReleaseDC(window, screen);
  return pixels;
}

Pixels Pixels::OfWindow(HWND window) {
  return Of(window,
            [](HDC memory, HDC screen, SIZE size) { BitBlt(memory, 0, 0, size.cx, size.cy, screen, 0, 0, SRCCOPY); });
}

Pixels Pixels::OfPrint(HWND window) {
  return Of(window, [window](HDC memory, HDC, SIZE) {
    SendMessageW(window, WM_PRINT, reinterpret_cast<WPARAM>(memory),
                 PRF_CLIENT | PRF_ERASEBKGND | PRF_CHILDREN | PRF_OWNED);
  });
}

COLORREF Pixels::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= m_width || y >= m_height) return CLR_INVALID;
  const std::uint32_t pixel = m_pixels[static_cast<std::size_t>(y * m_width + x)];
  return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

int Pixels::Count(COLORREF color) const {
  int count = 0;
  for (int y = 0; y < m_height; ++y) {
    for (int x = 0; x < m_width; ++x) count += At(x, y) == color ? 1 : 0;
  }
  return count;
}

RECT Pixels::Extent(COLORREF color) const {
  RECT extent{};
  for (int y = 0; y < m_height; ++y) {
    for (int x = 0; x < m_width; ++x) {
      if (At(x, y) != color) continue;
      const RECT pixel{x, y, x + 1, y + 1};
      RECT all{};
      UnionRect(&all, &extent, &pixel);
      extent = all;
    }
  }
  return extent;
}

TestForm::TestForm(forms::BorderStyle border, const forms::Form* owner)
    : Form(
          {.className = L"KvezTestForm", .border = border, .clientWidth = 6000, .clientHeight = 3000, .owner = owner}) {
  SetCaption(L"Zkouška");
}

void TestForm::ChangeDpi(unsigned dpi) {
  RECT suggested{};
  GetWindowRect(Handle(), &suggested);
  suggested.right =
      suggested.left + MulDiv(suggested.right - suggested.left, static_cast<int>(dpi), static_cast<int>(Dpi()));
  suggested.bottom =
      suggested.top + MulDiv(suggested.bottom - suggested.top, static_cast<int>(dpi), static_cast<int>(Dpi()));
  SendMessageW(Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
}

void TestForm::Form_Load() {
  if (load) load();
}

void TestForm::Form_QueryUnload(std::int16_t& cancel, forms::UnloadMode mode) {
  if (queryUnload) queryUnload(cancel, mode);
}

void TestForm::Form_Unload(std::int16_t& cancel) {
  if (unload) unload(cancel);
}

void TestForm::Form_Terminate() {
  if (terminate) terminate();
}

void TestForm::Form_KeyDown(std::int16_t& KeyCode, std::int16_t Shift) {
  if (keyDown) keyDown(KeyCode, Shift);
}

void TestForm::Form_Resize() {
  if (resize) resize();
}

}  // namespace kvez::test
