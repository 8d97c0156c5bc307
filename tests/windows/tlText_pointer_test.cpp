// What the button does with a real pointer.
#include <algorithm>
#include <ostream>

#include "controls/pointer_picture.h"
#include "forms/guard.h"
#include "forms/message_loop.h"
#include "tests/support/button_fixture.h"
#include "tests/support/program_driver.h"
#include "text/error.h"

namespace kvez {
namespace {

using Events = std::vector<std::string>;

class TlTextPointer : public test::ButtonOnScreen {
 protected:
  bool IsOver() const { return button.RunTime().IsOver.IsTrue(); }
  bool IsDown() const { return button.RunTime().IsDown.IsTrue(); }

  std::vector<std::pair<bool, int>> told;  // entering, and how often it was painted by then
};

/// What a mouse event tells: button, Shift state, and the place in twips.
struct MouseEventSeen {
  std::string event;
  std::int16_t button;
  std::int16_t shift;
  float x;
  float y;

  friend bool operator==(const MouseEventSeen&, const MouseEventSeen&) = default;
  friend void PrintTo(const MouseEventSeen& seen, std::ostream* stream) {
    *stream << seen.event << " button " << seen.button << " shift " << seen.shift << " at " << seen.x << ", " << seen.y;
  }
};

TEST_F(TlTextPointer, EnteringAndLeavingAreTold) {
  test::PointAt(Center());
  EXPECT_TRUE(IsOver());
  EXPECT_EQ(GetCapture(), button.Handle());
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled true"});
  test::PointAt(Outside());
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled false"});
}

TEST_F(TlTextPointer, MovingInsideIsNoNewEntering) {
  int moves = 0;
  float lastX = 0;
  button.MouseMove = [&](std::int16_t& Button, std::int16_t& Shift, float& X, float&) {
    ++moves;
    lastX = X;
    EXPECT_EQ(Button, 0);
    EXPECT_EQ(Shift, 0);
  };
  test::PointAt(test::OnScreen(button.Handle(), 20, 10));
  test::PointAt(test::OnScreen(button.Handle(), 40, 10));
  EXPECT_GE(moves, 2);
  EXPECT_EQ(lastX, 600.0F);
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled true"});
}

TEST_F(TlTextPointer, MoveIsRaisedAfterTheHoverHandling) {
  button.MouseMove = [this](std::int16_t&, std::int16_t&, float&, float&) { button.events.emplace_back("MouseMove"); };
  test::PointAt(Center());
  const Events events = button.TakeEvents();
  ASSERT_GE(events.size(), 2U);
  EXPECT_EQ(events[0], "MouseMoveEnabled true");
  EXPECT_EQ(events[1], "MouseMove");
  test::PointAt(Outside());
  const Events leaving = button.TakeEvents();
  ASSERT_GE(leaving.size(), 2U);
  EXPECT_EQ(leaving[leaving.size() - 2], "MouseMoveEnabled false");
  EXPECT_EQ(leaving.back(), "MouseMove");
}

TEST_F(TlTextPointer, EveryMoveOutsideIsALeavingWhateverTheHoverWas) {
  SendMessageW(button.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));  // the pointer itself is far away
  SendMessageW(button.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(button.TakeEvents(), (Events{"MouseMoveEnabled false", "MouseMoveEnabled false"}));
}

TEST_F(TlTextPointer, HoverChangeRepaintsOnce) {
  // A busy display asks for what it has just been shown once more.
  while (test::PumpWithin(0.05, [this] { return button.paints > 0; })) button.TakePaints();
  test::PointAt(Center());
  EXPECT_EQ(button.TakePaints(), 1);
  test::PointAt(Outside());
  EXPECT_EQ(button.TakePaints(), 1);
}

TEST_F(TlTextPointer, HoverChangeAsksForTheInsideUnlessTheBorderComesAndGoes) {
  test::PointAt(Center());
  EXPECT_TRUE(EqualRect(&button.lastPainted, &button.RunTime().FocusRect));
  button.SetDEMove(true);
  test::PointAt(Outside());
  EXPECT_TRUE(EqualRect(&button.lastPainted, &button.RunTime().ClientRect));
  test::PointAt(Center());
  EXPECT_TRUE(EqualRect(&button.lastPainted, &button.RunTime().ClientRect));
  // A stored value that is neither 0 nor all ones is not "true".
  button.SetDEMove(Boolean::FromStored(1));
  test::PointAt(Outside());
  EXPECT_TRUE(EqualRect(&button.lastPainted, &button.RunTime().FocusRect));
  test::PointAt(Center());
  EXPECT_TRUE(EqualRect(&button.lastPainted, &button.RunTime().FocusRect));
}

TEST_F(TlTextPointer, ClickTellsItsEventsInOrder) {
  test::PointAt(Center());
  button.TakeEvents();
  test::PressButton();
  EXPECT_TRUE(IsDown());
  EXPECT_EQ(button.TakeEvents(), Events{"MouseDown 1"});
  test::ReleaseButton();
  EXPECT_FALSE(IsDown());
  // The pointer is still there: whatever comes after the click is told anew by the next movement.
  const Events events = button.TakeEvents();
  ASSERT_GE(events.size(), 2U);
  EXPECT_EQ(events[0], "MouseUp 1");
  EXPECT_EQ(events[1], "Click");
}

TEST_F(TlTextPointer, AfterTheActionItLooksNormalUntilThePointerMoves) {
  test::PointAt(Center());
  test::PressButton();
  SendMessageW(button.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(40, 11));
  EXPECT_FALSE(IsOver());
  button.TakeEvents();
  test::PointAt(test::OnScreen(button.Handle(), 30, 10));
  EXPECT_TRUE(IsOver());
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled true"});
}

TEST_F(TlTextPointer, DraggingOutLosesTheDownLook) {
  test::PointAt(Center());
  test::PressButton();
  test::PointAt(Outside());
  EXPECT_FALSE(IsDown());
  EXPECT_FALSE(IsOver());
  button.TakeEvents();
  test::ReleaseButton();
  EXPECT_EQ(button.TakeEvents(), Events{});
}

TEST_F(TlTextPointer, DraggingOutAndBackInStillRunsTheAction) {
  test::PointAt(Center());
  test::PressButton();
  test::PointAt(Outside());
  test::PointAt(Center());
  EXPECT_FALSE(IsDown());
  EXPECT_TRUE(IsOver());
  button.TakeEvents();
  test::ReleaseButton();
  const Events events = button.TakeEvents();
  ASSERT_GE(events.size(), 2U);
  EXPECT_EQ(events[0], "MouseUp 1");
  EXPECT_EQ(events[1], "Click");
}

TEST_F(TlTextPointer, ReleaseOfAPressThatBeganElsewhereRunsTheAction) {
  test::PointAt(Outside());
  test::PressButton();
  test::PointAt(Center());
  button.TakeEvents();
  test::ReleaseButton();
  const Events events = button.TakeEvents();
  ASSERT_GE(events.size(), 2U);
  EXPECT_EQ(events[1], "Click");
}

TEST_F(TlTextPointer, OtherButtonsDoNothing) {
  test::PointAt(Center());
  button.TakeEvents();
  button.TakePaints();
  for (const test::MouseButton pressed : {test::MouseButton::Right, test::MouseButton::Middle}) {
    test::PressButton(pressed);
    EXPECT_FALSE(IsDown());
    test::ReleaseButton(pressed);
  }
  EXPECT_EQ(button.TakeEvents(), Events{});
  EXPECT_EQ(button.TakePaints(), 0);
}

class TlTextPointerEvents : public TlTextPointer {
 protected:
  void SetUp() override {
    TlTextPointer::SetUp();
    const auto record = [this](const char* event) {
      return [this, event](std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
        seen.push_back({event, Button, Shift, X, Y});
      };
    };
    button.MouseMove = record("move");
    button.MouseDown = record("down");
    button.MouseUp = record("up");
  }

