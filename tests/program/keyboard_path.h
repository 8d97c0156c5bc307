#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/program/program_test.h"
#include "tests/support/list_menu_driver.h"

namespace kvez::test {

/// The running program, in front, and what a person does with it.
class KeyboardPath : public ProgramTest {
 protected:
  static constexpr int kText = kTxtMPSC;
  static constexpr int kLightBlue = kTxtMPSC + 1;
  static constexpr int kAll = kLstMPSC;
  static constexpr int kResult = kLstMPSC + 1;
  static constexpr int kDistricts = kLstMPSC + 2;

  void SetUp() override;
  void TearDown() override;

  /// Searches by the name and waits for the answer.
  void SearchFor(const std::wstring& name);
  /// Clicks the first row of the result.
  bool SelectFirstResult();
  POINT Row(int list, int row) const;
  /// Moves the pointer onto a row, coming from beside the lists.
  void HoverRow(int list, int row) const;

  static void Alt(WORD key) { PressKey(key, false, false, true); }
  bool WaitFocus(int id) const;
  bool WaitText(int id, const std::wstring& text) const;
  static HWND FocusIn(HWND window);

  /// The controls that Tab comes to from `start`, which has the focus, until it is back there; `start` comes last.
  std::vector<int> TabOrder(int start, bool backwards) const;
  bool TabTo(int id) const;
  /// One press of Tab, which has moved the focus when this returns.
  bool PressTab(bool backwards) const;

  /// Expects one refused search and no second message when that one is closed.
  void ExpectOneRefusal(const std::function<void()>& act);
  /// Chooses the row of the window's menu that the status bar explains so, by the keyboard.
  void ChooseFromSystemMenu(const std::wstring& explanation) const;

  /// Escape, as often as the menus that are open ask for it.
  bool LeaveMenus() const;

  static std::wstring ClipboardText();

  std::optional<Program> program;

 private:
  LONG m_clickOffset = 0;
};

}  // namespace kvez::test
