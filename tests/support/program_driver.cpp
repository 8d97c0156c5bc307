#include "tests/support/program_driver.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "mainwindow/control_ids.h"

namespace kvez::test {
namespace {

// Whether the display's pointer belongs to an open menu, or to a window that is being moved or resized.
bool IsPointerHeld() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  constexpr DWORD holders = GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE | GUI_INMOVESIZE;
  return GetGUIThreadInfo(0, &info) && (info.flags & holders) != 0;
}

constexpr const wchar_t* kTitle = L"Kvez";
constexpr const wchar_t* kMainWindowClass = L"KvezForm";
constexpr const wchar_t* kDialogClass = L"#32770";
constexpr int kMessageTextId = 65535;

/// A window of a process, or of any when `processId` is 0. Whoever waits for one asks often: the system is left to
/// look, because each question to a window costs the program that is waited for.
HWND FindTopLevel(DWORD processId, const wchar_t* className, const wchar_t* title) {
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, className, title)) != nullptr) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (processId == 0 || owner == processId) return window;
  }
  return nullptr;
}

HWND FindMainWindow(DWORD processId) { return FindTopLevel(processId, kMainWindowClass, kTitle); }

BOOL CALLBACK CountWindow(HWND, LPARAM parameter) {
  ++*reinterpret_cast<int*>(parameter);
  return TRUE;
}

BOOL CALLBACK LookForId(HWND window, LPARAM parameter) {
  auto& wanted = *reinterpret_cast<std::pair<int, HWND>*>(parameter);
  if (GetDlgCtrlID(window) != wanted.first) return TRUE;
  wanted.second = window;
  return FALSE;
}

INPUT KeyInput(WORD virtualKey, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

void AppendKey(std::vector<INPUT>& inputs, WORD virtualKey, bool control, bool shift, bool alt) {
  const std::pair<bool, WORD> modifiers[] = {{control, VK_CONTROL}, {shift, VK_SHIFT}, {alt, VK_MENU}};
  for (const auto& [held, key] : modifiers) {
    if (held) inputs.push_back(KeyInput(key, 0));
  }
  inputs.push_back(KeyInput(virtualKey, 0));
  inputs.push_back(KeyInput(virtualKey, KEYEVENTF_KEYUP));
  for (const auto& [held, key] : modifiers) {
    if (held) inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP));
  }
}

void AppendCharacter(std::vector<INPUT>& inputs, wchar_t character) {
  constexpr int kNoKey = -1;
  const SHORT key = VkKeyScanW(character);
  if (key != kNoKey) {
    const BYTE with = HIBYTE(key);
    return AppendKey(inputs, LOBYTE(key), (with & 2) != 0, (with & 1) != 0, (with & 4) != 0);
  }
  for (const DWORD up : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = static_cast<WORD>(character);
    input.ki.dwFlags = KEYEVENTF_UNICODE | up;
    inputs.push_back(input);
  }
}

void Send(std::vector<INPUT>& inputs) { SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)); }

}  // namespace

void TypeText(const std::wstring& text) {
  std::vector<INPUT> inputs;
  for (const wchar_t character : text) AppendCharacter(inputs, character);
  Send(inputs);
}

void HoldKey(WORD virtualKey, int repetitions, bool alt) {
  std::vector<INPUT> inputs;
  if (alt) inputs.push_back(KeyInput(VK_MENU, 0));
  inputs.insert(inputs.end(), static_cast<std::size_t>(repetitions) + 1, KeyInput(virtualKey, 0));
  inputs.push_back(KeyInput(virtualKey, KEYEVENTF_KEYUP));
  if (alt) inputs.push_back(KeyInput(VK_MENU, KEYEVENTF_KEYUP));
  Send(inputs);
}

void KeyDown(WORD virtualKey) {
  std::vector<INPUT> inputs = {KeyInput(virtualKey, 0)};
  Send(inputs);
}

