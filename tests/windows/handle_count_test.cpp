#include "tests/support/handle_count.h"

#include <gtest/gtest.h>

namespace kvez::test {
namespace {

HWND CreateSmallWindow() {
  return CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
}

HICON CreateSmallIcon() {
  return static_cast<HICON>(CopyImage(LoadIconW(nullptr, IDI_APPLICATION), IMAGE_ICON, 16, 16, 0));
}

TEST(HandleCountTest, SeesEveryKindOfObject) {
  // A first window and a first icon bring what the system keeps for itself. The window stays: with the last one
  // goes the thread's input window.
  const HWND first = CreateSmallWindow();
  DestroyIcon(CreateSmallIcon());
  CountHandles();
  const HandleCount before = CountHandles();

  const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  EXPECT_EQ(CountHandles().gdi, before.gdi + 1);
  DeleteObject(brush);

  const HMENU menu = CreatePopupMenu();
  EXPECT_EQ(CountHandles().menus, before.menus + 1);
  DestroyMenu(menu);

  const HWND window = CreateSmallWindow();
  EXPECT_EQ(CountHandles().windows, before.windows + 1);
  DestroyWindow(window);

  const HICON icon = CreateSmallIcon();
  EXPECT_EQ(CountHandles().icons, before.icons + 1);
  DestroyIcon(icon);

  EXPECT_EQ(CountHandles(), before);
  DestroyWindow(first);
}

}  // namespace
}  // namespace kvez::test
