#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "forms/form.h"
#include "tests/support/waiting.h"

namespace kvez::test {

/// Handles this process's messages until `condition` holds and returns true. After `seconds` it returns false and says
/// what was waited for, like WaitUntil.
bool PumpUntil(const std::function<bool()>& condition, double seconds = 20.0, CallPlace where = CallPlace::Current());
/// The same for a wait that may be in vain: it says nothing.
bool PumpWithin(double seconds, const std::function<bool()>& condition);

/// Handles what real input has caused: everything that was sent before has arrived when this returns.
void PumpInput();

/// Shows a form and waits until the keyboard is its own. False when another window keeps it.
bool ShowActive(forms::Form& form);

// Real input. Each returns when the input has arrived.
void Press(WORD virtualKey);  // and hold
void Release(WORD virtualKey);
void Type(WORD virtualKey);  // press and release
void TypeWith(WORD modifier, WORD virtualKey);
void TypeCharacter(wchar_t character);
void PointAt(POINT screen);
enum class MouseButton { Left, Right, Middle };
void PressButton(MouseButton button = MouseButton::Left);
void ReleaseButton(MouseButton button = MouseButton::Left);

/// A point of a window's client area, in pixels, on the screen.
POINT OnScreen(HWND window, int x, int y);
POINT CenterOf(HWND window);
/// A place of the desktop where no test window is.
POINT FarAway();

/// A picture of what is on the screen.
class Pixels {
 public:
  /// The client area of a window, as the screen shows it.
  static Pixels OfWindow(HWND window);
  /// The same, as the window draws itself into any device context.
  static Pixels OfPrint(HWND window);

  int Width() const { return m_width; }
  int Height() const { return m_height; }
  COLORREF At(int x, int y) const;
  int Count(COLORREF color) const;
  /// The smallest rectangle with all pixels of a colour; empty when there is none.
  RECT Extent(COLORREF color) const;

  friend bool operator==(const Pixels&, const Pixels&) = default;

 private:
  Pixels(int width, int height);
  template <typename Draw>
  static Pixels Of(HWND window, Draw draw);
  void Read(HDC context, HBITMAP bitmap);

  int m_width;
  int m_height;
  std::vector<std::uint32_t> m_pixels;  // 0x00RRGGBB, from the top
};

/// A form whose handlers the test provides.
class TestForm : public forms::Form {
 public:
  explicit TestForm(forms::BorderStyle border = forms::BorderStyle::FixedSingle, const forms::Form* owner = nullptr);

  /// Sends what the system sends when the form gets to a screen of another scaling.
  void ChangeDpi(unsigned dpi);

  std::function<void()> load;
  std::function<void(std::int16_t&, forms::UnloadMode)> queryUnload;
  std::function<void(std::int16_t&)> unload;
  std::function<void()> terminate;
  std::function<void(std::int16_t&, std::int16_t)> keyDown;
  std::function<void()> resize;

 protected:
  void Form_Load() override;
  void Form_QueryUnload(std::int16_t& cancel, forms::UnloadMode mode) override;
  void Form_Unload(std::int16_t& cancel) override;
  void Form_Terminate() override;
  void Form_KeyDown(std::int16_t& KeyCode, std::int16_t Shift) override;
  void Form_Resize() override;
};

}  // namespace kvez::test