void KeyUp(WORD virtualKey) {
  std::vector<INPUT> inputs = {KeyInput(virtualKey, KEYEVENTF_KEYUP)};
  Send(inputs);
}

void PressKey(WORD virtualKey, bool control, bool shift, bool alt) {
  std::vector<INPUT> inputs;
  AppendKey(inputs, virtualKey, control, shift, alt);
  Send(inputs);
}

// The pointer of the display moves along, which input alone leaves behind: wherever that one is, each window that comes
// up under it or goes away there draws the pointer back to itself. Only a change reaches the display.
void HurryPointer(POINT screen) {
  SetCursorPos(screen.x + 1, screen.y);
  SetCursorPos(screen.x, screen.y);
}

void MovePointer(POINT screen) {
  // A busy display moves its pointer late, or refuses to. A program that asks where the pointer is would be told the
  // former place, and would hear of no movement any more.
  const auto isThere = [screen] {
    HurryPointer(screen);
    // For so long after a movement Wine believes itself, and asks the display from then on.
    Sleep(105);
    POINT pointer{};
    return GetCursorPos(&pointer) && pointer.x == screen.x && pointer.y == screen.y;
  };
  // Once more when it is there: only now every program hears of the right place. And it rests before anything else
  // happens: what came late would be a movement then.
  const double patience = IsPointerHeld() ? 0.4 : 10.0;
  if (HoldsWithin(patience, isThere) && HoldsWithin(patience, isThere)) return;
  // Who holds the display's pointer hears of movements as input only.
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  INPUT input{};
  input.type = INPUT_MOUSE;
  // Absolute coordinates run from 0 to 65535; the half pixel keeps the rounding inside the wanted one.
  input.mi.dx = static_cast<LONG>((screen.x + 0.5) * 65536.0 / width);
  input.mi.dy = static_cast<LONG>((screen.y + 0.5) * 65536.0 / height);
  input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
  SendInput(1, &input, sizeof input);
}

void ClickAt(POINT screen, bool rightButton) {
  MovePointer(screen);
  ClickInPlace(rightButton);
}

void ClickInPlace(bool rightButton) {
  INPUT inputs[2] = {};
  inputs[0].type = inputs[1].type = INPUT_MOUSE;
  inputs[0].mi.dwFlags = static_cast<DWORD>(rightButton ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
  inputs[1].mi.dwFlags = static_cast<DWORD>(rightButton ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
  SendInput(2, inputs, sizeof(INPUT));
}

POINT CentreOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
}

std::wstring WindowText(HWND window) {
  const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
  std::wstring text(length + 1, L'\0');
  const auto copied = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

std::wstring KnownText(HWND window) {
  wchar_t text[256] = {};
  return std::wstring(text, static_cast<std::size_t>(InternalGetWindowText(window, text, 256)));
}

std::wstring StatusText(HWND statusBar, int panel) {
  DWORD processId = 0;
  GetWindowThreadProcessId(statusBar, &processId);
  const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId);
  if (process == nullptr) return {};
  // The text is written into the memory of the bar's own process.
  const SIZE_T bytes = 2048 * sizeof(wchar_t);
  void* remote = VirtualAllocEx(process, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  const LRESULT length =
      SendMessageW(statusBar, SB_GETTEXTW, static_cast<WPARAM>(panel), reinterpret_cast<LPARAM>(remote));
  std::wstring text(LOWORD(length), L'\0');
  ReadProcessMemory(process, remote, text.data(), text.size() * sizeof(wchar_t), nullptr);
  VirtualFreeEx(process, remote, 0, MEM_RELEASE);
  CloseHandle(process);
  return text;
}

Program::Program(const std::wstring& exe) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION information{};
  std::wstring command = L"\"" + exe + L"\"";
  if (!CreateProcessW(exe.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &information)) {
    return;
  }
  CloseHandle(information.hThread);
  m_process = information.hProcess;
  m_processId = information.dwProcessId;
}

Program::Program(HANDLE process, DWORD processId) : m_process(process), m_processId(processId) {}

Program::Program(Program&& other) noexcept
    : m_process(std::exchange(other.m_process, nullptr)), m_processId(other.m_processId), m_kill(other.m_kill) {}

std::optional<Program> Program::Running() {
  const HWND window = FindMainWindow(0);
  if (window == nullptr) return std::nullopt;
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, processId);
  if (process == nullptr) return std::nullopt;
  return Program(process, processId);
}

