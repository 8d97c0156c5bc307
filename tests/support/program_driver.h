#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/waiting.h"

namespace kvez::test {

/// Real input, as from the keyboard and the pointer. A text is typed by the keys of the keyboard's layout, with Shift
/// and all that they need; only what the layout lacks comes as a character without a key.
void TypeText(const std::wstring& text);
/// A key that goes down, is repeated so many times as it is held, and comes up again.
void HoldKey(WORD virtualKey, int repetitions, bool alt = false);
/// A key that stays down, and one that comes up.
void KeyDown(WORD virtualKey);
void KeyUp(WORD virtualKey);
void PressKey(WORD virtualKey, bool control = false, bool shift = false, bool alt = false);
/// Moves the pointer, and waits until it is there for every program of the display.
void MovePointer(POINT screen);
void ClickAt(POINT screen, bool rightButton = false);
/// Their parts, for who does not wait: movements that may come late or not at all, and a click wherever the pointer is.
void HurryPointer(POINT screen);
void ClickInPlace(bool rightButton = false);
POINT CentreOf(HWND window);

/// Texts of another process's windows.
std::wstring WindowText(HWND window);
/// The same from the system's own memory: also while the program is too busy to answer.
std::wstring KnownText(HWND window);
std::wstring StatusText(HWND statusBar, int panel);

/// A message box of the program, or any other of its dialogs.
struct Dialog {
  HWND window = nullptr;
  std::wstring caption;
  std::wstring text;
};

/// GDI objects by how they come and go: the system keeps device contexts, each with a region and a surface, for the
/// windows that were drawn, up to 64 of them, and the last of them may come up after thousands of events. Regions and
/// surfaces are not counted. Of a 32-bit program under Wine nothing is counted.
struct GdiCount {
  int deviceContexts = 0;  // always 0 on Windows, which does not tell them from the others
  int others = 0;
};

/// The program in a process of its own, driven from outside like by its user.
class Program {
 public:
  /// Starts `exe`. The working folder is that of the caller: the program must not depend on it.
  explicit Program(const std::wstring& exe);
  /// Takes over a running program by its main window; nothing when there is none.
  static std::optional<Program> Running();
  Program(Program&& other) noexcept;
  Program& operator=(Program&&) = delete;
  ~Program();  // ends the process when it still runs

  DWORD ProcessId() const { return m_processId; }
  bool HasEnded() const;
  /// Waits for the end of the process; its exit code.
  std::optional<DWORD> WaitForEnd(double seconds = 20.0);
  void Kill();
  /// Lets the process live on after this object.
  void Release() { m_kill = false; }

  /// The window with the application's title that is no message box; null when there is none (yet).
  HWND MainWindow() const;
  /// True once the main window is loaded: shown, the message panel hidden again, a search mode chosen.
  bool WaitReady(double seconds = 60.0) const;
  /// The same at once, for who waits for other things, too.
  bool IsReady() const;
  HWND Control(int id) const;
  HWND StatusBar() const;

  std::wstring Text(int id) const { return WindowText(Control(id)); }
  bool IsShown(int id) const;
  bool IsEnabled(int id) const { return IsWindowEnabled(Control(id)) != FALSE; }
  bool IsChecked(int id) const;
  int ListCount(int id) const;
  int ListIndex(int id) const;
  std::wstring ListText(int id, int row) const;
  std::vector<std::wstring> ListTexts(int id) const;

  /// The GDI objects and the windows of the process, to be compared around many repetitions.
  GdiCount GdiObjects() const;
  int Windows() const;

  /// The identifier of the control that has the keyboard focus; 0 for none.
  int FocusedId() const;
  /// Brings the window to the front and gives a control the focus by a click into it.
  void Focus(int id) const;
  void Click(int id, bool rightButton = false) const { ClickAt(CentreOf(Control(id)), rightButton); }

  /// The open dialog of the process, waiting for it to come; an empty one when it does not.
  Dialog WaitDialog(double seconds = 20.0) const;
  std::optional<Dialog> OpenDialog() const;
  /// Presses the button of that id (IDOK, IDYES, IDNO) and waits until the dialog is gone.
  bool Answer(const Dialog& dialog, int button) const;

 private:
  Program(HANDLE process, DWORD processId);

  HANDLE m_process = nullptr;
  DWORD m_processId = 0;
  bool m_kill = true;
};

}  // namespace kvez::test