  /// As a message: the display's server, which knows of no held key, lets go of it whenever the pointer moves.
  MouseEventSeen Send(UINT message, WPARAM buttons, POINT pixels, BYTE heldKey) {
    seen.clear();
    BYTE state[256] = {};
    GetKeyboardState(state);
    state[heldKey] = 0x80;
    SetKeyboardState(state);
    SendMessageW(button.Handle(), message, buttons, MAKELPARAM(pixels.x, pixels.y));
    state[heldKey] = 0;
    SetKeyboardState(state);
    return seen.size() == 1 ? seen.front() : MouseEventSeen{"none or several", 0, 0, 0, 0};
  }

  std::vector<MouseEventSeen> seen;
};

TEST_F(TlTextPointerEvents, TellButtonShiftAndPlace) {
  EXPECT_EQ(Send(WM_MOUSEMOVE, 0, {20, 10}, VK_SHIFT), (MouseEventSeen{"move", 0, forms::kShiftMask, 300, 150}));
  EXPECT_EQ(Send(WM_LBUTTONDOWN, MK_LBUTTON, {21, 11}, VK_CONTROL),
            (MouseEventSeen{"down", forms::kLeftButton, forms::kCtrlMask, 315, 165}));
  EXPECT_EQ(Send(WM_MOUSEMOVE, MK_LBUTTON, {41, 3}, VK_MENU),
            (MouseEventSeen{"move", forms::kLeftButton, forms::kAltMask, 615, 45}));
  EXPECT_EQ(Send(WM_LBUTTONUP, 0, {42, 2}, VK_SHIFT),
            (MouseEventSeen{"up", forms::kLeftButton, forms::kShiftMask, 630, 30}));
}

TEST_F(TlTextPointerEvents, TellThePlaceOfTheRealPointer) {
  test::PointAt(test::OnScreen(button.Handle(), 20, 10));
  test::PressButton();
  test::ReleaseButton();
  for (const char* event : {"move", "down", "up"}) {
    const auto found = std::ranges::find(seen, event, &MouseEventSeen::event);
    ASSERT_NE(found, seen.end()) << event;
    EXPECT_EQ(found->x, 300) << event;
    EXPECT_EQ(found->y, 150) << event;
  }
}

TEST_F(TlTextPointer, ChangesOfTheHoverAreToldBeforeTheyAreSeen) {
  button.MouseMoveEnabled = [&](bool mme) { told.emplace_back(mme, button.paints); };
  test::PointAt(Center());
  EXPECT_EQ(told, (std::vector<std::pair<bool, int>>{{true, 0}}));
  EXPECT_EQ(button.TakePaints(), 1);
  told.clear();
  test::PointAt(Outside());
  EXPECT_EQ(told, (std::vector<std::pair<bool, int>>{{false, 0}}));
  EXPECT_EQ(button.TakePaints(), 1);
}

TEST_F(TlTextPointer, PressTakesTheKeyboardFocus) {
  test::PointAt(Center());
  test::PressButton();
  EXPECT_TRUE(button.HasKeyboardFocus());
  EXPECT_TRUE(button.RunTime().HasFocus.IsTrue());
}

TEST_F(TlTextPointer, DisabledButtonTakesNoPart) {
  button.SetEnabled(false);
  button.TakeEvents();
  test::PointAt(Center());
  test::PressButton();
  test::ReleaseButton();
  EXPECT_EQ(button.TakeEvents(), Events{});
  EXPECT_FALSE(IsOver());
}

TEST_F(TlTextPointer, DisablingUnderThePointerIsALeaving) {
  test::PointAt(Center());
  button.TakeEvents();
  button.SetEnabled(false);
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled false"});
}

TEST_F(TlTextPointer, HiddenButtonGivesThePointerBack) {
  test::PointAt(Center());
  button.TakeEvents();
  button.SetVisible(false);
  EXPECT_TRUE(test::PumpUntil([] { return GetCapture() == nullptr; }));
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled false"});
}

TEST_F(TlTextPointer, CaptureTakenByAnotherWindowIsALeaving) {
  test::PointAt(Center());
  test::PressButton();
  button.TakeEvents();
  SetCapture(other.Handle());
  EXPECT_FALSE(IsOver());
  EXPECT_FALSE(IsDown());
  EXPECT_EQ(GetCapture(), other.Handle());
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled false"});
  ReleaseCapture();
}

TEST_F(TlTextPointer, LeavingIsNoticedWithoutAMovement) {
  test::PointAt(Center());
  button.TakeEvents();
  // The window goes away under the pointer, which so sends no movement.
  SetWindowPos(form.Handle(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  EXPECT_TRUE(test::PumpUntil([this] { return !IsOver(); }));
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled false"});
}

TEST_F(TlTextPointer, NeighboursHandThePointerOver) {
  test::TestButton second;
  second.Create(form, 3, {1815, 600, 1215, 345}, L"tlHDruhe", &host);
  test::PointAt(Center());
  button.TakeEvents();
  test::PointAt(test::CenterOf(second.Handle()));
  test::PointAt(test::OnScreen(second.Handle(), 20, 10));
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(button.TakeEvents(), Events{"MouseMoveEnabled false"});
  EXPECT_EQ(second.TakeEvents(), Events{"MouseMoveEnabled true"});
  EXPECT_EQ(GetCapture(), second.Handle());
}

TEST_F(TlTextPointer, WhatLiesOverTheButtonHasThePointer) {
  test::PointAt(Center());
  ASSERT_EQ(GetCapture(), button.Handle());
  button.TakeEvents();
  // It comes to the front without taking the keyboard.
  RECT bounds{};
  GetWindowRect(button.Handle(), &bounds);
  const HWND above =
      CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE | SS_NOTIFY, bounds.left,
                      bounds.top, 200, 100, nullptr, nullptr, nullptr, nullptr);
  test::PointAt(test::OnScreen(button.Handle(), 30, 10));
  EXPECT_FALSE(IsOver());
  EXPECT_EQ(GetCapture(), nullptr);
  const Events events = button.TakeEvents();
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(std::ranges::count(events, "MouseMoveEnabled false"), static_cast<std::ptrdiff_t>(events.size()));
  DestroyWindow(above);
}

TEST_F(TlTextPointer, APressOnAWindowThatHasJustComeOverIsItsOwn) {
  test::PointAt(Center());
  ASSERT_EQ(GetCapture(), button.Handle());
  button.TakeEvents();
  {
    test::TestForm above;
    forms::TextBox box;
    box.Create(above, 1, {0, 0, 6000, 3000});
    RECT bounds{};
    GetWindowRect(button.Handle(), &bounds);
    above.Load();
    SetWindowPos(above.Handle(), HWND_TOPMOST, bounds.left - 60, bounds.top - 60, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    ASSERT_EQ(GetCapture(), button.Handle());
    int presses = 0;
    box.MouseDown = [&](std::int16_t&, std::int16_t&, float&, float&) { ++presses; };
    SendMessageW(button.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    forms::DoEvents();
    EXPECT_EQ(presses, 1);
    // The window manager has its say in it.
    EXPECT_TRUE(test::PumpUntil([&] { return GetActiveWindow() == above.Handle(); }));
    SendMessageW(button.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(500, 500));
  }
  const Events events = button.TakeEvents();
  EXPECT_EQ(std::ranges::count(events, "MouseDown 1"), 0);
}

TEST_F(TlTextPointer, APressBringsItsFormToTheFront) {
  test::TestForm above;
  ASSERT_TRUE(test::ShowActive(above));
  // The window manager may still move it back.
  ASSERT_TRUE(test::PumpUntil([&] {
    SetWindowPos(above.Handle(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return WindowFromPoint(Center()) == button.Handle();
  }));
  // Coming to the front takes long enough for the button to look for the pointer, which has to be there by then. While
  // the other window still comes to the front, the pointer is taken from the button; a hand does not rest meanwhile.
  ASSERT_TRUE(test::PumpUntil([this] {
    test::MovePointer({Center().x + 1, Center().y});
    test::MovePointer(Center());
    return GetCapture() == button.Handle();
  }));
  ASSERT_EQ(GetActiveWindow(), above.Handle());
  test::PressButton();
  EXPECT_TRUE(test::PumpUntil([this] { return GetForegroundWindow() == form.Handle(); }));
  test::ReleaseButton();
  EXPECT_TRUE(button.HasKeyboardFocus());
  EXPECT_EQ(std::ranges::count(button.TakeEvents(), "Click"), 1);
}

TEST_F(TlTextPointer, DeactivationGivesThePointerBack) {
  test::PointAt(Center());
  ASSERT_EQ(GetCapture(), button.Handle());
  test::TestForm above;
  ASSERT_TRUE(test::ShowActive(above));
  EXPECT_NE(GetCapture(), button.Handle());
}

TEST_F(TlTextPointer, OwnPointerShape) {
  button.SetMousePointer(2);
  test::PointAt(Center());
  SendMessageW(button.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(button.Handle()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_CROSS));
  const auto hand = std::make_shared<const PointerPicture>(CopyIcon(LoadCursorW(nullptr, IDC_HAND)));
  button.SetMouseIcon(hand);
  button.SetMousePointer(99);
  SendMessageW(button.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(button.Handle()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  // Only its lower half tells a handle: the system extends it as it likes.
  EXPECT_EQ(HandleToULong(GetCursor()), HandleToULong(hand->Get()));
}

TEST_F(TlTextPointer, ErrorInTheActionEndsIt) {
  std::wstring shown;
  forms::SetGuard({L"Kvez", [&](const std::wstring& text, const std::wstring&) { shown = text; }});
  button.Click = [] { throw Error(L"Chyba."); };
  test::PointAt(Center());
  test::PressButton();
  test::ReleaseButton();
  EXPECT_EQ(shown, L"Chyba.");
  EXPECT_EQ(button.RunTime().InAction, Boolean(false));
  forms::SetGuard({});
}

}  // namespace
}  // namespace kvez
