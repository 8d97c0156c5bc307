// What the button does with a real pointer.
#include "controls/pointer_picture.h"
#include "forms/guard.h"
#include "tests/support/button_fixture.h"

namespace kvez {
namespace {

using Events = std::vector<std::string>;

class TlTextPointer : public test::ButtonOnScreen {
 protected:
  bool IsOver() const { return button.RunTime().IsOver.IsTrue(); }
  bool IsDown() const { return button.RunTime().IsDown.IsTrue(); }
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

TEST_F(TlTextPointer, RightButtonDoesNothing) {
  test::PointAt(Center());
  button.TakeEvents();
  button.TakePaints();
  test::PressButton(true);
  EXPECT_FALSE(IsDown());
  test::ReleaseButton(true);
  EXPECT_EQ(button.TakeEvents(), Events{});
  EXPECT_EQ(button.TakePaints(), 0);
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
  EXPECT_EQ(GetCursor(), hand->Get());
}

TEST_F(TlTextPointer, ErrorInTheActionEndsIt) {
  std::wstring shown;
  forms::SetGuard({L"Kvez", {}, [&](const std::wstring& text, const std::wstring&) { shown = text; }});
  button.Click = [] { throw forms::Error(L"Chyba."); };
  test::PointAt(Center());
  test::PressButton();
  test::ReleaseButton();
  EXPECT_EQ(shown, L"Chyba.");
  EXPECT_EQ(button.RunTime().InAction, Boolean(false));
  forms::SetGuard({});
}

}  // namespace
}  // namespace kvez