Program::~Program() {
  if (m_process == nullptr) return;
  if (m_kill && !HasEnded()) Kill();
  CloseHandle(m_process);
}

bool Program::HasEnded() const { return m_process == nullptr || WaitForSingleObject(m_process, 0) == WAIT_OBJECT_0; }

std::optional<DWORD> Program::WaitForEnd(double seconds) {
  if (!WaitUntil([this] { return HasEnded(); }, seconds)) return std::nullopt;
  DWORD code = 0;
  if (!GetExitCodeProcess(m_process, &code)) return std::nullopt;
  return code;
}

void Program::Kill() {
  TerminateProcess(m_process, 99);
  WaitForSingleObject(m_process, 10000);
}

HWND Program::MainWindow() const { return FindMainWindow(m_processId); }

bool Program::WaitReady(double seconds) const {
  // Each question interrupts the program or the desktop, so what has been found is not looked for again.
  HWND window = nullptr;
  std::array<HWND, 4> controls{};
  return WaitUntil(
      [&] {
        if (window == nullptr && (window = MainWindow()) == nullptr) return false;
        if (!IsWindowVisible(window)) return false;
        for (std::size_t i = 0; i < controls.size(); ++i) {
          constexpr std::array<int, 4> kIds = {kPicMPSCPI, kOptMPSC, kOptMPSC + 1, kOptMPSC + 2};
          if (controls[i] == nullptr) controls[i] = GetDlgItem(window, kIds[i]);
        }
        if (controls[0] == nullptr || (GetWindowLongPtrW(controls[0], GWL_STYLE) & WS_VISIBLE) != 0) return false;
        return std::any_of(controls.begin() + 1, controls.end(),
                           [](HWND option) { return SendMessageW(option, BM_GETCHECK, 0, 0) == BST_CHECKED; });
      },
      seconds);
}

bool Program::IsReady() const {
  if (MainWindow() == nullptr || !IsWindowVisible(MainWindow()) || IsShown(kPicMPSCPI)) return false;
  return IsChecked(kOptMPSC) || IsChecked(kOptMPSC + 1) || IsChecked(kOptMPSC + 2);
}

HWND Program::Control(int id) const {
  std::pair<int, HWND> wanted{id, nullptr};
  EnumChildWindows(MainWindow(), &LookForId, reinterpret_cast<LPARAM>(&wanted));
  return wanted.second;
}

HWND Program::StatusBar() const { return FindWindowExW(MainWindow(), nullptr, L"msctls_statusbar32", nullptr); }

