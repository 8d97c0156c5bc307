// What becomes of errors in events.
#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "forms/containers.h"
#include "forms/guard.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "tests/support/window_test.h"
#include "text/assertion.h"
#include "text/error.h"

namespace kvez::forms {
namespace {

using test::TestForm;

class GuardTest : public ::testing::Test {
 protected:
  GuardTest() {
    SetGuard({L"Kvez",
              [this](const std::wstring& text, const std::wstring& title) { shown.push_back(title + L": " + text); }});
  }
  ~GuardTest() override { SetGuard({}); }

  std::vector<std::wstring> shown;
};

TEST_F(GuardTest, ErrorInAnEventIsShownAndTheProgramGoesOn) {
  TestForm form;
  TextBox text;
  text.Create(form, 1, {0, 0, 1500, 285});
  text.Change = [] { throw Error(L"Text není číslo."); };
  text.SetText(L"a");
  text.SetText(L"b");
  EXPECT_EQ(text.Text(), L"b");
  EXPECT_EQ(shown, (std::vector<std::wstring>{L"Kvez: Text není číslo.", L"Kvez: Text není číslo."}));
}

TEST_F(GuardTest, ErrorWhileUnloadingKeepsTheWindow) {
  TestForm form;
  form.unload = [](std::int16_t&) { throw OverflowError(); };
  EXPECT_FALSE(form.Unload());
  EXPECT_TRUE(form.IsOpen());
  EXPECT_EQ(shown, std::vector<std::wstring>{L"Kvez: Číslo je mimo povolený rozsah."});
  form.unload = nullptr;
  EXPECT_TRUE(form.Unload());
}

TEST_F(GuardTest, ErrorWhileLoadingLeavesAFormThatCanGo) {
  TestForm form;
  form.load = [] { throw Error(L"Nejde to."); };
  EXPECT_FALSE(Guarded([&] { form.Show(); }));
  EXPECT_EQ(shown, std::vector<std::wstring>{L"Kvez: Nejde to."});
  EXPECT_TRUE(form.Unload());
}

TEST_F(GuardTest, EveryErrorIsACzechSentenceAndTheSystemsCodeBehindIt) {
  EXPECT_FALSE(Guarded([] { throw Error(L"Nabídku se nepodařilo otevřít.", "AppendMenuW", 8); }));
  EXPECT_FALSE(Guarded([] { throw std::bad_alloc(); }));
  EXPECT_FALSE(Guarded([] { throw std::runtime_error("basic_filebuf"); }));
  EXPECT_FALSE(Guarded([] { throw 1; }));
  EXPECT_TRUE(Guarded([] {}));
  EXPECT_EQ(shown,
            (std::vector<std::wstring>{L"Kvez: Nabídku se nepodařilo otevřít. (AppendMenuW 8)",
                                       L"Kvez: Nedostatek paměti.", L"Kvez: Neznámá chyba.", L"Kvez: Neznámá chyba."}));
}

TEST_F(GuardTest, ErrorWhileAnErrorIsShownIsDropped) {
  int boxes = 0;
  SetGuard({L"Kvez", [&](const std::wstring&, const std::wstring&) {
              ++boxes;
              Guarded([] { throw Error(L"druhá"); });
            }});
  Guarded([] { throw Error(L"první"); });
  EXPECT_EQ(boxes, 1);
}

/// Throws whenever it has to paint.
class Unpaintable : public PictureBox {
 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_PAINT) throw Error(L"Nelze kreslit.");
    return PictureBox::OnMessage(message, wParam, lParam);
  }
};

TEST_F(GuardTest, WindowThatCannotPaintDoesNotAskForEver) {
  TestForm form;
  Unpaintable picture;
  picture.Create(form, 1, {0, 0, 1500, 1500});
  ASSERT_TRUE(test::ShowActive(form));
  EXPECT_FALSE(GetUpdateRect(picture.Handle(), nullptr, FALSE));
  EXPECT_GE(shown.size(), 1U);
  EXPECT_LT(shown.size(), 5U);
}

TEST(WindowsOfOneThread, AnotherOneThatAsksForThemIsAsserted) {
  const TestForm form;
  static std::atomic<int> told;
  told = 0;
  const AssertionHandler before = SetAssertionHandler([](const char*) { ++told; });
  std::thread([&] { Window::FromHandle(form.Handle()); }).join();
  EXPECT_EQ(told, 1);
  Window::FromHandle(form.Handle());
  EXPECT_EQ(told, 1);
  SetAssertionHandler(before);
}

TEST(GuardBox, IsAMessageBoxWithTheTitle) {
  SetGuard({L"Kvez", {}});
  TestForm form;
  ASSERT_TRUE(test::ShowActive(form));
  Timer timer;
  std::wstring caption;
  std::wstring text;
  timer.Create(form, 20, true);
  timer.Elapsed = [&] {
    const HWND box = FindWindowW(L"#32770", L"Kvez");
    if (box == nullptr) return;
    wchar_t buffer[100]{};
    GetDlgItemTextW(box, 65535, buffer, 100);
    text = buffer;
    GetWindowTextW(box, buffer, 100);
    caption = buffer;
    timer.SetEnabled(false);
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  };
  Guarded([] { throw Error(L"Něco se nepovedlo."); });
  EXPECT_EQ(caption, L"Kvez");
  EXPECT_EQ(text, L"Něco se nepovedlo.");
  SetGuard({});
}

}  // namespace
}  // namespace kvez::forms
