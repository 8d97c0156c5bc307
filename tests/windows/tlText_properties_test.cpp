// The button's properties: setters, notices, loading and saving.
#include <gtest/gtest.h>

#include <limits>

#include "controls/pointer_picture.h"
#include "forms/containers.h"
#include "forms/guard.h"
#include "forms/text_box.h"
#include "tests/support/button_test.h"
#include "tests/support/program_driver.h"
#include "text/error.h"

namespace kvez {
namespace {

using test::RecordingHost;
using test::TestButton;
using test::TestForm;
using Notices = std::vector<std::wstring>;

class TlTextProperties : public ::testing::Test {
 protected:
  TlTextProperties() {
    button.Create(form, 1, {150, 150, 1215, 345}, L"tlHZkouska", &host);
    button.RecordShell();
  }

  /// Shows the form and settles, so that the paints counted afterwards are those of the setters.
  void Show() {
    ASSERT_TRUE(test::ShowActive(form));
    UpdateWindow(button.Handle());
    test::PumpInput();
    button.TakePaints();
  }

  TestForm form;
  RecordingHost host;
  TestButton button;
};

TEST_F(TlTextProperties, CreationKnowsTheWindowAndClearsTheFlags) {
  const tlText::RunTimeFields& run = button.RunTime();
  EXPECT_EQ(run.Hwnd, button.Handle());
  EXPECT_NE(run.Hwnd, nullptr);
  EXPECT_EQ(run.HasFocus, Boolean(false));
  EXPECT_EQ(run.IsShown, Boolean(false));
  EXPECT_EQ(run.IsDown, Boolean(false));
  EXPECT_EQ(run.IsOver, Boolean(false));
  EXPECT_EQ(run.InAction, Boolean(false));
}

TEST_F(TlTextProperties, EverySetterStoresAndNotifiesItsKey) {
  button.SetFocusDraw(7);
  EXPECT_EQ(button.FocusDraw(), 7);
  button.SetFocusColor(0x123456);
  EXPECT_EQ(button.FocusColor(), 0x123456U);
  button.SetSEParameters(L"p");
  EXPECT_EQ(button.SEParameters(), L"p");
  button.SetSEFile(L"f");
  EXPECT_EQ(button.SEFile(), L"f");
  button.SetDEBorder(2);
  EXPECT_EQ(button.DEBorder(), 2);
  button.SetDEMove(false);
  EXPECT_EQ(button.DEMove(), Boolean(false));
  button.SetEnabled(false);
  EXPECT_EQ(button.Enabled(), Boolean(false));
  button.SetBackColor(0x010203);
  EXPECT_EQ(button.BackColor(), 0x010203U);
  button.SetForeColor(0x040506);
  EXPECT_EQ(button.ForeColor(), 0x040506U);
  button.SetMoveColor(0x070809);
  EXPECT_EQ(button.MoveColor(), 0x070809U);
  button.SetDownColor(0x0A0B0C);
  EXPECT_EQ(button.DownColor(), 0x0A0B0CU);
  button.SetCaption(L"&Konec");
  EXPECT_EQ(button.Caption(), L"&Konec");
  button.SetMousePointer(2);
  EXPECT_EQ(button.MousePointer(), 2);
  const auto picture = std::make_shared<const PointerPicture>(CopyIcon(LoadCursorW(nullptr, IDC_HAND)));
  button.SetMouseIcon(picture);
  EXPECT_EQ(button.MouseIcon(), picture);

  EXPECT_EQ(host.TakeNotices(), (Notices{L"FoD", L"FoC", L"SEP", L"SEF", L"DEB", L"DEM", L"E", L"BC", L"FC", L"MC",
                                         L"DC", L"C", L"MousePointer", L"MI"}));
}

TEST_F(TlTextProperties, ModeZeroTakesTheDisplayNameAndEmptiesTheTarget) {
  button.SetCaption(L"x");
  button.SetSEFile(L"f");
  button.SetSEParameters(L"p");
  host.TakeNotices();
  button.SetSEMode(0);
  EXPECT_EQ(button.Caption(), L"tlHZkouska");
  EXPECT_EQ(button.SEParameters(), L"");
  EXPECT_EQ(button.SEFile(), L"");
  EXPECT_EQ(host.TakeNotices(), (Notices{L"C", L"SEP", L"SEF", L"SEM"}));
}

TEST_F(TlTextProperties, ModesOneToThreeBringTheirCaptions) {
  button.SetSEFile(L"f");
  button.SetSEParameters(L"p");
  host.TakeNotices();
  button.SetSEMode(3);
  EXPECT_EQ(button.Caption(), L"Run-file");
  EXPECT_EQ(button.SEParameters(), L"p");
  EXPECT_EQ(host.TakeNotices(), (Notices{L"C", L"SEM"}));
  button.SetSEMode(1);
  EXPECT_EQ(button.Caption(), L"Internet");
  EXPECT_EQ(button.SEParameters(), L"");
  EXPECT_EQ(host.TakeNotices(), (Notices{L"C", L"SEP", L"SEM"}));
  button.SetSEParameters(L"p");
  button.SetSEMode(2);
  EXPECT_EQ(button.Caption(), L"E-mail");
  EXPECT_EQ(button.SEParameters(), L"");
  EXPECT_EQ(button.SEFile(), L"f");
}

TEST_F(TlTextProperties, OtherModesBringNothing) {
  button.SetCaption(L"x");
  button.SetSEParameters(L"p");
  host.TakeNotices();
  button.SetSEMode(5);
  EXPECT_EQ(button.SEMode(), 5);
  EXPECT_EQ(button.Caption(), L"x");
  EXPECT_EQ(button.SEParameters(), L"p");
  EXPECT_EQ(host.TakeNotices(), Notices{L"SEM"});
}

TEST_F(TlTextProperties, CaptionThatDiffersInCaseOnlyIsIgnored) {
  button.SetCaption(L"OK");
  host.TakeNotices();
  button.SetCaption(L"ok");
  EXPECT_EQ(button.Caption(), L"OK");
  EXPECT_EQ(host.TakeNotices(), Notices{});
  button.SetCaption(L"Žďár");
  button.SetCaption(L"ŽĎÁR");
  EXPECT_EQ(button.Caption(), L"Žďár");
}

TEST_F(TlTextProperties, AccessKeyIsTheCharacterAfterTheFirstMark) {
  button.SetCaption(L"O&bce k PSČ");
  EXPECT_EQ(button.AccessKeys(), L"b");
  button.SetCaption(L"Konec");
  EXPECT_EQ(button.AccessKeys(), L"");
  button.SetCaption(L"&&Konec");
  EXPECT_EQ(button.AccessKeys(), L"&");
  button.SetCaption(L"Konec&");
  EXPECT_EQ(button.AccessKeys(), L"");
  button.SetCaption(L"&Čas a &datum");
  EXPECT_EQ(button.AccessKeys(), L"Č");
}

TEST_F(TlTextProperties, FlatUntilHoveredTakesFocusMarkAndBorderAway) {
  button.SetFocusDraw(1);
  button.SetDEBorder(2);
  host.TakeNotices();
  button.SetDEMove(true);
  EXPECT_EQ(button.FocusDraw(), 2);
  EXPECT_EQ(button.DEBorder(), 0);
  EXPECT_EQ(host.TakeNotices(), (Notices{L"FoD", L"DEB", L"DEM"}));
  button.SetDEMove(false);
  EXPECT_EQ(button.FocusDraw(), 2);
  EXPECT_EQ(button.DEBorder(), 0);
}

TEST_F(TlTextProperties, BorderStaysZeroWhileFlatUntilHovered) {
  button.SetDEMove(true);
  host.TakeNotices();
  button.SetDEBorder(1);
  EXPECT_EQ(button.DEBorder(), 0);
  EXPECT_EQ(host.TakeNotices(), Notices{L"DEB"});
}

TEST_F(TlTextProperties, StoredValueThatIsNotAllOnesDoesNotForceTheBorder) {
  button.SetFocusDraw(1);
  button.SetDEMove(Boolean::FromStored(1));
  EXPECT_EQ(button.FocusDraw(), 1);
  button.SetDEBorder(2);
  EXPECT_EQ(button.DEBorder(), 2);
  EXPECT_EQ(button.DEMove().Stored(), 1);
}

TEST_F(TlTextProperties, PointerOutsideOfSixteenBitsIsAnOverflow) {
  button.SetMousePointer(32767);
  button.SetMousePointer(-32768);
  host.TakeNotices();
  EXPECT_THROW(button.SetMousePointer(32768), OverflowError);
  EXPECT_THROW(button.SetMousePointer(-32769), OverflowError);
  EXPECT_EQ(button.MousePointer(), -32768);
  EXPECT_EQ(host.TakeNotices(), Notices{});
}

TEST_F(TlTextProperties, EnabledGoesToTheWindow) {
  button.SetEnabled(false);
  EXPECT_FALSE(IsWindowEnabled(button.Handle()));
  button.SetEnabled(true);
  EXPECT_TRUE(IsWindowEnabled(button.Handle()));
  button.SetEnabled(Boolean::FromStored(1));
  EXPECT_TRUE(IsWindowEnabled(button.Handle()));
}

TEST_F(TlTextProperties, WhoKnowsItOnlyAsAControlIsToldTheSame) {
  const forms::Control& control = button;
  button.SetEnabled(Boolean::FromStored(1));
  EXPECT_EQ(control.Enabled(), button.Enabled());
  EXPECT_EQ(control.Enabled().Stored(), 1);
  button.SetBackColor(0x80000000 | COLOR_BTNFACE);
  EXPECT_EQ(control.BackColor(), button.BackColor());
  EXPECT_EQ(control.BackColor(), 0x80000000U | COLOR_BTNFACE);
  button.SetForeColor(0x80000000 | COLOR_BTNTEXT);
  EXPECT_EQ(control.ForeColor(), button.ForeColor());
  EXPECT_EQ(control.ForeColor(), 0x80000000U | COLOR_BTNTEXT);
  button.SetMousePointer(2);
  EXPECT_EQ(control.MousePointer(), button.MousePointer());
  EXPECT_EQ(control.MousePointer(), 2);
}

TEST_F(TlTextProperties, WhatItIsToldAsAControlIsOneOfItsProperties) {
  forms::Control& control = button;
  control.SetEnabled(Boolean::FromStored(1));
  control.SetBackColor(0x010203);
  control.SetForeColor(0x040506);
  control.SetMousePointer(11);
  EXPECT_EQ(host.TakeNotices(), (Notices{L"E", L"BC", L"FC", L"MousePointer"}));
  MemoryPropertyBag bag;
  button.WriteProperties(bag);
  EXPECT_EQ(bag.ReadBoolean(L"E", false).Stored(), 1);
  EXPECT_EQ(bag.ReadInteger(L"BC", 0), 0x010203);
  EXPECT_EQ(bag.ReadInteger(L"FC", 0), 0x040506);
  EXPECT_EQ(bag.ReadInteger(L"MP", 0), 11);
}

TEST_F(TlTextProperties, NothingRepaintsBeforeTheButtonIsShown) {
  button.SetCaption(L"a");
  button.SetBackColor(1);
  button.SetDEBorder(1);
  EXPECT_EQ(button.TakePaints(), 0);
}

TEST_F(TlTextProperties, ShownButtonRepaintsAtOnceWhereTheDesignSaysSo) {
  button.SetCaption(L"x");
  forms::TextBox other;  // takes the focus: losing it would paint as well
  other.Create(form, 2, {150, 600, 1215, 345});
  other.SetFocus();
  Show();
  const auto paintsOf = [this](auto setter) {
    button.TakePaints();
    setter();
    return button.TakePaints();
  };
  EXPECT_EQ(paintsOf([this] { button.SetFocusDraw(1); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetFocusColor(1); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetSEParameters(L"a"); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetSEFile(L"a"); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetMoveColor(1); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetDownColor(1); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetMousePointer(1); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetMouseIcon(nullptr); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetSEMode(5); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetSEMode(1); }), 1);
  EXPECT_EQ(paintsOf([this] { button.SetSEMode(1); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetDEBorder(1); }), 1);
  EXPECT_EQ(paintsOf([this] { button.SetDEMove(true); }), 1);
  EXPECT_EQ(paintsOf([this] { button.SetDEMove(false); }), 1);
  EXPECT_EQ(paintsOf([this] { button.SetBackColor(0xFFFFFF); }), 1);
  EXPECT_EQ(paintsOf([this] { button.SetForeColor(0x111111); }), 1);
  EXPECT_EQ(paintsOf([this] { button.SetCaption(L"y"); }), 1);
  EXPECT_EQ(paintsOf([this] { button.SetCaption(L"Y"); }), 0);
  EXPECT_EQ(paintsOf([this] { button.SetEnabled(false); }), 1);
}

TEST_F(TlTextProperties, NewlyPlacedButtonHasItsDefaultsInOrder) {
  button.InitProperties();
  EXPECT_EQ(button.RunTime().IsNew, Boolean(true));
  EXPECT_EQ(button.FocusDraw(), 0);
  EXPECT_EQ(button.FocusColor(), 0xC0FFC0U);
  EXPECT_EQ(button.SEParameters(), L"");
  EXPECT_EQ(button.SEFile(), L"");
  EXPECT_EQ(button.SEMode(), 0);
  EXPECT_EQ(button.DEMove(), Boolean(false));
  EXPECT_EQ(button.DEBorder(), 0);
  EXPECT_EQ(button.Enabled(), Boolean(true));
  EXPECT_EQ(button.BackColor(), 0x112233U);
  EXPECT_EQ(button.ForeColor(), 0x445566U);
  EXPECT_EQ(button.MoveColor(), 0xFF0000U);
  EXPECT_EQ(button.DownColor(), 0x00FF00U);
  EXPECT_EQ(button.Caption(), L"tlHZkouska");
  EXPECT_EQ(button.MousePointer(), 0);
  EXPECT_EQ(button.MouseIcon(), nullptr);
  // Mode 0 brings the caption; setting it once more at the end changes nothing.
  EXPECT_EQ(host.TakeNotices(), (Notices{L"FoD", L"FoC", L"SEP", L"SEF", L"C", L"SEP", L"SEF", L"SEM", L"DEM", L"DEB",
                                         L"E", L"BC", L"FC", L"MC", L"DC", L"MousePointer"}));
}

TEST_F(TlTextProperties, FirstResizeGivesANewlyPlacedButtonItsSize) {
  button.InitProperties();
  button.Move({300, 450, 3000, 1500});
  EXPECT_EQ(button.RunTime().IsNew, Boolean(false));
  EXPECT_EQ(button.GetPlace(), (forms::Place{300, 450, 1215, 345}));
  EXPECT_EQ(button.RunTime().ClientRect.right, 81);
  EXPECT_EQ(button.RunTime().ClientRect.bottom, 23);
  EXPECT_EQ(button.RunTime().FocusRect.left, 3);
  EXPECT_EQ(button.RunTime().FocusRect.top, 3);
  EXPECT_EQ(button.RunTime().FocusRect.right, 78);
  EXPECT_EQ(button.RunTime().FocusRect.bottom, 20);
}

TEST_F(TlTextProperties, LaterResizesAreTakenAsTheyCome) {
  button.InitProperties();
  button.Move({300, 450, 3000, 1500});
  button.Move({300, 450, 3000, 1500});
  EXPECT_EQ(button.RunTime().ClientRect.right, 200);
  EXPECT_EQ(button.RunTime().ClientRect.bottom, 100);
  EXPECT_EQ(button.RunTime().FocusRect.right, 197);
}

TEST_F(TlTextProperties, ShowingSetsTheTabStopUnlessThereIsNoFocusMark) {
  TestButton second;
  RecordingHost secondHost;
  second.Create(form, 2, {150, 600, 1215, 345}, L"b", &secondHost);
  second.SetFocusDraw(2);
  EXPECT_TRUE(host.tabStops.empty());
  Show();
  EXPECT_EQ(button.RunTime().IsShown, Boolean(true));
  EXPECT_EQ(host.tabStops, std::vector<bool>{true});
  EXPECT_EQ(secondHost.tabStops, std::vector<bool>{false});
}

TEST_F(TlTextProperties, ShownMeansSeenWithItsForm) {
  button.SetVisible(false);
  button.SetVisible(true);
  EXPECT_EQ(button.RunTime().IsShown, Boolean(false));
  forms::PictureBox panel;
  TestButton inner;
  panel.Create(form, 2, {150, 600, 3000, 600});
  panel.SetVisible(false);
  inner.Create(panel, 3, {0, 0, 1215, 345}, L"b", &host);
  Show();
  EXPECT_EQ(button.RunTime().IsShown, Boolean(true));
  EXPECT_EQ(inner.RunTime().IsShown, Boolean(false));
  panel.SetVisible(true);
  EXPECT_EQ(inner.RunTime().IsShown, Boolean(true));
}

/// A bag that writes down what is asked of it.
class LoggingBag : public MemoryPropertyBag {
 public:
  using MemoryPropertyBag::MemoryPropertyBag;
  std::int32_t ReadInteger(std::wstring_view key, std::int32_t value) const override {
    log.push_back(std::wstring(key) + L"=" + std::to_wstring(value));
    return MemoryPropertyBag::ReadInteger(key, value);
  }
  Boolean ReadBoolean(std::wstring_view key, Boolean value) const override {
    log.push_back(std::wstring(key) + L"=" + std::to_wstring(value.Stored()));
    return MemoryPropertyBag::ReadBoolean(key, value);
  }
  std::wstring ReadString(std::wstring_view key, std::wstring_view value) const override {
    log.push_back(std::wstring(key) + L"=\"" + std::wstring(value) + L"\"");
    return MemoryPropertyBag::ReadString(key, value);
  }
  Picture ReadPicture(std::wstring_view key, const Picture& value) const override {
    log.push_back(std::wstring(key) + (value ? L"=picture" : L"=none"));
    return MemoryPropertyBag::ReadPicture(key, value);
  }
  mutable std::vector<std::wstring> log;
};

TEST_F(TlTextProperties, ReadsAllKeysInOrderWithTheirDefaults) {
  const LoggingBag bag;
  button.ReadProperties(bag);
  EXPECT_EQ(bag.log, (std::vector<std::wstring>{L"FoD=0", L"FoC=12648384", L"SEP=\"\"", L"SEF=\"\"", L"SEM=0", L"DEM=0",
                                                L"DEB=0", L"E=-1", L"BC=1122867", L"FC=4478310", L"MC=16711680",
                                                L"DC=65280", L"C=\"tlHZkouska\"", L"MP=0", L"MI=none"}));
  EXPECT_EQ(button.FocusColor(), 0xC0FFC0U);
  EXPECT_EQ(button.BackColor(), 0x112233U);
  EXPECT_EQ(button.ForeColor(), 0x445566U);
  EXPECT_EQ(button.Caption(), L"tlHZkouska");
  EXPECT_EQ(button.RunTime().IsNew, Boolean(false));
}

TEST_F(TlTextProperties, LoadingMailModeEmptiesTheParameters) {
  button.ReadProperties(MemoryPropertyBag{{L"SEM", 2}, {L"SEP", std::wstring(L"x")}, {L"SEF", std::wstring(L"f")}});
  EXPECT_EQ(button.SEParameters(), L"");
  EXPECT_EQ(button.SEFile(), L"f");
}

TEST_F(TlTextProperties, LoadingFileModeKeepsTheParameters) {
  button.ReadProperties(
      MemoryPropertyBag{{L"SEM", 3}, {L"SEP", std::wstring(L"x")}, {L"C", std::wstring(L"&PC-info")}});
  EXPECT_EQ(button.SEParameters(), L"x");
  EXPECT_EQ(button.Caption(), L"&PC-info");
}

TEST_F(TlTextProperties, LoadingModeZeroEmptiesTargetAndParameters) {
  button.ReadProperties(MemoryPropertyBag{{L"SEP", std::wstring(L"x")}, {L"SEF", std::wstring(L"f")}});
  EXPECT_EQ(button.SEParameters(), L"");
  EXPECT_EQ(button.SEFile(), L"");
}

TEST_F(TlTextProperties, LoadingFlatUntilHoveredForcesTheBorder) {
  button.ReadProperties(MemoryPropertyBag{{L"DEM", Boolean(true)}, {L"DEB", 1}, {L"FoD", 1}});
  EXPECT_EQ(button.DEBorder(), 0);
  EXPECT_EQ(button.FocusDraw(), 2);
}

TEST_F(TlTextProperties, ValueOfAnotherTypeIsAnError) {
  EXPECT_THROW(button.ReadProperties(MemoryPropertyBag{{L"SEM", std::wstring(L"2")}}), Error);
}

TEST_F(TlTextProperties, WritingDefaultsWritesAllFifteenKeys) {
  button.InitProperties();
  MemoryPropertyBag bag;
  button.WriteProperties(bag);
  std::vector<std::wstring> keys;
  for (const auto& [key, value] : bag.Values()) keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::wstring>{L"BC", L"C", L"DC", L"DEB", L"DEM", L"E", L"FC", L"FoC", L"FoD", L"MC",
                                             L"MI", L"MP", L"SEF", L"SEM", L"SEP"}));
}

