#include "bench/windows/copying.h"

#include <chrono>

#include "bench/windows/person.h"

namespace kvez::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr UINT kLookMilliseconds = 10;
constexpr int kMostLooks = 500;

// A timer without a window carries no data of its own.
std::optional<Clock::time_point> answered;
int looks = 0;

// Timers come behind all painting: when this is called, the question is painted.
void CALLBACK AnswerQuestion(HWND, UINT, UINT_PTR, DWORD) {
  if (answered) return;
  const HWND question = FindWindowW(L"#32770", nullptr);
  if (question != nullptr && IsWindowVisible(question)) {
    answered = Clock::now();
    Press(GetDlgItem(question, IDYES), VK_RETURN);
  } else if (++looks > kMostLooks) {
    // The keys did not reach the menu, and nobody else would close it.
    EndMenu();
  }
}

}  // namespace

std::optional<double> CopyList(frmhlavni& window) {
  const HWND list = window.lstMPSC[kListResult].Handle();
  const DWORD before = GetClipboardSequenceNumber();
  answered.reset();
  looks = 0;
  const UINT_PTR timer = SetTimer(nullptr, 0, kLookMilliseconds, &AnswerQuestion);
  constexpr LPARAM kFromKeyboard = -1;
  PostMessageW(list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list), kFromKeyboard);
  // Past "Tisk" and "Export".
  for (int row = 0; row < 3; ++row) Press(list, VK_DOWN);
  Press(list, VK_RETURN);
  Settle(window);
  const auto end = Clock::now();
  KillTimer(nullptr, timer);
  if (!answered || GetClipboardSequenceNumber() == before) return std::nullopt;
  return std::chrono::duration<double>(end - *answered).count();
}

}  // namespace kvez::bench
