#pragma once

#include <gtest/gtest.h>

#include "forms/text_box.h"
#include "tests/support/button_test.h"

namespace kvez::test {

/// A shown form with a text box that has the focus, a button of 81 x 23 pixels, and the pointer far away. The colours
/// of the button are all different.
class ButtonOnScreen : public ::testing::Test {
 protected:
  static constexpr COLORREF kBack = RGB(255, 255, 255);
  static constexpr COLORREF kFore = RGB(255, 0, 0);
  static constexpr COLORREF kMove = RGB(0, 0, 255);
  static constexpr COLORREF kDown = RGB(0, 128, 0);
  static constexpr COLORREF kFocus = RGB(255, 0, 255);

  void SetUp() override {
    PointAt(FarAway());
    other.Create(form, 1, {600, 1200, 1500, 285});
    button.Create(form, 2, {600, 600, 1215, 345}, L"tlHZkouska", &host);
    button.RecordShell();
    button.ReadProperties(MemoryPropertyBag{{L"C", std::wstring(L"&HHH")},
                                            {L"BC", static_cast<std::int32_t>(kBack)},
                                            {L"FC", static_cast<std::int32_t>(kFore)},
                                            {L"MC", static_cast<std::int32_t>(kMove)},
                                            {L"DC", static_cast<std::int32_t>(kDown)},
                                            {L"FoC", static_cast<std::int32_t>(kFocus)}});
    ASSERT_TRUE(ShowActive(form));
    UpdateWindow(button.Handle());
    button.TakeEvents();
    button.TakePaints();
    ASSERT_TRUE(other.HasKeyboardFocus());
  }

  void TearDown() override {
    // What a test has bound may refer to its own variables, which are gone.
    button.Click = nullptr;
    button.KeyPress = nullptr;
    button.MouseDown = nullptr;
    button.MouseMove = nullptr;
    button.MouseUp = nullptr;
    button.MouseMoveEnabled = nullptr;
    PointAt(FarAway());
    if (GetAsyncKeyState(VK_LBUTTON) < 0) ReleaseButton();
  }

  POINT Center() const { return CenterOf(button.Handle()); }
  POINT Outside() const { return OnScreen(button.Handle(), 120, 10); }
  Pixels OnScreenNow() const {
    UpdateWindow(button.Handle());
    return Pixels::OfWindow(button.Handle());
  }

  TestForm form;
  RecordingHost host;
  forms::TextBox other;
  TestButton button;
};

}  // namespace kvez::test