bool Program::IsShown(int id) const { return (GetWindowLongPtrW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0; }

bool Program::IsChecked(int id) const { return SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }

int Program::ListCount(int id) const { return static_cast<int>(SendMessageW(Control(id), LB_GETCOUNT, 0, 0)); }

int Program::ListIndex(int id) const { return static_cast<int>(SendMessageW(Control(id), LB_GETCURSEL, 0, 0)); }

std::wstring Program::ListText(int id, int row) const {
  const HWND list = Control(id);
  const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
  if (length < 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const LRESULT copied =
      SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied < 0 ? 0 : static_cast<std::size_t>(copied));
  return text;
}

std::vector<std::wstring> Program::ListTexts(int id) const {
  std::vector<std::wstring> texts;
  for (int row = 0, count = ListCount(id); row < count; ++row) texts.push_back(ListText(id, row));
  return texts;
}

GdiCount Program::GdiObjects() const {
  if (const DWORD count = GetGuiResources(m_process, GR_GDIOBJECTS)) return {0, static_cast<int>(count)};
  // Wine answers 0; there each process has a table of its own, which its process block points to. Where a 32-bit
  // process runs on a 64-bit system, as in newer Wines, that table is out of its reach.
  if constexpr (sizeof(void*) == 4) return {};
  struct BasicInformation {
    void* status;
    std::uintptr_t processBlock;
    void* rest[4];
  };
  using Query = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
  const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationProcess")));
  BasicInformation information{};
  if (query == nullptr || query(m_process, 0, &information, sizeof information, nullptr) != 0) return {};
  std::uintptr_t table = 0;
  const auto read = [this](std::uintptr_t from, void* to, std::size_t size) {
    return ReadProcessMemory(m_process, reinterpret_cast<void*>(from), to, size, nullptr) != FALSE;
  };
  if (!read(information.processBlock + 0xF8, &table, sizeof table)) return {};
  constexpr std::size_t kEntries = 0x4000;
  constexpr std::size_t kEntrySize = 24;
  constexpr std::size_t kTypeOffset = 14;
  std::vector<std::uint8_t> entries(kEntries * kEntrySize);
  if (!read(table, entries.data(), entries.size())) return {};
  GdiCount count;
  for (std::size_t i = 0; i < kEntries; ++i) {
    constexpr std::uint8_t kFree = 0;
    constexpr std::uint8_t kDeviceContext = 1;
    constexpr std::uint8_t kRegion = 4;
    constexpr std::uint8_t kDeviceSurface = 5;
    const std::uint8_t kind = entries[i * kEntrySize + kTypeOffset];
    if (kind == kDeviceContext) ++count.deviceContexts;
    if (kind != kFree && kind != kDeviceContext && kind != kRegion && kind != kDeviceSurface) ++count.others;
  }
  return count;
}

int Program::Windows() const {
  int count = 0;
  EnumThreadWindows(GetWindowThreadProcessId(MainWindow(), nullptr), &CountWindow, reinterpret_cast<LPARAM>(&count));
  EnumChildWindows(MainWindow(), &CountWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

int Program::FocusedId() const {
  GUITHREADINFO information{};
  information.cbSize = sizeof information;
  GetGUIThreadInfo(GetWindowThreadProcessId(MainWindow(), nullptr), &information);
  return information.hwndFocus == nullptr ? 0 : GetDlgCtrlID(information.hwndFocus);
}

void Program::Focus(int id) const {
  SetForegroundWindow(MainWindow());
  ClickAt(CentreOf(Control(id)));
  WaitUntil([this, id] {
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    GetGUIThreadInfo(GetWindowThreadProcessId(MainWindow(), nullptr), &information);
    // The focus of a window that is not in front yet gets no keys.
    return information.hwndFocus == Control(id) && GetForegroundWindow() == MainWindow();
  });
}

std::optional<Dialog> Program::OpenDialog() const {
  const HWND window = FindTopLevel(m_processId, kDialogClass, nullptr);
  if (window == nullptr || !IsWindowVisible(window)) return std::nullopt;
  Dialog dialog{window, WindowText(window), {}};
  if (const HWND text = GetDlgItem(window, kMessageTextId)) dialog.text = WindowText(text);
  return dialog;
}

Dialog Program::WaitDialog(double seconds) const {
  Dialog dialog;
  WaitUntil(
      [&] {
        const auto open = OpenDialog();
        if (open) dialog = *open;
        return open.has_value();
      },
      seconds);
  return dialog;
}

bool Program::Answer(const Dialog& dialog, int button) const {
  // A dialog that has just come may not take the first press yet.
  return WaitUntil([&] {
    if (!IsWindow(dialog.window)) return true;
    PostMessageW(GetDlgItem(dialog.window, button), BM_CLICK, 0, 0);
    return HoldsWithin(1.0, [&] { return !IsWindow(dialog.window); });
  });
}

}  // namespace kvez::test