TEST_F(TlTextProperties, BagSurvivesTheRoundTrip) {
  const auto picture = std::make_shared<const PointerPicture>(CopyIcon(LoadCursorW(nullptr, IDC_HAND)));
  const MemoryPropertyBag original{{L"FoD", 1},
                                   {L"FoC", 0x010203},
                                   {L"SEP", std::wstring(L"/p")},
                                   {L"SEF", std::wstring(L"msinfo32")},
                                   {L"SEM", 3},
                                   {L"DEM", Boolean(false)},
                                   {L"DEB", 2},
                                   {L"E", Boolean(false)},
                                   {L"BC", static_cast<std::int32_t>(0x8000000FU)},
                                   {L"FC", 0x0A0B0C},
                                   {L"MC", 0x0D0E0F},
                                   {L"DC", 0x101112},
                                   {L"C", std::wstring(L"&PC-info")},
                                   {L"MP", 99},
                                   {L"MI", picture}};
  button.ReadProperties(original);
  MemoryPropertyBag written;
  button.WriteProperties(written);
  EXPECT_EQ(written.Values(), original.Values());

  TestButton copy;
  copy.Create(form, 2, {150, 600, 1215, 345}, L"b", &host);
  copy.ReadProperties(written);
  MemoryPropertyBag again;
  copy.WriteProperties(again);
  EXPECT_EQ(again.Values(), original.Values());
}

