#pragma once

#include <string>
#include <vector>

#include "controls/tlText.h"
#include "tests/support/window_test.h"

namespace kvez::test {

/// A host that writes down what it is told and answers what the test wants.
class RecordingHost : public tlTextHost {
 public:
  COLORREF AmbientBackColor(const tlText&) const override { return backColor; }
  COLORREF AmbientForeColor(const tlText&) const override { return foreColor; }
  std::wstring DisplayName(const tlText&) const override { return displayName; }
  bool IsCancelButton(const tlText&) const override { return isCancelButton; }
  void PropertyChanged(tlText&, std::wstring_view key) override { notices.emplace_back(key); }
  void SetTabStop(tlText& button, bool tabStop) override {
    tabStops.push_back(tabStop);
    tlTextHost::SetTabStop(button, tabStop);
  }

  /// The notices since the last call.
  std::vector<std::wstring> TakeNotices() { return std::exchange(notices, {}); }

  COLORREF backColor = 0x112233;
  COLORREF foreColor = 0x445566;
  std::wstring displayName = L"tlHZkouska";
  bool isCancelButton = false;
  std::vector<std::wstring> notices;
  std::vector<bool> tabStops;
};

/// A call of the shell.
struct ShellCall {
  HWND owner;
  bool hasVerb;
  std::string file;
  std::string parameters;
  bool hasFolder;
  int show;

  friend bool operator==(const ShellCall&, const ShellCall&) = default;
};

/// A button that counts its paints and writes down its events.
class TestButton : public tlText {
 public:
  TestButton();

  std::vector<std::string> TakeEvents() { return std::exchange(events, {}); }
  int TakePaints() { return std::exchange(paints, 0); }

  std::vector<std::string> events;
  std::vector<ShellCall> shellCalls;
  int paints = 0;
  RECT lastPainted{};  // what the last paint was asked for

  /// After Create, which sets the real shell.
  void RecordShell();

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

inline TestButton::TestButton() {
  Click = [this] { events.emplace_back("Click"); };
  KeyPress = [this](std::int16_t& KeyAscii) { events.push_back("KeyPress " + std::to_string(KeyAscii)); };
  MouseMoveEnabled = [this](bool mme) {
    events.emplace_back(mme ? "MouseMoveEnabled true" : "MouseMoveEnabled false");
  };
  MouseUp = [this](std::int16_t& Button, std::int16_t&, float&, float&) {
    events.push_back("MouseUp " + std::to_string(Button));
  };
  MouseDown = [this](std::int16_t& Button, std::int16_t&, float&, float&) {
    events.push_back("MouseDown " + std::to_string(Button));
  };
}

inline void TestButton::RecordShell() {
  SetShellExecute(
      [this](HWND owner, const char* verb, const char* file, const char* parameters, const char* folder, int show) {
        shellCalls.push_back({owner, verb != nullptr, file, parameters, folder != nullptr, show});
        return reinterpret_cast<HINSTANCE>(static_cast<INT_PTR>(33));
      });
}

inline LRESULT TestButton::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    ++paints;
    GetUpdateRect(Handle(), &lastPainted, FALSE);
  }
  return tlText::OnMessage(message, wParam, lParam);
}

}  // namespace kvez::test
