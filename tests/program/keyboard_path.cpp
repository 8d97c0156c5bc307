#include "tests/program/keyboard_path.h"

namespace kvez::test {

void KeyboardPath::SetUp() {
  ProgramTest::SetUp();
  program.emplace(Exe());
  ASSERT_TRUE(program->WaitReady());
  program->Focus(kTxtMPSC);
}

void KeyboardPath::TearDown() {
  // A key that a failed test has left down would be held in all that come after it.
  for (const WORD key : std::initializer_list<WORD>{VK_SHIFT, VK_CONTROL, VK_MENU, VK_RETURN}) {
    if (GetAsyncKeyState(key) < 0) KeyUp(key);
  }
  program.reset();
  ProgramTest::TearDown();
}

void KeyboardPath::SearchFor(const std::wstring& name) {
  if (program->FocusedId() != kTxtMPSC) program->Focus(kTxtMPSC);
  PressKey('A', true);
  TypeText(name);
  ASSERT_TRUE(WaitText(kTxtMPSC, name));
  PressKey(VK_RETURN);
  ASSERT_TRUE(WaitUntil(
      [&] { return program->Text(kLblMPSCN) == L"Název obce \"" + name + L"\"." && program->ListCount(kResult) > 0; }));
}

POINT KeyboardPath::Row(int list, int row) const {
  RECT bounds{};
  GetClientRect(program->Control(list), &bounds);
  const auto height = static_cast<LONG>(SendMessageW(program->Control(list), LB_GETITEMHEIGHT, 0, 0));
  POINT place{bounds.left + 40, height * row + height / 2};
  ClientToScreen(program->Control(list), &place);
  return place;
}

bool KeyboardPath::SelectFirstResult() {
  // Twice in the same place and soon would be a double click.
  m_clickOffset = (m_clickOffset + 20) % 60;
  POINT place = Row(kResult, 0);
  place.x += m_clickOffset;
  ClickAt(place);
  return WaitUntil([&] { return program->ListIndex(kResult) == 0 && program->FocusedId() == kResult; });
}

void KeyboardPath::HoverRow(int list, int row) const {
  MovePointer(CentreOf(program->Control(kLblMPSCN)));
  MovePointer(Row(list, row));
}

bool KeyboardPath::WaitFocus(int id) const {
  if (WaitUntil([&] { return program->FocusedId() == id; })) return true;
  ADD_FAILURE() << "the focus is in control " << program->FocusedId() << " and not in " << id;
  return false;
}

bool KeyboardPath::WaitText(int id, const std::wstring& text) const {
  if (WaitUntil([&] { return program->Text(id) == text; })) return true;
  EXPECT_EQ(program->Text(id), text);
  return false;
}

HWND KeyboardPath::FocusIn(HWND window) {
  GUITHREADINFO information{};
  information.cbSize = sizeof information;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &information);
  return information.hwndFocus;
}

bool KeyboardPath::PressTab(bool backwards) const {
  const auto isField = [](int id) { return id == kTxtMPSC || id == kTxtMPSC + 1; };
  const int before = program->FocusedId();
  PressKey(VK_TAB, false, backwards);
  // On its way from one of the fields, Shift goes to the other one for a moment; they are no neighbours.
  return WaitUntil([&] {
    const int now = program->FocusedId();
    return now != 0 && now != before && !(isField(before) && isField(now));
  });
}

std::vector<int> KeyboardPath::TabOrder(int start, bool backwards) const {
  constexpr std::size_t kMost = 50;
  std::vector<int> order;
  while (order.size() < kMost && (order.empty() || order.back() != start) && PressTab(backwards)) {
    order.push_back(program->FocusedId());
  }
  return order;
}

bool KeyboardPath::TabTo(int id) const {
  constexpr int kMost = 50;
  for (int i = 0; i < kMost && program->FocusedId() != id; ++i) {
    if (!PressTab(false)) break;
  }
  EXPECT_EQ(program->FocusedId(), id);
  return program->FocusedId() == id;
}

void KeyboardPath::ExpectOneRefusal(const std::function<void()>& act) {
  act();
  const Dialog refusal = program->WaitDialog();
  EXPECT_EQ(refusal.text, L"Zadejte minimálně 1 znak pro vyhledání !");
  // What was typed behind has arrived when this has.
  PressKey(VK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindow(refusal.window) && GetForegroundWindow() == program->MainWindow(); }));
  PressKey('A', true);
  TypeText(L"x");
  EXPECT_TRUE(WaitText(kTxtMPSC, L"x"));
  EXPECT_FALSE(program->OpenDialog().has_value());
}

void KeyboardPath::ChooseFromSystemMenu(const std::wstring& explanation) const {
  PressKey(VK_SPACE, false, false, true);
  ASSERT_TRUE(WaitUntil([] { return OpenMenu() != nullptr; })) << "the window's menu does not open";
  constexpr int kMostRows = 10;
  for (int row = 0; row < kMostRows; ++row) {
    PressKey(VK_DOWN);
    if (HoldsWithin(0.5, [&] { return StatusText(program->StatusBar(), 2) == explanation; })) break;
  }
  EXPECT_EQ(StatusText(program->StatusBar(), 2), explanation);
  PressKey(VK_RETURN);
}

bool KeyboardPath::LeaveMenus() const {
  return WaitUntil([&] {
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    GetGUIThreadInfo(GetWindowThreadProcessId(program->MainWindow(), nullptr), &information);
    if ((information.flags & GUI_INMENUMODE) == 0) return OpenMenu() == nullptr;
    PressKey(VK_ESCAPE);
    return false;
  });
}

std::wstring KeyboardPath::ClipboardText() {
  std::wstring text;
  if (!OpenClipboard(nullptr)) return text;
  if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* const characters = static_cast<const wchar_t*>(GlobalLock(memory))) text = characters;
    GlobalUnlock(memory);
  }
  CloseClipboard();
  return text;
}

}  // namespace kvez::test