TEST_F(TlTextProperties, WindowIsMadeWithThePropertiesReadBefore) {
  tlText early;
  early.ReadProperties(MemoryPropertyBag{{L"C", L"&Konec"}, {L"E", Boolean(false)}, {L"FoD", 1}});
  EXPECT_EQ(early.BackColor(), form.BackColor());
  EXPECT_EQ(early.Handle(), nullptr);
  early.Create(form, 4, {150, 1500, 1215, 345}, L"tlHEarly");
  EXPECT_EQ(test::WindowText(early.Handle()), L"&Konec");
  EXPECT_FALSE(IsWindowEnabled(early.Handle()));
  EXPECT_EQ(early.FocusDraw(), 1);
  EXPECT_EQ(early.AccessKeys(), L"K");
  tlText neitherZeroNorTrue;
  neitherZeroNorTrue.ReadProperties(MemoryPropertyBag{{L"E", Boolean::FromStored(1)}});
  neitherZeroNorTrue.Create(form, 5, {150, 1950, 1215, 345}, L"tlHOne");
  EXPECT_TRUE(IsWindowEnabled(neitherZeroNorTrue.Handle()));
}

TEST_F(TlTextProperties, RunningFormIsTheHostByDefault) {
  tlText plain;
  plain.Create(form, 3, {150, 1050, 1215, 345}, L"tlHPlain");
  plain.ReadProperties(MemoryPropertyBag());
  EXPECT_EQ(plain.Caption(), L"tlHPlain");
  EXPECT_EQ(plain.BackColor(), form.BackColor());
  EXPECT_EQ(plain.ForeColor(), form.ForeColor());
}

}  // namespace
}  // namespace kvez
